#include "markdown/OpenLists.h"

#include <algorithm>
#include <array>
#include <utility>

namespace quorvantel::markdown {

namespace {

constexpr int maximumIndent = 8;
/// The largest number of a list's item in the dialect.
constexpr int maximumItemNumber = 999'999'999;

} // namespace

void OpenLists::open(const Kind& kind) {
    m_lists.push_back({kind, kind.firstNumber, nullptr});
}

void OpenLists::close() {
    m_lists.pop_back();
}

void OpenLists::openItem(QTextBlockFormat::MarkerType box) {
    m_pendingBox = box;
}

void OpenLists::closeItem() {
    int& number = m_lists.back().number;
    number = std::min(number + 1, maximumItemNumber);
}

std::optional<OpenLists::Item> OpenLists::takePendingItem() {
    if (!m_pendingBox) {
        return std::nullopt;
    }
    const OpenList& list = m_lists.back();
    Item item{*m_pendingBox, list.kind.isOrdered, {}};
    m_pendingBox.reset();
    // The document's own lists all begin at one.
    if (item.isNumbered && list.kind.firstNumber != 1) {
        item.number = QString::number(list.number) + list.kind.numberSuffix + u'\u00A0' + u' ';
    }
    return item;
}

void OpenLists::join(QTextCursor& cursor, const QTextBlockFormat& format) {
    OpenList& open = m_lists.back();
    if (open.list != nullptr) {
        open.list->add(cursor.block());
    } else {
        open.list = createList(cursor, open.kind);
    }
    // Joining a list sets an indentation of the block's own.
    QTextBlockFormat joined = format;
    joined.setObjectIndex(open.list->objectIndex());
    cursor.setBlockFormat(joined);
}

QTextList* OpenLists::createList(QTextCursor& cursor, const Kind& kind) const {
    constexpr std::array bullets{QTextListFormat::ListDisc, QTextListFormat::ListCircle,
                                 QTextListFormat::ListSquare};
    const auto level = static_cast<std::size_t>(std::max(0, depth() - 1));
    QTextListFormat format;
    format.setStyle(kind.isOrdered ? QTextListFormat::ListDecimal
                                   : bullets[std::min(level, bullets.size() - 1)]);
    format.setNumberSuffix(kind.numberSuffix);
    format.setIndent(indent());
    return cursor.createList(format);
}

int OpenLists::indent() const {
    return std::min(depth(), maximumIndent);
}

std::size_t OpenLists::enterFrame() {
    return std::exchange(m_outsideFrame, m_lists.size());
}

} // namespace quorvantel::markdown
