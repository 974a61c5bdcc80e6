#pragma once

#include "platform/linux/GLibPointers.h"

#include <QString>
#include <QStringList>

#include <gio/gio.h>

#include <functional>
#include <memory>
#include <vector>

namespace quorvantel::platform {

struct GSettingsSchemaDeleter {
    void operator()(GSettingsSchema* schema) const { g_settings_schema_unref(schema); }
};

using GSettingsSchemaPointer = std::unique_ptr<GSettingsSchema, GSettingsSchemaDeleter>;

/// One group of GNOME's settings (GSettings). Reading takes no round trip and writing waits for
/// nobody.
class GnomeSettings {
public:
    /// The schema's own group; absent when the schema is not installed.
    static std::unique_ptr<GnomeSettings> find(const char* schema);

    /// The group at `path` of a schema that has many; absent when the schema is not installed or
    /// `path` is none.
    static std::unique_ptr<GnomeSettings> find(const char* schema, const QString& path);

    GnomeSettings(const GnomeSettings&) = delete;
    GnomeSettings& operator=(const GnomeSettings&) = delete;
    ~GnomeSettings();

    /// The keys that hold lists of texts.
    std::vector<QByteArray> listKeys() const;
    QStringList list(const char* key) const;
    QString text(const char* key) const;
    /// What the key is for, in the user's language; empty when the schema does not say.
    QString summary(const char* key) const;
    bool isWritable(const char* key) const;

    void setList(const char* key, const QStringList& value);
    /// Writes only what differs.
    void setText(const char* key, const QString& value);
    void reset(const char* key);

    /// Has every change told from now on, this object's own at once. To be called once.
    void observe(std::function<void()> onChange);

private:
    GnomeSettings(GSettingsSchemaPointer schema, GObjectPointer<GSettings> settings);

    GSettingsSchemaPointer m_schema;
    GObjectPointer<GSettings> m_settings;
    std::function<void()> m_onChange;
};

} // namespace quorvantel::platform
