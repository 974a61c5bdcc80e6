#include "markdown/MarkdownRenderer.h"
#include "markdown/Rendering.h"

#include <QAbstractTextDocumentLayout>
#include <QDir>
#include <QFile>
#include <QPainter>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace quorvantel {
namespace {

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
        QDir(root()).mkpath(QStringLiteral("help/images"));
        save(stripes(20, 10), QStringLiteral("outside.png"));
        save(stripes(20, 10), QStringLiteral("help/images/small.png"));
        save(stripes(600, 300), QStringLiteral("help/images/large.png"));
        save(stripes(20, 10), QStringLiteral("help/images/fine.png"));
        save(stripes(40, 20), QStringLiteral("help/images/fine@2x.png"));
    }

    QString root() const { return m_directory.path(); }
    QUrl base() const { return QUrl::fromLocalFile(root() + QStringLiteral("/help/")); }

    void save(const QImage& image, const QString& name) const {
        ASSERT_TRUE(image.save(root() + u'/' + name));
    }

    std::unique_ptr<QTextDocument> withImage(const QByteArray& source) const {
        return rendered("![described](" + source + ")", base());
    }

    bool shows(const QByteArray& source) const {
        const QString text = withImage(source)->toPlainText();
        EXPECT_NE(text.contains(imageCharacter), text.contains(QStringLiteral("described")))
            << source.toStdString();
        return text.contains(imageCharacter);
    }

    QTemporaryDir m_directory;
};

TEST_F(MarkdownImage, ComesOnlyFromBelowTheBase) {
    EXPECT_TRUE(shows("images/small.png"));
    EXPECT_TRUE(shows("./images/small.png"));
    EXPECT_TRUE(shows("images/sm%61ll.png"));
    QFile::link(root() + QStringLiteral("/outside.png"), root() + QStringLiteral("/help/out.png"));
    QFile::link(root(), root() + QStringLiteral("/help/up"));
    QFile::link(root() + QStringLiteral("/help/images/small.png"),
                root() + QStringLiteral("/help/in.png"));
    EXPECT_TRUE(shows("in.png"));
    const QByteArray absolute = root().toUtf8() + "/help/images/small.png";
    for (const QByteArray& source : QList<QByteArray>{
             QByteArray("../outside.png"), QByteArray("images/../../outside.png"),
             QByteArray("%2e%2e/outside.png"), QByteArray("images/../images/small.png"),
             QByteArray("..\\outside.png"), QByteArray("out.png"), QByteArray("up/outside.png"),
             absolute, QByteArray("file://") + absolute, QByteArray("//localhost") + absolute,
             QByteArray("http://127.0.0.1/x.png"), QByteArray(":/images/small.png"),
             QByteArray("qrc:/small.png"), QByteArray("images"), QByteArray("images/none.png"),
             QByteArray("images/small.png%00.txt"), QByteArray("")}) {
        EXPECT_FALSE(shows(source)) << source.toStdString();
    }
    EXPECT_FALSE(rendered("![d](images/small.png)")->toPlainText().contains(imageCharacter));
}

TEST_F(MarkdownImage, IsOfAFormatThatRefersToNothingElse) {
    QFile vector(root() + QStringLiteral("/help/a.svg"));
    ASSERT_TRUE(vector.open(QIODevice::WriteOnly));
    vector.write("<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>");
    vector.close();
    EXPECT_FALSE(shows("a.svg"));
    QFile broken(root() + QStringLiteral("/help/broken.png"));
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("\x89PNG\r\n\x1a\n not an image");
    broken.close();
    EXPECT_FALSE(shows("broken.png"));
}

TEST_F(MarkdownImage, IsNeverWiderThanTheText) {
    for (const QByteArray& text : QList<QByteArray>{QByteArray("![d](images/large.png)"),
                                                    QByteArray("- a\n  - b ![d](images/large.png)"),
                                                    QByteArray("> > ![d](images/large.png)")}) {
        const auto document = rendered(text, base());
        document->setTextWidth(300);
        EXPECT_LE(document->size().width(), 300) << text.toStdString();
        document->setTextWidth(200);
        EXPECT_LE(document->size().width(), 200) << text.toStdString();
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
