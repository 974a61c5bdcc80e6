#include "settings/SegmentedPill.h"

#include "shapes/ContinuousCorners.h"
#include "support/DrawnTexts.h"
#include "support/FakeLook.h"
#include "support/WaitUntil.h"
#include "support/WithoutMotion.h"
#include "theme/InterfaceFont.h"

#include <QAccessible>
#include <QApplication>
#include <QPainter>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace quorvantel {
namespace {

using namespace Qt::StringLiterals;

class SegmentedPillTest : public ::testing::Test {
protected:
    SegmentedPillTest() {
        pill.resize(300, pill.sizeHint().height());
        pill.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&pill));
    }

    PillSegment* segment(int index) { return pill.findChildren<PillSegment*>().at(index); }

    QRectF settledFrame() {
        // Two seconds are four periods of the spring.
        QRectF last;
        EXPECT_TRUE(testing::waitUntil([&] {
            const QRectF now = *pill.pillFrame();
            return std::exchange(last, now) == now && now.left() == segmentFrame().left();
        }));
        return *pill.pillFrame();
    }

    QRectF segmentFrame() { return segment(*pill.selection())->geometry(); }

    testing::FakeLook look;
    SegmentedPill pill{{u"One"_s, u"Two"_s, u"A long label"_s}, look.theme};
    QSignalSpy selections{&pill, &SegmentedPill::selected};
};

TEST_F(SegmentedPillTest, AClickSelectsAndThePillSlidesThere) {
    EXPECT_FALSE(pill.pillFrame());
    pill.setSelection(0);
    EXPECT_EQ(*pill.pillFrame(), segmentFrame()) << "the first selection has nowhere to come from";

    const QRectF first = *pill.pillFrame();
    QTest::mouseClick(segment(2), Qt::LeftButton);
    EXPECT_EQ(pill.selection(), 2);
    EXPECT_EQ(*pill.pillFrame(), first) << "it has not jumped";
    EXPECT_EQ(settledFrame(), segmentFrame());
    ASSERT_EQ(selections.count(), 1);
    EXPECT_EQ(selections[0][0].toInt(), 2);
}

TEST_F(SegmentedPillTest, ASelectionFromOutsideSlidesToo) {
    pill.setSelection(0);
    pill.setSelection(1);
    EXPECT_NE(*pill.pillFrame(), segmentFrame());
    EXPECT_EQ(settledFrame(), segmentFrame());
    const testing::WithoutMotion still;
    pill.setSelection(0);
    EXPECT_EQ(*pill.pillFrame(), segmentFrame());
    EXPECT_EQ(selections.count(), 0);
    pill.setSelection(std::nullopt);
    EXPECT_FALSE(pill.pillFrame());
}

TEST_F(SegmentedPillTest, LabelsFitAndSegmentsFillThePill) {
    for (const int width : {pill.minimumSizeHint().width(), 300, 517}) {
        pill.resize(width, pill.height());
        for (int index = 0; index < 3; ++index) {
            EXPECT_GE(segment(index)->width(), segment(index)->sizeHint().width()) << width;
        }
        EXPECT_EQ(segment(0)->geometry().left(), 2);
        EXPECT_EQ(segment(1)->geometry().left(), segment(0)->geometry().right() + 1);
        EXPECT_EQ(segment(2)->geometry().right(), width - 3);
    }
}

TEST_F(SegmentedPillTest, TheSelectedSegmentStandsOutFromTheOthers) {
    pill.setSelection(1);
    const ResolvedTheme& theme = look.theme.theme();
    const QImage picture = pill.grab().toImage();
    const auto color = [&](const QPoint& place) { return picture.pixelColor(place); };
    const QRect frame = segmentFrame().toRect();
    EXPECT_EQ(frame.top(), 2);
    EXPECT_EQ(frame.bottom(), pill.height() - 3);
    const int middle = frame.center().y();
    for (const int inside : {frame.left(), frame.right()}) {
        EXPECT_EQ(color({inside, middle}), theme.accent.toQColor());
    }
    for (const QPoint outside :
         {QPoint(frame.left() - 1, middle), QPoint(frame.right() + 1, middle),
          QPoint(frame.center().x(), 1)}) {
        EXPECT_EQ(color(outside), theme.elevatedBackground.toQColor());
    }
    QImage shape(pill.size(), picture.format());
    shape.fill(pill.palette().color(QPalette::Window));
    QPainter painter(&shape);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(continuousRoundedRect(pill.rect(), 7), theme.elevatedBackground.toQColor());
    painter.fillPath(continuousRoundedRect(frame, 5), theme.accent.toQColor());
    for (const QPoint corner : {QPoint(), frame.topLeft()}) {
        const QRect part(corner, QSize(7, 7));
        EXPECT_EQ(picture.copy(part), shape.copy(part)) << "as round as it is to be";
    }
    const testing::DrawnTexts drawn(pill);
    ASSERT_EQ(drawn.texts().size(), 3U);
    for (int index = 0; index < 3; ++index) {
        const auto& text = drawn.texts()[static_cast<std::size_t>(index)];
        const bool isSelected = index == 1;
        EXPECT_EQ(text.size, 13);
        EXPECT_EQ(text.color,
                  (isSelected ? look.theme.textOnAccent() : theme.secondaryText).toQColor());
        const QFontMetrics metrics(interfaceFont(13, QFont::DemiBold));
        EXPECT_EQ(segment(index)->sizeHint(),
                  QSize(metrics.horizontalAdvance(text.text) + 24, metrics.height() + 8));
    }
    QTest::mouseClick(segment(0), Qt::LeftButton, {}, {0, 0});
    EXPECT_EQ(pill.selection(), 0) << "a click beside its text counts";
}

TEST_F(SegmentedPillTest, IsAGroupOfRadioButtonsOfWhichTheTabKeyReachesTheSelectedOne) {
    const auto tabStops = [this] {
        QList<int> stops;
        for (int index = 0; index < 3; ++index) {
            if ((segment(index)->focusPolicy() & Qt::TabFocus) != 0) {
                stops << index;
            }
        }
        return stops;
    };
    EXPECT_EQ(tabStops(), QList<int>{0});
    segment(2)->setFocus();
    const std::pair<Qt::Key, int> keys[] = {
        {Qt::Key_Space, 2}, {Qt::Key_Left, 1}, {Qt::Key_Right, 2}};
    for (const auto& [key, expected] : keys) {
        QTest::keyClick(QApplication::focusWidget(), key);
        EXPECT_EQ(pill.selection(), expected);
        EXPECT_EQ(tabStops(), QList<int>{expected});
    }
    EXPECT_EQ(selections.count(), 3);
    for (int index = 0; index < 3; ++index) {
        const auto* const spoken = QAccessible::queryAccessibleInterface(segment(index));
        EXPECT_EQ(spoken->role(), QAccessible::RadioButton);
        EXPECT_EQ(spoken->state().checked, index == 2);
        EXPECT_EQ(spoken->text(QAccessible::Name), segment(index)->text());
    }
}

} // namespace
} // namespace quorvantel
