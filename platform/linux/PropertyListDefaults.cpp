#include "platform/linux/PropertyListDefaults.h"

#include "platform/PrivateFile.h"
#include "platform/linux/PropertyList.h"
#include "platform/linux/XdgDirectories.h"

#include <QFile>
#include <QVariant>

#include <utility>

namespace quorvantel::platform {

namespace {

constexpr qint64 maximumSize = qint64{1024} * 1024;

/// What stands at the path of the settings: a dictionary, empty when there is no file; nothing
/// when the file is damaged; or why it cannot be read.
using Stored = std::variant<std::optional<PropertyList>, FileError>;

Stored readDictionary(const QString& path) {
    const FileContent content = readRegularFile(path, maximumSize);
    if (const auto* error = std::get_if<FileError>(&content)) {
        if (*error == FileError::Missing) {
            return PropertyList::dictionary();
        }
        return *error;
    }
    auto list = PropertyList::parse(std::get<QByteArray>(content));
    if (list && !list->isDictionary()) {
        list.reset();
    }
    return list;
}

/// Moves a damaged file out of the way under a name that is free, so that nothing in it is lost.
bool setAside(const QString& path) {
    QString name = path + QStringLiteral(".damaged");
    for (int number = 2; QFile::exists(name); ++number) {
        name = path + QStringLiteral(".damaged-%1").arg(number);
    }
    return QFile::rename(path, name);
}

} // namespace

QString PropertyListDefaults::standardPath() {
    return XdgDirectories().configuration() + QStringLiteral("/Quorvantel/defaults.plist");
}

PropertyListDefaults::PropertyListDefaults(QString path) : m_path(std::move(path)) {
    const Stored stored = readDictionary(m_path);
    if (const auto* error = std::get_if<FileError>(&stored)) {
        reportOnce(Problem::Reading, describe(*error));
        return;
    }
    const auto& list = std::get<std::optional<PropertyList>>(stored);
    if (!list) {
        reportOnce(Problem::Reading, QStringLiteral("damaged"));
        return;
    }
    const QVariantMap values = list->toVariant().toMap();
    for (auto value = values.cbegin(); value != values.cend(); ++value) {
        m_stored.insert(value.key(), defaultsValue(value.value()));
    }
}

std::optional<UserDefaults::Value> PropertyListDefaults::value(const QString& key) const {
    for (const auto* values : {&m_assigned, &m_stored}) {
        if (const auto found = values->constFind(key); found != values->cend()) {
            return *found;
        }
    }
    return std::nullopt;
}

void PropertyListDefaults::setAll(const QMap<QString, Value>& values) {
    bool hasChanged = false;
    for (auto value = values.cbegin(); value != values.cend(); ++value) {
        if (!std::holds_alternative<Other>(*value)) {
            m_assigned.insert(value.key(), *value);
            hasChanged = true;
        }
    }
    if (hasChanged && !write()) {
        reportOnce(Problem::Writing, QStringLiteral("cannot be written"));
    }
}

bool PropertyListDefaults::write() {
    Stored stored = readDictionary(m_path);
    auto* list = std::get_if<std::optional<PropertyList>>(&stored);
    if (list == nullptr) {
        return false;
    }
    if (!*list) {
        if (!setAside(m_path)) {
            return false;
        }
        *list = PropertyList::dictionary();
    }
    // All that this run has set, since an earlier write may have failed.
    for (auto value = m_assigned.cbegin(); value != m_assigned.cend(); ++value) {
        (*list)->insert(value.key(), value.value());
    }
    return replacePrivateFile(m_path, (*list)->toXml());
}

void PropertyListDefaults::reportOnce(Problem problem, const QString& description) {
    if (m_reported.contains(problem)) {
        return;
    }
    m_reported.append(problem);
    qWarning("Quorvantel: settings in %s: %s", qUtf8Printable(m_path), qUtf8Printable(description));
}

} // namespace quorvantel::platform
