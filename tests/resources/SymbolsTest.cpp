#include "catalogue/SettingsPaneTable.h"
#include "support/LogLines.h"
#include "support/TestFiles.h"

#include <QDir>
#include <QImage>
#include <QPainter>
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

constexpr QStringView interfaceSymbols =
    u"magnifyingglass gearshape app.dashed circle.lefthalf.filled keyboard pencil xmark "
    u"slider.horizontal.3 checkmark chevron.left chevron.right questionmark.circle "
    u"exclamationmark.triangle";

/// What is drawn more than faintly, in units of the grid.
QRectF inkOf(QSvgRenderer& symbol) {
    QImage image(grid * magnification, grid * magnification, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    symbol.render(&painter, image.rect());
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) > 16) {
                ink |= QRect(x, y, 1, 1);
            }
        }
    }
    return {QPointF(ink.topLeft()) / magnification, QSizeF(ink.size()) / magnification};
}

TEST(SymbolsTest, EveryPaneAndEveryControlHasItsSymbol) {
    QList<QStringView> symbols = interfaceSymbols.split(u' ');
    for (const SettingsPaneRow& pane : settingsPaneTable()) {
        symbols << pane.symbol;
    }
    for (const QStringView symbol : symbols) {
        EXPECT_TRUE(QFile::exists(u":/symbols/%1.svg"_s.arg(symbol))) << symbol.toUtf8().data();
    }
}

TEST(SymbolsTest, AreReadWithoutComplaintAndFillTheSameSquareWithOneThicknessOfLine) {
    const QRectF square(margin, margin, grid - 2 * margin, grid - 2 * margin);
    testing::LogLines log;
    for (const QFileInfo& file : QDir(u":/symbols"_s).entryInfoList()) {
        SCOPED_TRACE(file.fileName().toStdString());
        QSvgRenderer symbol(file.filePath());
        EXPECT_EQ(symbol.viewBoxF(), QRectF(0, 0, grid, grid));
        const QRectF ink = inkOf(symbol);
        EXPECT_THAT(log.take(), IsEmpty());
        EXPECT_TRUE(square.contains(ink));
        // Nothing looks small beside the others, and nothing sits askew.
        EXPECT_GE(std::max(ink.width(), ink.height()), 14);
        EXPECT_NEAR(ink.center().x(), grid / 2.0, 0.7);
        EXPECT_NEAR(ink.center().y(), grid / 2.0, 0.7);
        const QByteArray source = testing::readFile(file.filePath());
        EXPECT_EQ(source.count("stroke-width="), 1);
        EXPECT_TRUE(source.contains("stroke-width=\"1.75\""));
    }
}

} // namespace
} // namespace quorvantel
