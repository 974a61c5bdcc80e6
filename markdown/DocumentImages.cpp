#include "markdown/DocumentImages.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImageReader>
#include <QPainter>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextList>
#include <QTextTable>

#include <algorithm>
#include <cmath>

namespace quorvantel::markdown {

namespace {

constexpr qint64 maximumFileSize = qint64{32} * 1024 * 1024;
constexpr qsizetype maximumPixels = 40'000'000;
/// Narrower than this, an image is no longer scaled down with the text.
constexpr double minimumWidth = 40;

/// The width of the text where the block is, in points.
double availableWidth(const QTextDocument& document, const QTextBlock& block) {
    double width = document.textWidth() - 2 * document.documentMargin();
    const QTextList* const list = block.textList();
    const int indent =
        block.blockFormat().indent() + (list != nullptr ? list->format().indent() : 0);
    width -= indent * document.indentWidth();
    for (QTextFrame* frame = QTextCursor(block).currentFrame();
         frame != nullptr && frame != document.rootFrame(); frame = frame->parentFrame()) {
        width -= frame->frameFormat().leftMargin() + frame->frameFormat().rightMargin();
        if (const auto* const table = qobject_cast<const QTextTable*>(frame)) {
            const QTextTableCellFormat cell = table->cellAt(0, 0).format().toTableCellFormat();
            width = width / table->columns() - cell.leftPadding() - cell.rightPadding() -
                    cell.leftBorder();
        }
    }
    return std::max(width, minimumWidth);
}

/// The name of the image of twice the resolution.
QString doubleResolutionName(const QString& source) {
    const qsizetype dot = source.lastIndexOf(u'.');
    return dot < 0 ? source : source.first(dot) + QStringLiteral("@2x") + source.sliced(dot);
}

} // namespace

DocumentImages::DocumentImages(const QUrl& baseUrl, QObject* parent)
    : QObject(parent), m_folder(ContainedFolder::fromUrl(baseUrl)) {}

bool DocumentImages::load(const QString& source) {
    auto entry = m_entries.find(source);
    if (entry == m_entries.end()) {
        entry = m_entries.insert(source, Entry{read(source), {}});
    }
    return !entry->image.isNull();
}

QImage DocumentImages::read(const QString& source) const {
    const QUrl url(source);
    if (!url.isValid() || !url.scheme().isEmpty() || !url.authority().isEmpty()) {
        return {};
    }
    const QString path = url.path(QUrl::FullyDecoded);
    QImage fine = decode(doubleResolutionName(path));
    if (!fine.isNull()) {
        fine.setDevicePixelRatio(2);
        return fine;
    }
    return decode(path);
}

QImage DocumentImages::decode(const QString& path) const {
    auto bytes = m_folder.read(path, maximumFileSize);
    if (!bytes) {
        return {};
    }
    QBuffer buffer(&*bytes);
    buffer.open(QIODevice::ReadOnly);
    // Vector formats may name further files, so only these are let through.
    const QByteArray format = QImageReader::imageFormat(&buffer);
    if (!QList<QByteArray>{"png", "jpeg", "gif", "webp"}.contains(format)) {
        return {};
    }
    QImageReader reader(&buffer, format);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (!size.isValid() || qsizetype{size.width()} * size.height() > maximumPixels) {
        return {};
    }
    return reader.read();
}

QSizeF DocumentImages::intrinsicSize(QTextDocument* document, int position,
                                     const QTextFormat& format) {
    const QImage image = m_entries.value(format.stringProperty(sourceProperty)).image;
    const QSizeF natural = image.deviceIndependentSize();
    const double width =
        document->textWidth() < 0
            ? natural.width()
            : std::min(natural.width(), availableWidth(*document, document->findBlock(position)));
    return {width, natural.width() > 0 ? natural.height() * width / natural.width() : 0};
}

void DocumentImages::drawObject(QPainter* painter, const QRectF& rect, QTextDocument* /*document*/,
                                int /*position*/, const QTextFormat& format) {
    const auto entry = m_entries.find(format.stringProperty(sourceProperty));
    if (entry == m_entries.end() || entry->image.isNull()) {
        return;
    }
    const double scale = painter->device()->devicePixelRatioF();
    const QSize pixels = (rect.size() * scale).toSize();
    if (entry->scaled.size() != pixels) {
        entry->scaled =
            entry->image.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        entry->scaled.setDevicePixelRatio(1);
    }
    // On whole pixels, between which it would be blurred.
    const QPointF corner(std::round(rect.left() * scale) / scale,
                         std::round(rect.top() * scale) / scale);
    painter->drawImage(QRectF(corner, QSizeF(pixels) / scale), entry->scaled);
}

} // namespace quorvantel::markdown
