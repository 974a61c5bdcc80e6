#include "markdown/CmarkTree.h"

#include <QByteArrayList>

#include <cmark-gfm-core-extensions.h>
#include <cmark-gfm.h>

#include <algorithm>

namespace quorvantel::markdown {

namespace {

/// More than anyone can read beside each other.
constexpr int maximumColumns = 64;

struct FreeParser {
    void operator()(cmark_parser* parser) const { cmark_parser_free(parser); }
};

/// Whether some line could be the head of a table so wide that its rows would fill the memory, for
/// which one character each is enough.
bool hasEndlessTable(const QByteArray& text) {
    return std::ranges::any_of(
        text.split('\n'), [](const QByteArray& line) { return line.count('|') > maximumColumns; });
}

} // namespace

void CmarkTree::FreeNode::operator()(cmark_node* node) const {
    cmark_node_free(node);
}

CmarkTree::CmarkTree(const QByteArray& text) {
    cmark_gfm_core_extensions_ensure_registered();
    const std::unique_ptr<cmark_parser, FreeParser> parser(
        cmark_parser_new(CMARK_OPT_VALIDATE_UTF8));
    const auto attach = [&parser](const char* name) {
        cmark_parser_attach_syntax_extension(parser.get(), cmark_find_syntax_extension(name));
    };
    if (!hasEndlessTable(text)) {
        attach("table");
    }
    for (const char* const name : {"strikethrough", "autolink", "tasklist"}) {
        attach(name);
    }
    cmark_parser_feed(parser.get(), text.constData(), static_cast<size_t>(text.size()));
    m_root.reset(cmark_parser_finish(parser.get()));
}

} // namespace quorvantel::markdown
