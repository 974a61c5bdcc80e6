#include "markdown/MarkdownRenderer.h"
#include "markdown/Rendering.h"
#include "support/TestFiles.h"

#include <QPainter>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace quorvantel {
namespace {

using namespace Qt::StringLiterals;
using namespace testing;

constexpr char16_t imageCharacter = u'\uFFFC';

/// Pixel columns of alternating colours, which any scaling would blur.
QImage stripes(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    for (int x = 0; x < width; ++x) {
        for (int y = 0; y < height; ++y) {
            image.setPixelColor(x, y, x % 2 == 0 ? Qt::red : Qt::blue);
        }
    }
    return image;
}

class MarkdownImage : public ::testing::Test {
protected:
    MarkdownImage() {
        QDir(root()).mkpath(u"help/images"_s);
        save(stripes(20, 10), u"outside.png"_s);
        save(stripes(20, 10), u"help/images/small.png"_s);
        save(stripes(20, 10), u"help/images/a b.png"_s);
        save(stripes(600, 300), u"help/images/large.png"_s);
        save(stripes(20, 10), u"help/images/fine.png"_s);
        save(stripes(40, 20), u"help/images/fine@2x.png"_s);
    }

    QString root() const { return m_directory.path(); }
    QUrl base() const { return QUrl::fromLocalFile(root() + u"/help/"_s); }

    void save(const QImage& image, const QString& name) const {
        ASSERT_TRUE(image.save(root() + u'/' + name));
    }

    std::unique_ptr<QTextDocument> withImage(const QByteArray& source) const {
        return rendered("![described](" + source + ")", base());
    }

    bool shows(const QByteArray& source) const {
        const QString text = withImage(source)->toPlainText();
        EXPECT_NE(text.contains(imageCharacter), text.contains(u"described"_s))
            << source.toStdString();
        return text.contains(imageCharacter);
    }

    QTemporaryDir m_directory;
};

TEST_F(MarkdownImage, ComesOnlyFromBelowTheBaseAndInSafeFormats) {
    const auto link = [this](const char* target, const char* name) {
        QFile::link(root() + QString::fromUtf8(target), root() + QString::fromUtf8(name));
    };
    link("/outside.png", "/help/out.png");
    link("", "/help/up");
    link("/help/images/small.png", "/help/in.png");
    for (const char* const source : {"images/small.png", "./images/small.png", "images/sm%61ll.png",
                                     "in.png", "<images/a b.png>", "images/a%20b.png"}) {
        EXPECT_TRUE(shows(source)) << source;
    }
    // A vector image may refer to others.
    writeFile(root() + u"/help/a.svg"_s,
              "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>");
    writeFile(root() + u"/help/broken.png"_s, "\x89PNG\r\n\x1a\n not an image");
    const QByteArray absolute = root().toUtf8() + "/help/images/small.png";
    for (const QByteArray& source :
         QByteArrayList{"../outside.png", "images/../../outside.png", "%2e%2e/outside.png",
                        "images/../images/small.png", "..\\outside.png", "out.png",
                        "up/outside.png", absolute, "file://" + absolute, "//localhost" + absolute,
                        "http://127.0.0.1/x.png", ":/images/small.png", "qrc:/small.png", "images",
                        "images/none.png", "images/small.png%00.txt", "", "a.svg", "broken.png"}) {
        EXPECT_FALSE(shows(source)) << source.toStdString();
    }
    EXPECT_FALSE(rendered("![d](images/small.png)")->toPlainText().contains(imageCharacter));
}

TEST_F(MarkdownImage, IsNeverWiderThanTheText) {
    for (const char* const text : {"![d](images/large.png)", "- a\n  - b ![d](images/large.png)",
                                   "> > ![d](images/large.png)"}) {
        const auto document = rendered(text, base());
        for (const int width : {300, 200}) {
            document->setTextWidth(width);
            EXPECT_LE(document->size().width(), width) << text;
        }
    }
    const auto document = rendered("![d](images/large.png)", base());
    document->setTextWidth(2000);
    const double naturalHeight = document->size().height();
    document->setTextWidth(320);
    EXPECT_NEAR(naturalHeight - document->size().height(), 150, 2);
}

/// Whether the document, drawn for a screen of that scale, has the columns of the image unblurred.
bool drawsStripes(QTextDocument& document, double scale) {
    document.setTextWidth(200);
    QImage canvas(QSize(200, 60) * scale, QImage::Format_RGB32);
    canvas.setDevicePixelRatio(scale);
    canvas.fill(Qt::white);
    QPainter painter(&canvas);
    document.drawContents(&painter);
    painter.end();
    int unblurred = 0;
    for (int x = 0; x < canvas.width(); ++x) {
        for (int y = 0; y < canvas.height(); ++y) {
            const QRgb color = canvas.pixel(x, y);
            unblurred += color == QColor(Qt::red).rgb() || color == QColor(Qt::blue).rgb() ? 1 : 0;
        }
    }
    return unblurred == static_cast<int>(20 * scale * 10 * scale);
}

TEST_F(MarkdownImage, IsAsFineAsTheScreen) {
    EXPECT_TRUE(drawsStripes(*withImage("images/small.png"), 1));
    EXPECT_TRUE(drawsStripes(*withImage("images/fine.png"), 2));
}

} // namespace
} // namespace quorvantel
