#include "settings/HotKeyRecorderView.h"

#include "support/DrawnTexts.h"
#include "support/FakeHotKeys.h"
#include "support/FakeLook.h"
#include "support/ScriptedKeyCapture.h"
#include "support/WithoutMotion.h"
#include "theme/ControlColors.h"
#include "theme/ControlPalette.h"

#include <QAccessible>
#include <QEnterEvent>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace quorvantel {
namespace {

using namespace Qt::StringLiterals;
using Fate = platform::KeyCapture::Fate;

class HotKeyRecorderViewTest : public ::testing::Test {
protected:
    HotKeyRecorderViewTest() {
        auto* const layout = new QVBoxLayout(&window);
        layout->addWidget(&recorder);
        layout->addWidget(&other);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        settings.onHotKeyChange = [this](const HotKeyBinding&) { ++changes; };
    }

    ~HotKeyRecorderViewTest() override {
        recorder.setParent(nullptr);
        other.setParent(nullptr);
    }

    void startRecording() {
        QTest::mouseClick(&recorder, Qt::LeftButton);
        ASSERT_TRUE(recorder.state().isRecording());
        ASSERT_EQ(keyboard.captures, 1);
        ASSERT_EQ(hotKeys.registered, QStringList{u"suspension"_s});
    }

    void expectOver(const char* how) {
        EXPECT_FALSE(recorder.state().isRecording()) << how;
        EXPECT_EQ(keyboard.captures, 0) << how;
        EXPECT_EQ(hotKeys.registered, QStringList()) << how;
    }

    QString spokenDescription() {
        return QAccessible::queryAccessibleInterface(&recorder)->text(QAccessible::Description);
    }

