#pragma once

#include <QByteArray>
#include <QString>

#include <optional>
#include <string_view>
#include <vector>

namespace quorvantel::platform {

/// The first group of a desktop file as its lines (Desktop Entry Specification), without the
/// translations into other languages than the user's.
///
/// GLib reads such files as well, but takes a dozen allocations for each key of dozens that a
/// launcher does not ask for. Every file is read anew whenever the panel is shown, and here nothing
/// is copied before it is asked for. What GLib reads is read, and is the same; what it refuses is
/// refused, unless it is a translation that does not matter.
class MainGroup {
public:
    /// `content` is that of the whole file.
    explicit MainGroup(QByteArray content);

    /// What is wrong with the syntax, in words for a log line; empty when nothing is.
    const QString& syntaxError() const { return m_syntaxError; }

    /// What stands behind a key in no particular language; absent when the group lacks the key. As
    /// long-lived as this object.
    std::optional<std::string_view> value(std::string_view key) const;

    /// Behind the translation of a key into the first of the user's languages (LANGUAGE, LC_ALL,
    /// LC_MESSAGES, LANG) that it has one for, else behind the key itself.
    std::optional<std::string_view> localizedValue(std::string_view key) const;

private:
    using Languages = std::vector<std::string_view>;

    struct Line {
        std::string_view key;
        std::string_view value;
        /// The place of the language among the user's, after them for none.
        std::size_t rank;
    };

    void read(const Languages& languages);
    bool isForeign(std::string_view line, const Languages& languages) const;
    void readKey(std::string_view line, const Languages& languages);

    QByteArray m_content;
    std::vector<Line> m_lines;
    std::size_t m_untranslated = 0;
    QString m_syntaxError;
};

} // namespace quorvantel::platform
