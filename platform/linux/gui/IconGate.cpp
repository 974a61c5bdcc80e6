#include "platform/linux/gui/IconGate.h"

#include "platform/PrivateFile.h"
#include "platform/linux/gui/DrawingCost.h"
#include "platform/linux/gui/SvgGuard.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>
#include <QSvgRenderer>

#include <zlib.h>

#include <algorithm>
#include <optional>

namespace quorvantel::platform {

namespace {

constexpr qint64 maximumFileSize = qint64{8} * 1024 * 1024;
constexpr qsizetype maximumSvgSize = qsizetype{1024} * 1024;
constexpr int maximumSourcePixels = 2048;
/// For so many pixels of eight bytes.
constexpr int maximumMegabytes = 32;
/// A few times what real icons take, and a tenth of a second for outlines that all cross each
/// other.
constexpr double maximumDrawingCost = 500'000;
constexpr QByteArrayView gzipMagic("\x1f\x8b");

/// Bounds, while it lives, the memory of each picture that is decoded. Some formats hold several,
/// of which a reader asked for the size knows only one.
class DecodingLimit {
public:
    DecodingLimit() { QImageReader::setAllocationLimit(maximumMegabytes); }
    DecodingLimit(const DecodingLimit&) = delete;
    DecodingLimit& operator=(const DecodingLimit&) = delete;
    ~DecodingLimit() { QImageReader::setAllocationLimit(m_before); }

private:
    int m_before = QImageReader::allocationLimit();
};

bool isSmall(const QSize& size) {
    return std::max(size.width(), size.height()) <= maximumSourcePixels;
}

bool isSupported(const QImageReader& reader) {
    const QByteArray format = reader.format();
    const QSize size = reader.size();
    return format != "svg" && format != "svgz" && format != "pdf" && !size.isEmpty() &&
           isSmall(size);
}

QImage decodeRaster(const QByteArray& content) {
    QBuffer buffer;
    buffer.setData(content);
    QImageReader reader(&buffer);
    const QImage image = isSupported(reader) ? reader.read() : QImage();
    return isSmall(image.size()) ? image : QImage();
}

bool isSmallRaster(const QByteArray& content) {
    QBuffer buffer;
    buffer.setData(content);
    return isSupported(QImageReader(&buffer));
}

/// The content of a gzip stream (RFC 1952); nothing if it is broken or too large.
std::optional<QByteArray> unpacked(QByteArray packed) {
    z_stream stream{};
    constexpr int gzipOnly = 16 + MAX_WBITS;
    if (inflateInit2(&stream, gzipOnly) != Z_OK) {
        return std::nullopt;
    }
    QByteArray content(maximumSvgSize, Qt::Uninitialized);
    stream.next_in = reinterpret_cast<Bytef*>(packed.data());
    stream.avail_in = static_cast<uInt>(packed.size());
    stream.next_out = reinterpret_cast<Bytef*>(content.data());
    stream.avail_out = static_cast<uInt>(content.size());
    const int result = inflate(&stream, Z_FINISH);
    content.truncate(static_cast<qsizetype>(stream.total_out));
    inflateEnd(&stream);
    return result == Z_STREAM_END ? std::optional(content) : std::nullopt;
}

QImage decodeSvg(const QByteArray& document, int pixels) {
    if (document.size() > maximumSvgSize || !isHarmlessSvg(document, isSmallRaster)) {
        return {};
    }
    QSvgRenderer renderer(document);
    const QSize size =
        renderer.defaultSize().scaled(pixels, pixels, Qt::KeepAspectRatio).expandedTo({1, 1});
    if (!renderer.isValid() || renderer.defaultSize().isEmpty() ||
        !(drawingCost(renderer, size) <= maximumDrawingCost)) {
        return {};
    }
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    return image;
}

} // namespace

QImage readIcon(const QString& path, int pixels) {
    const FileContent content = readRegularFile(path, maximumFileSize);
    const auto* const bytes = std::get_if<QByteArray>(&content);
    return bytes == nullptr ? QImage() : decodeIcon(*bytes, pixels);
}

QImage decodeIcon(const QByteArray& content, int pixels) {
    const DecodingLimit limit;
    if (content.startsWith(gzipMagic)) {
        const std::optional<QByteArray> document = unpacked(content);
        return document ? decodeSvg(*document, pixels) : QImage();
    }
    const QByteArrayView start =
        QByteArrayView(content).first(std::min<qsizetype>(content.size(), 64));
    // A document may begin with a byte order mark or with empty lines; no raster format does.
    const bool isMarkup = start.trimmed().startsWith('<') || start.startsWith("\xEF\xBB\xBF") ||
                          start.startsWith("\xFF\xFE") || start.startsWith("\xFE\xFF");
    return isMarkup ? decodeSvg(content, pixels) : decodeRaster(content);
}

} // namespace quorvantel::platform
