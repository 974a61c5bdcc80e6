#include "platform/linux/shortcuts/GnomeSettings.h"

#include <utility>

namespace quorvantel::platform {

namespace {

struct GVariantDeleter {
    void operator()(GVariant* value) const { g_variant_unref(value); }
};

using GVariantPointer = std::unique_ptr<GVariant, GVariantDeleter>;

GSettingsSchemaPointer findSchema(const char* schema) {
    // A schema that is asked for by name and missing would end the process.
    GSettingsSchemaSource* const source = g_settings_schema_source_get_default();
    return GSettingsSchemaPointer(
        source == nullptr ? nullptr : g_settings_schema_source_lookup(source, schema, TRUE));
}

bool isPath(const QString& path) {
    return path.startsWith(u'/') && path.endsWith(u'/') && !path.contains(QStringLiteral("//"));
}

} // namespace

GnomeSettings::GnomeSettings(GSettingsSchemaPointer schema, GObjectPointer<GSettings> settings)
    : m_schema(std::move(schema)), m_settings(std::move(settings)) {}

GnomeSettings::~GnomeSettings() {
    g_signal_handlers_disconnect_by_data(m_settings.get(), this);
}

std::unique_ptr<GnomeSettings> GnomeSettings::find(const char* schema) {
    auto found = findSchema(schema);
    if (!found || g_settings_schema_get_path(found.get()) == nullptr) {
        return nullptr;
    }
    GObjectPointer<GSettings> settings(g_settings_new_full(found.get(), nullptr, nullptr));
    return std::unique_ptr<GnomeSettings>(new GnomeSettings(std::move(found), std::move(settings)));
}

std::unique_ptr<GnomeSettings> GnomeSettings::find(const char* schema, const QString& path) {
    auto found = findSchema(schema);
    if (!found || g_settings_schema_get_path(found.get()) != nullptr || !isPath(path)) {
        return nullptr;
    }
    GObjectPointer<GSettings> settings(
        g_settings_new_full(found.get(), nullptr, path.toUtf8().constData()));
    return std::unique_ptr<GnomeSettings>(new GnomeSettings(std::move(found), std::move(settings)));
}

std::vector<QByteArray> GnomeSettings::listKeys() const {
    std::vector<QByteArray> keys;
    const GTextList names(g_settings_schema_list_keys(m_schema.get()));
    for (gchar** name = names.get(); *name != nullptr; ++name) {
        const GVariantPointer value(g_settings_get_value(m_settings.get(), *name));
        if (g_variant_is_of_type(value.get(), G_VARIANT_TYPE_STRING_ARRAY) != FALSE) {
            keys.emplace_back(*name);
        }
    }
    return keys;
}

QStringList GnomeSettings::list(const char* key) const {
    QStringList texts;
    const GTextList values(g_settings_get_strv(m_settings.get(), key));
    for (gchar** value = values.get(); *value != nullptr; ++value) {
        texts += QString::fromUtf8(*value);
    }
    return texts;
}

QString GnomeSettings::text(const char* key) const {
    const GText value(g_settings_get_string(m_settings.get(), key));
    return QString::fromUtf8(value.get());
}

QString GnomeSettings::summary(const char* key) const {
    GSettingsSchemaKey* const schemaKey = g_settings_schema_get_key(m_schema.get(), key);
    QString summary = QString::fromUtf8(g_settings_schema_key_get_summary(schemaKey));
    g_settings_schema_key_unref(schemaKey);
    return summary;
}

bool GnomeSettings::isWritable(const char* key) const {
    return g_settings_is_writable(m_settings.get(), key) != FALSE;
}

void GnomeSettings::setList(const char* key, const QStringList& value) {
    std::vector<QByteArray> texts;
    texts.reserve(static_cast<std::size_t>(value.size()));
    for (const QString& text : value) {
        texts.push_back(text.toUtf8());
    }
    std::vector<const gchar*> pointers;
    pointers.reserve(texts.size() + 1);
    for (const QByteArray& text : texts) {
        pointers.push_back(text.constData());
    }
    pointers.push_back(nullptr);
    g_settings_set_strv(m_settings.get(), key, pointers.data());
}

void GnomeSettings::setText(const char* key, const QString& value) {
    if (text(key) != value) {
        g_settings_set_string(m_settings.get(), key, value.toUtf8().constData());
    }
}

void GnomeSettings::reset(const char* key) {
    g_settings_reset(m_settings.get(), key);
}

void GnomeSettings::observe(std::function<void()> onChange) {
    m_onChange = std::move(onChange);
    const auto changed = +[](GSettings* /*settings*/, gchar* /*key*/, gpointer self) {
        // A copy, since it may end this object.
        const auto handler = static_cast<GnomeSettings*>(self)->m_onChange;
        handler();
    };
    g_signal_connect(m_settings.get(), "changed", G_CALLBACK(changed), this);
}

} // namespace quorvantel::platform
