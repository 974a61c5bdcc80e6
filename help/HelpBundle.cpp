#include "help/HelpBundle.h"

#include "markdown/ContainedFolder.h"

#include <QDir>

#include <utility>

namespace quorvantel::help {

HelpBundle::HelpBundle(QString root, QString system)
    : m_root(std::move(root)), m_system(std::move(system)) {}

bool HelpBundle::contains(const QString& name) const {
    return markdown::ContainedFolder(m_root).find(name).has_value();
}

std::optional<QByteArray> HelpBundle::read(const QString& name, qint64 maximumSize) const {
    return markdown::ContainedFolder(m_root).read(name, maximumSize);
}

QUrl HelpBundle::baseUrl() const {
    if (m_root.startsWith(u':')) {
        return QUrl(QStringLiteral("qrc") + m_root + u'/');
    }
    return QUrl::fromLocalFile(QDir(m_root).absolutePath() + u'/');
}

} // namespace quorvantel::help
