#include "markdown/InputGuard.h"

#include <algorithm>

namespace quorvantel::markdown {

namespace {

constexpr qsizetype maximumSize = qsizetype{64} * 1024;
constexpr qsizetype maximumRun = qsizetype{8} * 1024;
constexpr int maximumMarkers = 100;

bool isBlank(QByteArrayView line) {
    return std::all_of(line.begin(), line.end(), [](char c) { return c == ' ' || c == '\t'; });
}

/// Whether a character that containers begin with does so here, and is not part of a rule.
bool isMarker(QByteArrayView line, qsizetype i) {
    return line[i] == '>' || i + 1 == line.size() || line[i + 1] == ' ' || line[i + 1] == '\t';
}

bool isContinuationByte(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

/// Up to `limit` bytes of the text, without half a character at the end.
QByteArrayView prefix(QByteArrayView text, qsizetype limit) {
    if (text.size() <= limit) {
        return text;
    }
    qsizetype end = limit;
    while (end > limit - 4 && isContinuationByte(text[end])) {
        --end;
    }
    return text.first(end);
}

/// Copies a text line by line, within the bounds.
class Guard {
public:
    explicit Guard(QByteArrayView text) : m_rest(text) { m_result.reserve(text.size() + 64); }

    QByteArray run() {
        while (!m_rest.isEmpty()) {
            addLine(takeLine());
        }
        return std::move(m_result);
    }

private:
    static qsizetype lineLength(QByteArrayView text) {
        const auto isEnd = [](char c) { return c == '\n' || c == '\r'; };
        return std::find_if(text.begin(), text.end(), isEnd) - text.begin();
    }

    QByteArrayView takeLine() {
        const QByteArrayView line = m_rest.first(lineLength(m_rest));
        m_rest = m_rest.sliced(line.size());
        if (m_rest.startsWith("\r\n")) {
            m_rest = m_rest.sliced(2);
        } else if (!m_rest.isEmpty()) {
            m_rest = m_rest.sliced(1);
        }
        return line;
    }

    void addLine(QByteArrayView line) {
        const qsizetype start = m_result.size();
        QByteArrayView rest = line;
        while (rest.size() > maximumRun) {
            const QByteArrayView part = prefix(rest, maximumRun);
            addPart(part);
            m_result += '\n';
            rest = rest.sliced(part.size());
        }
        addPart(rest);
        m_run = isBlank(line) ? 0 : m_run + m_result.size() - start;
        if (m_run > maximumRun) {
            m_result += '\n';
            m_run = 0;
        }
    }

    /// Copies a line, or a part of one that is a line of its own from now on.
    void addPart(QByteArrayView part) {
        const qsizetype prefixLength = addContainers(part);
        m_result += part.sliced(prefixLength);
        m_result += '\n';
    }

    /// Copies the indentation and the markers that begin a line; answers how much of it that was.
    qsizetype addContainers(QByteArrayView line) {
        int markers = 0;
        for (qsizetype i = 0; i < line.size(); ++i) {
            const char c = line[i];
            if (QByteArrayView(">-+*.)").contains(c)) {
                if (isMarker(line, i) && ++markers > maximumMarkers) {
                    m_result += '\\';
                    return i;
                }
            } else if (!QByteArrayView(" \t0123456789").contains(c)) {
                return i;
            }
            m_result += c;
        }
        return line.size();
    }

    QByteArrayView m_rest;
    QByteArray m_result;
    /// Bytes since the last blank line.
    qsizetype m_run = 0;
};

} // namespace

GuardedInput guardInput(const QByteArray& text) {
    return {Guard(prefix(text, maximumSize)).run(), text.size() > maximumSize};
}

} // namespace quorvantel::markdown
