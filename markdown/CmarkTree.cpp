#include "markdown/CmarkTree.h"

#include <cmark-gfm-core-extensions.h>
#include <cmark-gfm.h>

namespace quorvantel::markdown {

namespace {

struct FreeParser {
    void operator()(cmark_parser* parser) const { cmark_parser_free(parser); }
};

} // namespace

void CmarkTree::FreeNode::operator()(cmark_node* node) const {
    cmark_node_free(node);
}

CmarkTree::CmarkTree(const QByteArray& text) {
    cmark_gfm_core_extensions_ensure_registered();
    const std::unique_ptr<cmark_parser, FreeParser> parser(
        cmark_parser_new(CMARK_OPT_VALIDATE_UTF8));
    for (const char* const name : {"table", "strikethrough", "autolink", "tasklist"}) {
        cmark_parser_attach_syntax_extension(parser.get(), cmark_find_syntax_extension(name));
    }
    cmark_parser_feed(parser.get(), text.constData(), static_cast<size_t>(text.size()));
    m_root.reset(cmark_parser_finish(parser.get()));
}

} // namespace quorvantel::markdown
