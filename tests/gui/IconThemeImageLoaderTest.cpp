#include "platform/linux/gui/IconThemeImageLoader.h"

#include "support/TestFiles.h"

#include <QBuffer>
#include <QIcon>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <zlib.h>

#include <chrono>
#include <cstring>
#include <filesystem>

namespace quorvantel::platform {
namespace {

using namespace Qt::StringLiterals;

constexpr int iconSize = 28;

QColor colorOfSize(int pixels) {
    return QColor::fromHsv(pixels * 2, 255, 255);
}

/// An icon theme on disk, with the current directories of the Icon Theme Specification.
class IconThemeImageLoaderTest : public ::testing::Test {
protected:
    IconThemeImageLoaderTest() {
        QByteArray index = "[Icon Theme]\nName=Sizes\nComment=\nDirectories=";
        QByteArray sections;
        for (const int size : {48, 32, 24}) {
            const QByteArray name = QByteArray::number(size);
            index += name + ",";
            sections += "\n[" + name + "]\nSize=" + name + "\nType=Fixed\n";
            QDir().mkpath(path(QString::fromLatin1(name)));
        }
        QDir().mkpath(path(u"vectors"_s));
        sections += "\n[vectors]\nSize=64\nMinSize=8\nMaxSize=512\nType=Scalable\n";
        testing::writeFile(path(u"index.theme"_s), index + "vectors\n" + sections);
        QIcon::setThemeSearchPaths({directory.path()});
        QIcon::setThemeName(u"sizes"_s);
    }

    QString path(const QString& name) const { return directory.filePath(u"sizes/"_s + name); }

    /// Gives the theme an image of one colour, which tells its size.
    void addImage(const QString& icon, int pixels) {
        QImage image(pixels, pixels, QImage::Format_ARGB32);
        image.fill(colorOfSize(pixels));
        image.save(path(u"%1/%2.png"_s.arg(pixels).arg(icon)));
    }

    QImage load(const QString& icon, qreal scale) {
        const QPixmap pixmap = loader.load(Image::iconTheme(icon), iconSize, scale);
        EXPECT_EQ(pixmap.size(), QSize(iconSize, iconSize) * scale);
        EXPECT_EQ(pixmap.devicePixelRatio(), scale);
        return pixmap.toImage().convertToFormat(QImage::Format_ARGB32);
    }

    bool has(const Image& icon) { return !loader.load(icon, iconSize, 1).isNull(); }

    static bool isFilled(const QImage& image, const QColor& color) {
        QImage expected(image.size(), QImage::Format_ARGB32);
        expected.setDevicePixelRatio(image.devicePixelRatio());
        expected.fill(color);
        return image == expected;
    }

