#include "markdown/TextWriter.h"

#include "markdown/TextRole.h"

namespace quorvantel::markdown {

TextWriter::TextWriter(QTextDocument& document, const DocumentStyler& styler)
    : m_styler(styler), m_cursor(&document) {}

void TextWriter::reset(int role) {
    m_roles = {role};
    m_link.clear();
    m_headingLevel = 0;
}

void TextWriter::insert(const QString& text, int extraRole) {
    if (!text.isEmpty()) {
        m_cursor.insertText(text, format(extraRole));
    }
}

void TextWriter::insertObject(const QTextCharFormat& format) {
    m_cursor.insertText(QChar(QChar::ObjectReplacementCharacter), format);
}

const QTextCharFormat& TextWriter::format(int extraRole) {
    const int role = m_roles.back() | extraRole;
    const auto key = std::tuple(role, m_headingLevel, m_link);
    if (key == m_formatKey) {
        return m_format;
    }
    m_formatKey = key;
    m_format = {};
    m_format.setProperty(TextRole::property, role);
    if (!m_link.isEmpty()) {
        m_format.setAnchor(true);
        m_format.setAnchorHref(m_link);
    }
    m_styler.style(m_format, m_headingLevel);
    return m_format;
}

} // namespace quorvantel::markdown
