#include "markdown/InputGuard.h"

#include <algorithm>

namespace quorvantel::markdown {

namespace {

constexpr qsizetype maximumSize = qsizetype{512} * 1024;
constexpr qsizetype maximumLine = qsizetype{8} * 1024;
constexpr qsizetype maximumRun = qsizetype{64} * 1024;
constexpr int maximumMarkers = 100;
constexpr int maximumIndent = 400;
constexpr qsizetype maximumCells = 20'000;
constexpr int tabWidth = 4;

bool isBlank(QByteArrayView line) {
    return std::all_of(line.begin(), line.end(), [](char c) { return c == ' ' || c == '\t'; });
}

/// A line that, behind the markers of containers, may be the delimiter row of a table.
bool mayDelimitTable(QByteArrayView line) {
    return line.contains('-') && std::all_of(line.begin(), line.end(), [](char c) {
               return QByteArrayView("|:-+*>.) \t\v\f0123456789").contains(c);
           });
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
        // Below zero, once the blank line itself is taken.
        m_linesToBlank = std::max<qsizetype>(m_linesToBlank - 1, -1);
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
        while (rest.size() > maximumLine) {
            const QByteArrayView part = prefix(rest, maximumLine);
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
        if (mayDelimitTable(part) && cellsBelow(part) > maximumCells) {
            m_result += '\\';
        }
        m_result += part.sliced(prefixLength);
        m_result += '\n';
    }

    /// Copies the indentation and the markers that begin a line; answers how much of it that was.
    qsizetype addContainers(QByteArrayView line) {
        int markers = 0;
        int columns = 0;
        qsizetype i = 0;
        for (; i < line.size(); ++i) {
            const char c = line[i];
            if (c == ' ' || c == '\t') {
                columns += c == '\t' ? tabWidth : 1;
                if (columns > maximumIndent) {
                    continue;
                }
            } else if (QByteArrayView(">-+*.)").contains(c)) {
                if (isMarker(line, i) && ++markers > maximumMarkers) {
                    m_result += '\\';
                    return i;
                }
            } else if (c < '0' || c > '9') {
                return i;
            }
            m_result += c;
        }
        return i;
    }

    /// How many cells a table has whose delimiter row is `line`, at most.
    qsizetype cellsBelow(QByteArrayView line) {
        const qsizetype columns = std::count(line.begin(), line.end(), '|') + 1;
        if (m_linesToBlank < 0) {
            countLinesToBlank();
        }
        return (m_linesToBlank + 1) * columns;
    }

    /// Looks ahead once for each run of lines, so that many delimiter rows cost no more than one.
    void countLinesToBlank() {
        m_linesToBlank = 0;
        QByteArrayView below = m_rest;
        while (!below.isEmpty() && !isBlank(below.first(lineLength(below)))) {
            ++m_linesToBlank;
            below = below.sliced(std::min(lineLength(below) + 1, below.size()));
        }
    }

    QByteArrayView m_rest;
    QByteArray m_result;
    /// Bytes since the last blank line.
    qsizetype m_run = 0;
    /// How many lines of the rest come before the next blank one; negative while not counted.
    qsizetype m_linesToBlank = -1;
};

} // namespace

GuardedInput guardInput(const QByteArray& text) {
    return {Guard(prefix(text, maximumSize)).run(), text.size() > maximumSize};
}

} // namespace quorvantel::markdown
