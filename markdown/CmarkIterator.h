#pragma once

#include <cmark-gfm.h>

#include <memory>

namespace quorvantel::markdown {

struct FreeCmarkIterator {
    void operator()(cmark_iter* iterator) const { cmark_iter_free(iterator); }
};

/// A walk through a node and all below it, which enters and leaves each. The tree must outlive it.
using CmarkIterator = std::unique_ptr<cmark_iter, FreeCmarkIterator>;

} // namespace quorvantel::markdown
