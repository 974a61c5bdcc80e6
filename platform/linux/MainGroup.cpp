#include "platform/linux/MainGroup.h"

#include <glib.h>

#include <algorithm>
#include <utility>

namespace quorvantel::platform {

namespace {

constexpr std::string_view head = "[" G_KEY_FILE_DESKTOP_GROUP "]";
constexpr std::size_t usualLineCount = 24;

/// The user's languages by name, with and without country and encoding, the best first.
std::vector<std::string_view> userLanguages() {
    std::vector<std::string_view> languages;
    for (const gchar* const* name = g_get_language_names(); *name != nullptr; ++name) {
        languages.emplace_back(*name);
    }
    return languages;
}

bool isSpace(char unit) {
    return g_ascii_isspace(unit) != FALSE;
}

std::string_view withoutLeadingSpaces(std::string_view text) {
    while (!text.empty() && isSpace(text.front())) {
        text.remove_prefix(1);
    }
    return text;
}

std::string_view withoutTrailingSpaces(std::string_view text) {
    while (!text.empty() && isSpace(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

/// The next line without what ends it and the spaces before it.
std::string_view takeLine(std::string_view& rest) {
    const std::size_t end = rest.find('\n');
    std::string_view line = rest.substr(0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    if (end != std::string_view::npos && line.ends_with('\r')) {
        line.remove_suffix(1);
    }
    return withoutLeadingSpaces(line);
}

bool isHead(std::string_view line) {
    return line.starts_with(head) && std::ranges::all_of(line.substr(head.size()), [](char unit) {
               return unit == ' ' || unit == '\t';
           });
}

bool isName(std::string_view key) {
    return !key.empty() && key.back() != ' ' && key.find(']') == std::string_view::npos;
}

} // namespace

MainGroup::MainGroup(QByteArray content) : m_content(std::move(content)) {
    const Languages languages = userLanguages();
    m_untranslated = languages.size();
    m_lines.reserve(usualLineCount);
    if (m_content.contains('\0')) {
        m_syntaxError = QStringLiteral("not a text");
        return;
    }
    read(languages);
}

void MainGroup::read(const Languages& languages) {
    bool isInGroup = false;
    std::string_view rest(m_content.constData(), static_cast<std::size_t>(m_content.size()));
    while (!rest.empty() && m_syntaxError.isEmpty()) {
        const std::string_view line = takeLine(rest);
        if (line.empty() || line.front() == '#') {
            continue;
        }
        if (isInGroup && line.front() == '[') {
            return;
        }
        if (!isInGroup && !isHead(line)) {
            break;
        }
        if (!std::exchange(isInGroup, true) || isForeign(line, languages)) {
            continue;
        }
        readKey(line, languages);
    }
    if (!isInGroup) {
        m_syntaxError = QStringLiteral("does not begin with \"[Desktop Entry]\"");
    }
}

/// Whether a line translates the key before it into another language. Most lines of a file do.
bool MainGroup::isForeign(std::string_view line, const Languages& languages) const {
    const std::string_view key = m_lines.empty() ? std::string_view() : m_lines.back().key;
    if (key.empty() || line.size() <= key.size() || line[key.size()] != '[' ||
        !line.starts_with(key)) {
        return false;
    }
    const std::string_view rest = line.substr(key.size() + 1);
    // The first letters alone tell most languages apart.
    return std::ranges::none_of(languages, [rest](std::string_view language) {
        return rest.starts_with(language.front()) && rest.starts_with(language) &&
               rest.substr(language.size()).starts_with(']');
    });
}

void MainGroup::readKey(std::string_view line, const Languages& languages) {
    const auto refuse = [this, line] {
        m_syntaxError =
            QStringLiteral("neither a key with a value nor a comment: ") +
            QString::fromUtf8(line.data(), static_cast<qsizetype>(std::min(line.size(), 80UL)));
    };
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) {
        refuse();
        return;
    }
    std::string_view key = withoutTrailingSpaces(line.substr(0, equals));
    std::size_t rank = m_untranslated;
    if (const std::size_t bracket = key.find('['); bracket != std::string_view::npos) {
        const std::size_t end = key.rfind(']');
        if (end == std::string_view::npos || end < bracket) {
            refuse();
            return;
        }
        const auto language =
            std::ranges::find(languages, key.substr(bracket + 1, end - bracket - 1));
        if (language == languages.end()) {
            return;
        }
        rank = static_cast<std::size_t>(language - languages.begin());
        key = key.substr(0, end + 1 == key.size() ? bracket : 0);
    }
    if (!isName(key)) {
        refuse();
        return;
    }
    const std::string_view value = withoutLeadingSpaces(line.substr(equals + 1));
    if (key == "Encoding" && rank == m_untranslated &&
        QLatin1StringView(value.data(), static_cast<qsizetype>(value.size()))
                .compare(QLatin1StringView("UTF-8"), Qt::CaseInsensitive) != 0) {
        m_syntaxError = QStringLiteral("not in UTF-8");
        return;
    }
    m_lines.push_back({key, value, rank});
}

std::optional<std::string_view> MainGroup::value(std::string_view key) const {
    // Of several lines the last one holds.
    const auto found =
        std::find_if(m_lines.rbegin(), m_lines.rend(), [this, key](const Line& line) {
            return line.rank == m_untranslated && line.key == key;
        });
    return found == m_lines.rend() ? std::nullopt : std::optional(found->value);
}

std::optional<std::string_view> MainGroup::localizedValue(std::string_view key) const {
    const Line* best = nullptr;
    bool isThere = false;
    for (const Line& line : m_lines) {
        if (line.key == key) {
            isThere = isThere || line.rank == m_untranslated;
            best = best == nullptr || line.rank <= best->rank ? &line : best;
        }
    }
    // An entry translates only what it has in no particular language as well.
    return isThere ? std::optional(best->value) : std::nullopt;
}

} // namespace quorvantel::platform
