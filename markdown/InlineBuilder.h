#pragma once

#include "markdown/DocumentImages.h"
#include "markdown/TextWriter.h"

struct cmark_node;

namespace quorvantel::markdown {

/// Writes what is within a block: text, styles, links and images.
class InlineBuilder {
public:
    /// Both must outlive the builder.
    InlineBuilder(TextWriter& text, DocumentImages& images);

    /// Whether the node is within a block, and so was written or entered.
    bool enter(cmark_node* node);
    void exit(cmark_node* node);

private:
    void addImage(cmark_node* node);

    TextWriter& m_text;
    DocumentImages& m_images;
};

} // namespace quorvantel::markdown
