#pragma once

#include <QByteArray>

#include <memory>

struct cmark_node;

namespace quorvantel::markdown {

/// The syntax tree of a Markdown text, by cmark-gfm with its table, strikethrough, task list and
/// autolink extensions. Main thread only, as the library registers its extensions without a lock.
class CmarkTree {
public:
    explicit CmarkTree(const QByteArray& text);

    /// The document's node, which the tree owns.
    cmark_node* root() const { return m_root.get(); }

private:
    struct FreeNode {
        void operator()(cmark_node* node) const;
    };

    std::unique_ptr<cmark_node, FreeNode> m_root;
};

} // namespace quorvantel::markdown
