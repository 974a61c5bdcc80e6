#pragma once

#include "markdown/ContainedFolder.h"

#include <QHash>
#include <QImage>
#include <QObject>
#include <QTextObjectInterface>
#include <QUrl>

namespace quorvantel::markdown {

/// The images of one document: reads them from below its base and draws them in its text, no wider
/// than the text and as fine as the screen.
class DocumentImages : public QObject, public QTextObjectInterface {
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

public:
    /// The type of an image's character in the document.
    static constexpr int objectType = QTextFormat::UserObject + 1;

    /// Where an image's character format holds its address as the text gives it.
    static constexpr int sourceProperty = QTextFormat::UserProperty + 7;

    DocumentImages(const QUrl& baseUrl, QObject* parent);

    /// Whether there is an image that can be shown: a PNG, JPEG, GIF or WebP file below the base,
    /// of bounded size. A file with "@2x" before the extension is preferred, at half its size.
    bool load(const QString& source);

    QSizeF intrinsicSize(QTextDocument* document, int position, const QTextFormat& format) override;
    void drawObject(QPainter* painter, const QRectF& rect, QTextDocument* document, int position,
                    const QTextFormat& format) override;

private:
    struct Entry {
        /// Null when there is no such image.
        QImage image;
        /// The image at the size last drawn, in device pixels.
        QImage scaled;
    };

    QImage read(const QString& source) const;
    QImage decode(const QString& path) const;

    ContainedFolder m_folder;
    QHash<QString, Entry> m_entries;
};

} // namespace quorvantel::markdown
