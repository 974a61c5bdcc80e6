#include "settings/HotKeyRecorderView.h"

#include "support/DrawnTexts.h"
#include "support/FakeHotKeys.h"
#include "support/FakeLook.h"
#include "support/ScriptedKeyCapture.h"
#include "support/WithoutMotion.h"

#include <QAccessible>
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
    EXPECT_EQ(recorder.findChild<QVariantAnimation*>()->currentValue(), 1.0);
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
