#include "catalogue/SettingsPaneTable.h"
#include "support/LogLines.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>
#include <QSvgRenderer>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace quorvantel {
namespace {

using ::testing::IsEmpty;

constexpr int grid = 24;
constexpr int margin = 2;
/// Pixels a unit of the grid: enough to see a tenth of a unit.
constexpr int magnification = 10;

QStringList interfaceSymbols() {
    const char* const names[] = {
        "magnifyingglass",
        "gearshape",
        "app.dashed",
        "circle.lefthalf.filled",
        "keyboard",
        "pencil",
        "xmark",
        "slider.horizontal.3",
        "checkmark",
        "chevron.left",
        "chevron.right",
        "questionmark.circle",
        "exclamationmark.triangle",
    };
    QStringList result;
    for (const char* const name : names) {
        result << QString::fromLatin1(name);
    }
    return result;
}

QString fileOf(const QString& symbol) {
    return QStringLiteral(":/symbols/%1.svg").arg(symbol);
}

QStringList allSymbols() {
    QStringList names = QDir(QStringLiteral(":/symbols")).entryList();
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

TEST(SymbolsTest, EveryPaneAndEveryControlHasItsSymbol) {
    QStringList wanted = interfaceSymbols();
    for (const SettingsPaneRow& pane : settingsPaneTable()) {
        wanted << pane.symbol.toString();
    }
    for (const QString& symbol : wanted) {
        EXPECT_TRUE(QFile::exists(fileOf(symbol))) << symbol.toStdString();
    }
}

TEST(SymbolsTest, AreReadWithoutComplaint) {
    testing::LogLines log;
    for (const QString& symbol : allSymbols()) {
        const QSvgRenderer renderer(fileOf(symbol));
        EXPECT_TRUE(renderer.isValid()) << symbol.toStdString();
        EXPECT_EQ(renderer.viewBoxF(), QRectF(0, 0, grid, grid)) << symbol.toStdString();
        EXPECT_THAT(log.take(), IsEmpty()) << symbol.toStdString();
    }
}

TEST(SymbolsTest, FillTheSameSquareAndKeepItsMargins) {
    const QRectF square(margin, margin, grid - 2 * margin, grid - 2 * margin);
    for (const QString& symbol : allSymbols()) {
        const QRectF ink = inkOf(draw(symbol));
        EXPECT_TRUE(square.contains(ink)) << symbol.toStdString();
        // Nothing looks small beside the others, and nothing sits askew.
        EXPECT_GE(std::max(ink.width(), ink.height()), 14) << symbol.toStdString();
        EXPECT_NEAR(ink.center().x(), grid / 2.0, 0.7) << symbol.toStdString();
        EXPECT_NEAR(ink.center().y(), grid / 2.0, 0.7) << symbol.toStdString();
    }
}

TEST(SymbolsTest, AreOfOneInk) {
    const QRegularExpression strokeWidth(QStringLiteral("stroke-width=\"([^\"]*)\""));
    for (const QString& symbol : allSymbols()) {
        QFile file(fileOf(symbol));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        auto matches = strokeWidth.globalMatch(QString::fromUtf8(file.readAll()));
        ASSERT_TRUE(matches.hasNext()) << symbol.toStdString();
        EXPECT_EQ(matches.next().captured(1), QStringLiteral("1.75")) << symbol.toStdString();
        EXPECT_FALSE(matches.hasNext()) << symbol.toStdString();

        // Only the shape counts, so no part may be see-through by design or have a colour.
        const QImage image = draw(symbol);
        bool isBlack = true;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                isBlack = isBlack && (image.pixel(x, y) & 0xFFFFFF) == 0;
            }
        }
        EXPECT_TRUE(isBlack) << symbol.toStdString();
    }
}

} // namespace
} // namespace quorvantel
