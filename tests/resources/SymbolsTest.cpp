#include "catalogue/SettingsPaneTable.h"
#include "support/LogLines.h"
#include "support/TestFiles.h"

#include <QImage>
#include <QPainter>
#include <QRegularExpression>
#include <QSvgRenderer>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace quorvantel {
namespace {

using namespace Qt::StringLiterals;
using ::testing::IsEmpty;

constexpr int grid = 24;
constexpr int margin = 2;
/// Pixels a unit of the grid: enough to see a tenth of a unit.
constexpr int magnification = 10;

constexpr QStringView interfaceSymbols[] = {u"magnifyingglass",
                                            u"gearshape",
                                            u"app.dashed",
                                            u"circle.lefthalf.filled",
                                            u"keyboard",
                                            u"pencil",
                                            u"xmark",
                                            u"slider.horizontal.3",
                                            u"checkmark",
                                            u"chevron.left",
                                            u"chevron.right",
                                            u"questionmark.circle",
                                            u"exclamationmark.triangle"};

QString fileOf(const QString& symbol) {
    return u":/symbols/%1.svg"_s.arg(symbol);
}

QStringList allSymbols() {
    QStringList names = QDir(u":/symbols"_s).entryList();
    for (QString& name : names) {
        name.chop(4);
    }
    return names;
}

QImage draw(const QString& symbol) {
    QImage image(grid * magnification, grid * magnification, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QSvgRenderer renderer(fileOf(symbol));
    QPainter painter(&image);
    renderer.render(&painter, image.rect());
    return image;
}

/// What is drawn more than faintly, in units of the grid.
QRectF inkOf(const QImage& image) {
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) > 16) {
                ink |= QRect(x, y, 1, 1);
            }
        }
    }
    return {ink.x() / double(magnification), ink.y() / double(magnification),
            ink.width() / double(magnification), ink.height() / double(magnification)};
}

bool isBlack(const QImage& image) {
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if ((image.pixel(x, y) & 0xFFFFFF) != 0) {
                return false;
            }
        }
    }
    return true;
}

TEST(SymbolsTest, EveryPaneAndEveryControlHasItsSymbol) {
    for (const QStringView symbol : interfaceSymbols) {
        EXPECT_TRUE(QFile::exists(fileOf(symbol.toString()))) << symbol.toUtf8().constData();
    }
    for (const SettingsPaneRow& pane : settingsPaneTable()) {
        EXPECT_TRUE(QFile::exists(fileOf(pane.symbol.toString())))
            << pane.symbol.toUtf8().constData();
    }
}

TEST(SymbolsTest, AreReadWithoutComplaintAndFillTheSameSquareInOneInk) {
    const QRectF square(margin, margin, grid - 2 * margin, grid - 2 * margin);
    const QRegularExpression strokeWidth(u"stroke-width=\"([^\"]*)\""_s);
    testing::LogLines log;
    for (const QString& symbol : allSymbols()) {
        SCOPED_TRACE(symbol.toStdString());
        const QSvgRenderer renderer(fileOf(symbol));
        EXPECT_TRUE(renderer.isValid());
        EXPECT_EQ(renderer.viewBoxF(), QRectF(0, 0, grid, grid));
        EXPECT_THAT(log.take(), IsEmpty());

        const QImage image = draw(symbol);
        const QRectF ink = inkOf(image);
        EXPECT_TRUE(square.contains(ink));
        // Nothing looks small beside the others, and nothing sits askew.
        EXPECT_GE(std::max(ink.width(), ink.height()), 14);
        EXPECT_NEAR(ink.center().x(), grid / 2.0, 0.7);
        EXPECT_NEAR(ink.center().y(), grid / 2.0, 0.7);

        auto matches =
            strokeWidth.globalMatch(QString::fromUtf8(testing::readFile(fileOf(symbol))));
        ASSERT_TRUE(matches.hasNext());
        EXPECT_EQ(matches.next().captured(1), u"1.75"_s);
        EXPECT_FALSE(matches.hasNext());
        // Only the shape counts, so no part may be see-through by design or have a colour.
        EXPECT_TRUE(isBlack(image));
    }
}

} // namespace
} // namespace quorvantel