    testing::FakeLook look;
    AppSettings settings{look.defaults};
    testing::FakeHotKeys hotKeys;
    HotKeyService hotKey{hotKeys};
    testing::ScriptedKeyCapture keyboard;
    int changes = 0;
    QWidget window;
    HotKeyRecorderView recorder{settings, hotKey, keyboard, look.theme, look.icons};
    QLineEdit other;
};

TEST_F(HotKeyRecorderViewTest, ItsLightPulsesUnlessNothingIsToMove) {
    const auto isPulsing = [this] {
        return recorder.findChild<QVariantAnimation*>()->state() == QAbstractAnimation::Running;
    };
    const auto textLeft = [this] { return testing::DrawnTexts(recorder).texts()[0].start.x(); };
    const double left = textLeft();
    startRecording();
    EXPECT_TRUE(isPulsing());
    EXPECT_GT(textLeft(), left + 8) << "there is no room for it";
    recorder.click();
    const testing::WithoutMotion still;
    startRecording();
    EXPECT_FALSE(isPulsing());
    auto& light = *recorder.findChild<QVariantAnimation*>();
    EXPECT_EQ(light.currentValue(), 1.0);
    EXPECT_EQ(light.endValue(), 0.25);
    EXPECT_EQ(light.duration(), 1400);
    light.setCurrentTime(350);
    EXPECT_GT(light.currentValue().toDouble(), 0.9) << "it does not set out slowly";
}

TEST_F(HotKeyRecorderViewTest, ItsFieldLightAndSymbolShowItsState) {
    const ResolvedTheme& theme = look.theme.theme();
    const ControlColors colors = controlColors(theme);
    const testing::WithoutMotion still;
    window.setPalette(controlPalette(theme));
    const auto expect = [&](ThemeColor fill, double tint, const ThemeColor& border) {
        fill.opacity = tint;
        const QImage picture =
            window.grab(QRect(recorder.mapTo(&window, QPoint()), QSize(240, 34))).toImage();
        const QColor ground = testing::painted(theme.primaryBackground, fill);
        EXPECT_EQ(picture.pixelColor(120, 3), ground) << tint;
        const auto mark = [](const QImage& image, int x) { return image.pixelColor(x, 17); };
        const auto solid = [&](const ThemeColor& color) {
            return testing::painted(theme.primaryBackground, color);
        };
        EXPECT_EQ(mark(picture, 0), solid(border)) << tint;
        EXPECT_EQ(mark(picture, 239), solid(border)) << tint;
        for (const int x : {1, 11, 238}) {
            EXPECT_EQ(mark(picture, x), ground) << x;
        }
        if (recorder.state().isRecording()) {
            EXPECT_EQ(mark(picture, 13), solid(colors.accent));
            EXPECT_EQ(mark(picture, 18), solid(colors.accent));
            EXPECT_EQ(mark(picture, 20), ground);
        }
        const testing::DrawnTexts drawn(recorder);
        EXPECT_EQ(drawn.pictures().at(0), QRectF(215, 11, 13, 13));
        EXPECT_EQ(drawn.texts().at(0).start.x(), recorder.state().isRecording() ? 28 : 12);
        EXPECT_EQ(drawn.texts()[0].size, 13);
        EXPECT_EQ(
            drawn.texts()[0].color,
            (recorder.state().isRecording() ? colors.secondary : theme.primaryText).toQColor());
    };
    ASSERT_EQ(recorder.sizeHint(), QSize(240, 34));
    expect(theme.primaryText, 0.06, colors.outline);
    startRecording();
    expect(theme.accent, 0.1, colors.accent);
    keyboard.press({40, 0});
    expect(theme.primaryText, 0.06, colors.warning);
    QEnterEvent enter({5, 5}, {5, 5}, {5, 5});
    QCoreApplication::sendEvent(&recorder, &enter);
    expect(theme.primaryText, 0.08, colors.warning);
}

TEST_F(HotKeyRecorderViewTest, StoresTheNextCombination) {
    for (const char* const how : {"accepted", "the same again"}) {
        startRecording();
        EXPECT_EQ(keyboard.press({40, 0x1200}), Fate::Swallowed);
        expectOver(how);
        EXPECT_EQ(settings.hotKeyBinding(), (HotKeyBinding{40, 0x1200}));
        EXPECT_EQ(changes, 1);
    }
}

TEST_F(HotKeyRecorderViewTest, ARefusalIsShownUntilTheNextClickAndChangesNothing) {
    startRecording();
    EXPECT_EQ(keyboard.press({40, 0x0A00}), Fate::Swallowed);
    expectOver("refused");
    EXPECT_EQ(settings.hotKeyBinding(), HotKeyBinding::defaultBinding());
    EXPECT_EQ(spokenDescription(), u"Hotkey must include ⌘ or ⌃"_s);

    startRecording();
    EXPECT_EQ(spokenDescription(), u"Type a shortcut…"_s);
    EXPECT_EQ(keyboard.press({53, 0}), Fate::PassedOn);
    expectOver("Escape");
    EXPECT_EQ(spokenDescription(), u"⌥⌘Space"_s);
    EXPECT_EQ(changes, 0);
}

TEST_F(HotKeyRecorderViewTest, LetsTheKeyboardGoOnEveryWayOut) {
    startRecording();
    QTest::mouseClick(&recorder, Qt::LeftButton);
    expectOver("clicked again");

    startRecording();
    other.setFocus();
    expectOver("focus lost");

    startRecording();
    recorder.hide();
    expectOver("pane left");
    recorder.show();

    startRecording();
    window.close();
    expectOver("window closed");
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));

    {
        HotKeyRecorderView second(settings, hotKey, keyboard, look.theme, look.icons, &window);
        second.show();
        QTest::mouseClick(&second, Qt::LeftButton);
        EXPECT_EQ(keyboard.captures, 1);
    }
    expectOver("destroyed");
}

TEST_F(HotKeyRecorderViewTest, WorksByKeyboardAloneAndSaysWhatItIs) {
    recorder.setFocus();
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        QTest::keyClick(&recorder, key);
        EXPECT_TRUE(recorder.state().isRecording()) << key;
        keyboard.press({53, 0});
        for (const Qt::KeyboardModifiers modifier :
             {Qt::AltModifier | Qt::MetaModifier, Qt::KeyboardModifiers(Qt::ShiftModifier)}) {
            QTest::keyClick(&recorder, key, modifier);
            EXPECT_FALSE(recorder.state().isRecording()) << key;
        }
    }
    QTest::keyClick(&recorder, Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_TRUE(recorder.state().isRecording());
    keyboard.press({53, 0});
    const QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(&recorder);
    EXPECT_EQ(spoken->role(), QAccessible::Button);
    EXPECT_EQ(spoken->text(QAccessible::Name), u"Summon hotkey"_s);

    settings.setHotKeyBinding({122, 0x0300});
    EXPECT_EQ(spokenDescription(), u"⇧⌘F1"_s);
    startRecording();
    EXPECT_TRUE(spoken->state().pressed);
}

} // namespace
} // namespace quorvantel
