#include "markdown/SafeAddress.h"

#include <QUrl>

namespace quorvantel::markdown {

QString safeAddress(const char* address) {
    const QString text = QString::fromUtf8(address);
    const QUrl url(text);
    const QString scheme = url.scheme();
    const bool isSafe =
        url.isValid() && (scheme.isEmpty() || scheme == QStringLiteral("http") ||
                          scheme == QStringLiteral("https") || scheme == QStringLiteral("mailto"));
    return isSafe ? text : QString();
}

} // namespace quorvantel::markdown