    QTemporaryDir directory;
    IconThemeImageLoader loader;
};

TEST_F(IconThemeImageLoaderTest, TheNextLargerImageFillsTheFrameAtEveryScale) {
    for (const int size : {24, 32, 48}) {
        addImage(u"app"_s, size);
    }
    EXPECT_TRUE(isFilled(load(u"app"_s, 1), colorOfSize(32)));
    EXPECT_TRUE(isFilled(load(u"app"_s, 1.5), colorOfSize(48)));
    // There is none of 56 pixels.
    EXPECT_TRUE(isFilled(load(u"app"_s, 2), colorOfSize(48)));
    addImage(u"small"_s, 24);
    EXPECT_TRUE(isFilled(load(u"small"_s, 1), colorOfSize(24)));
    EXPECT_TRUE(isFilled(load(u"small"_s, 2), colorOfSize(24)));
}

TEST_F(IconThemeImageLoaderTest, AVectorImageIsDrawnInTheVerySize) {
    for (const int size : {24, 32, 48}) {
        addImage(u"app"_s, size);
    }
    testing::writeFile(path(u"vectors/app.svg"_s),
                       "<svg xmlns='http://www.w3.org/2000/svg' width='28' height='28'>"
                       "<rect width='28' height='14' fill='#fff'/></svg>");
    for (const qreal scale : {1.0, 1.5, 2.0}) {
        const QImage image = load(u"app"_s, scale);
        const int half = image.height() / 2;
        EXPECT_TRUE(isFilled(image.copy(0, 0, image.width(), half), Qt::white)) << scale;
        EXPECT_TRUE(isFilled(image.copy(0, half, image.width(), half), Qt::transparent)) << scale;
    }
}

TEST_F(IconThemeImageLoaderTest, AnOblongImageIsCentred) {
    QImage image(48, 24, QImage::Format_ARGB32);
    image.fill(Qt::red);
    image.save(path(u"48/wide.png"_s));
    const QString file = path(u"wide.png"_s);
    image.save(file);
    for (const qreal scale : {1.0, 2.0}) {
        const QImage fromTheme = load(u"wide"_s, scale);
        const int quarter = fromTheme.height() / 4;
        EXPECT_TRUE(isFilled(fromTheme.copy(0, 0, fromTheme.width(), quarter), Qt::transparent));
        EXPECT_TRUE(isFilled(fromTheme.copy(0, quarter, fromTheme.width(), 2 * quarter), Qt::red));
        const QPixmap fromFile = loader.load(Image::file(file), iconSize, scale);
        EXPECT_EQ(fromFile.toImage().convertToFormat(QImage::Format_ARGB32), fromTheme);
    }
}

TEST_F(IconThemeImageLoaderTest, SmallerImagesHaveShadesThatThePaletteOfTheFileLacks) {
    QImage checks(4 * iconSize, 4 * iconSize, QImage::Format_Mono);
    for (int y = 0; y < checks.height(); ++y) {
        std::memset(checks.scanLine(y), y % 2 == 0 ? 0x55 : 0xAA,
                    static_cast<std::size_t>(checks.width() / 8));
    }
    for (const auto format : {QImage::Format_Mono, QImage::Format_Indexed8,
                              QImage::Format_Grayscale16, QImage::Format_RGBA64}) {
        const QString file = path(u"checks.png"_s);
        checks.convertToFormat(format).save(file);
        const QImage image = loader.load(Image::file(file), iconSize, 1).toImage();
        EXPECT_NEAR(qGray(image.pixel(13, 13)), 127, 2) << format;
        EXPECT_TRUE(isFilled(image.convertToFormat(QImage::Format_ARGB32), image.pixel(13, 13)));
    }
}

QByteArray svg(const QByteArray& content) {
    return "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' "
           "width='28' height='28'>" +
           content + "<rect width='28' height='28' fill='#fff'/></svg>";
}

/// A gzip stream of `size` spaces around a document.
QByteArray packed(const QByteArray& document, qsizetype size) {
    const QByteArray content = document + QByteArray(size, ' ');
    QByteArray stream(size / 100 + 1000, Qt::Uninitialized);
    z_stream deflater{};
    deflateInit2(&deflater, Z_BEST_SPEED, Z_DEFLATED, 16 + MAX_WBITS, 8, Z_DEFAULT_STRATEGY);
    deflater.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(content.data()));
    deflater.avail_in = static_cast<uInt>(content.size());
    deflater.next_out = reinterpret_cast<Bytef*>(stream.data());
    deflater.avail_out = static_cast<uInt>(stream.size());
    EXPECT_EQ(deflate(&deflater, Z_FINISH), Z_STREAM_END);
    stream.truncate(static_cast<qsizetype>(deflater.total_out));
    deflateEnd(&deflater);
    return stream;
}

TEST_F(IconThemeImageLoaderTest, VectorImagesReachNothingOutsideThemselvesAndStaySmall) {
    QImage red(28, 28, QImage::Format_RGB32);
    red.fill(Qt::red);
    red.save(path(u"private.png"_s));
    QByteArray png;
    QBuffer buffer(&png);
    red.save(&buffer, "PNG");
    const QByteArray embedded =
        "<image width='9' height='9' xlink:href='data:image/png;base64," + png.toBase64() + "'/>";
    QByteArray doubling = "<g id='a0'><path d='M0 0'/></g>";
    for (int i = 1; i < 16; ++i) {
        const QByteArray use = "<use xlink:href='#a" + QByteArray::number(i - 1) + "'/>";
        doubling += "<g id='a" + QByteArray::number(i) + "'>" + use + use + "</g>";
    }
    const QByteArray file = path(u"private.png"_s).toUtf8();
    const QByteArray deep = QByteArray("<g>").repeated(1000) + QByteArray("</g>").repeated(1000);
    const QByteArray dashes = "<circle r='9' fill='none' stroke='red' stroke-dasharray='0.02'/>";
    const std::pair<const char*, QByteArray> refused[] = {
        {"file", svg("<image width='9' height='9' xlink:href='" + file + "'/>")},
        {"address", svg("<image width='9' height='9' xlink:href='file://" + file + "'/>")},
        {"svg2", svg("<image width='9' height='9' href='" + file + "'/>")},
        {"sheet", "<?xml-stylesheet href='" + file + "'?>" + svg({})},
        {"nested", svg("<image width='9' height='9' xlink:href='data:image/svg+xml;base64," +
                       svg({}).toBase64() + "'/>")},
        {"doubling", svg(doubling)},
        {"itself", svg("<g id='a'><use xlink:href='#a'/></g>")},
        {"many", svg(QByteArray("<g/>").repeated(8001))},
        {"long", svg("<path d='M0 0" + QByteArray("L1 1").repeated(1 << 15) + "'/>")},
        {"deep", svg(deep)},
        {"pictures", svg(embedded.repeated(17))},
        {"large", svg(QByteArray(2 << 20, ' '))},
        {"packed", packed(svg({}), 2 << 20)},
        {"dashes", svg(dashes.repeated(100))},
        {"wide", svg("<path stroke='red' stroke-width='20' stroke-dasharray='0.2' d='M0 0" +
                     QByteArray("h28h-28").repeated(50) + "'/>")},
        {"far", svg("<polygon points='" + QByteArray("0,0 28,1e6 ").repeated(500) + "'/>")},
        {"fonts", svg(QByteArray("<text font-family='a'>a</text>").repeated(81))},
        {"rules", svg("<style><a/>" + QByteArray("a{}").repeated(50'000) + "</style>" +
                      QByteArray("<g/>").repeated(7000))},
    };
    for (const auto& [name, content] : refused) {
        const QString icon = path(u"vectors/%1.svg"_s.arg(QLatin1StringView(name)));
        testing::writeFile(icon, content);
        EXPECT_FALSE(has(Image::file(icon))) << name;
        const auto theme = Image::iconTheme(QString::fromLatin1(name));
        EXPECT_FALSE(has(theme)) << name;
    }
    const QByteArray gradient = "<defs><linearGradient id='a'/><linearGradient id='b' "
                                "xlink:href='#a'/></defs>";
    for (const QByteArray& content :
         {svg(embedded), svg(gradient), svg("<use xlink:href='#absent'/>"),
          svg("<path stroke='red' stroke-dasharray='2 1' d='M0 0h28v28'/>"),
          packed(svg({}), 1000)}) {
        const QString icon = path(u"vectors/good.svg"_s);
        testing::writeFile(icon, content);
        EXPECT_TRUE(has(Image::file(icon))) << content.constData();
        EXPECT_TRUE(isFilled(load(u"good"_s, 1), Qt::white)) << content.constData();
    }
}

TEST_F(IconThemeImageLoaderTest, WaitsForNoFifo) {
    for (const char* const name : {"24/pipe.png", "vectors/pipe.svg", "vectors/only.svg"}) {
        testing::makeFifo(path(QString::fromLatin1(name)));
    }
    addImage(u"pipe"_s, 48);
    EXPECT_TRUE(isFilled(load(u"pipe"_s, 1), colorOfSize(48)));
    EXPECT_FALSE(has(Image::iconTheme(u"only"_s)));
}

TEST_F(IconThemeImageLoaderTest, WhatIsNoIconGivesNone) {
    testing::writeFile(path(u"broken.png"_s), "no picture");
    QImage(2049, 1, QImage::Format_Mono).save(path(u"huge.png"_s));
    // One pixel on a screen of 65,281.
    testing::writeFile(path(u"screen.gif"_s),
                       QByteArray::fromHex("47494638396101ffbc000000002c00000000010001000002024401"
                                           "0001043b"));
    EXPECT_FALSE(has(Image::iconTheme(u"absent"_s)));
    for (const char* const name : {"broken.png", "huge.png", "screen.gif", "absent.png", "24"}) {
        const auto file = Image::file(path(QString::fromLatin1(name)));
        EXPECT_FALSE(has(file)) << name;
    }
}

TEST_F(IconThemeImageLoaderTest, SeesWhatIsInstalledLater) {
    // A cache of the theme's icons that lists none.
    testing::writeFile(
        path(u"icon-theme.cache"_s),
        QByteArray::fromHex("00010000 0000000c 00000014 00000001 ffffffff 00000000"));
    const auto past = std::filesystem::file_time_type::clock::now() - std::chrono::hours(1);
    std::filesystem::last_write_time(path(u"icon-theme.cache"_s).toStdString(), past);
    std::filesystem::last_write_time(path({}).toStdString(), past);
    const QTemporaryDir user;
    QIcon::setThemeSearchPaths({user.path(), directory.path()});
    loader.refresh();
    EXPECT_FALSE(has(Image::iconTheme(u"app"_s)));
    EXPECT_FALSE(loader.refresh());

    addImage(u"app"_s, 32);
    EXPECT_FALSE(has(Image::iconTheme(u"app"_s)));
    QFile::remove(path(u"icon-theme.cache"_s));
    EXPECT_TRUE(loader.refresh());
    EXPECT_TRUE(isFilled(load(u"app"_s, 1), colorOfSize(32)));
    EXPECT_FALSE(loader.refresh());

    QDir(user.path()).mkpath(u"sizes/32"_s);
    QFile::copy(path(u"32/app.png"_s), user.filePath(u"sizes/32/mine.png"_s));
    EXPECT_FALSE(has(Image::iconTheme(u"mine"_s)));
    EXPECT_TRUE(loader.refresh());
    EXPECT_TRUE(isFilled(load(u"mine"_s, 1), colorOfSize(32)));

    QIcon::setThemeName(u"another"_s);
    EXPECT_TRUE(loader.refresh());
}

} // namespace
} // namespace quorvantel::platform
