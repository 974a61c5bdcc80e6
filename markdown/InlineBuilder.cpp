#include "markdown/InlineBuilder.h"

#include "markdown/NodeText.h"
#include "markdown/SafeAddress.h"
#include "markdown/TextRole.h"

#include <cmark-gfm.h>

namespace quorvantel::markdown {

InlineBuilder::InlineBuilder(TextWriter& text, DocumentImages& images)
    : m_text(text), m_images(images) {}

bool InlineBuilder::enter(cmark_node* node) {
    switch (cmark_node_get_type(node)) {
    case CMARK_NODE_TEXT:
    case CMARK_NODE_HTML_INLINE:
        m_text.insert(literalOf(node));
        return true;
    case CMARK_NODE_CODE:
        m_text.insert(literalOf(node), TextRole::code);
        return true;
    case CMARK_NODE_SOFTBREAK:
        m_text.insert(QStringLiteral(" "));
        return true;
    case CMARK_NODE_LINEBREAK:
        m_text.insert(QChar(QChar::LineSeparator));
        return true;
    case CMARK_NODE_EMPH:
        m_text.pushRole(TextRole::emphasis);
        return true;
    case CMARK_NODE_STRONG:
        m_text.pushRole(TextRole::strong);
        return true;
    case CMARK_NODE_LINK: {
        const QString address = safeAddress(cmark_node_get_url(node));
        m_text.setLink(address);
        m_text.pushRole(address.isEmpty() ? 0 : TextRole::link);
        return true;
    }
    case CMARK_NODE_IMAGE:
        addImage(node);
        return true;
    default:
        if (isKind(node, "strikethrough")) {
            m_text.pushRole(TextRole::strikethrough);
            return true;
        }
        return false;
    }
}

void InlineBuilder::exit(cmark_node* node) {
    const cmark_node_type type = cmark_node_get_type(node);
    if (type == CMARK_NODE_EMPH || type == CMARK_NODE_STRONG || type == CMARK_NODE_LINK ||
        isKind(node, "strikethrough")) {
        m_text.popRole();
    }
    if (type == CMARK_NODE_LINK) {
        m_text.setLink({});
    }
}

void InlineBuilder::addImage(cmark_node* node) {
    const QString source = QString::fromUtf8(cmark_node_get_url(node));
    const QString description = textOf(node);
    if (!m_images.load(source)) {
        m_text.insert(description, TextRole::missingImage);
        return;
    }
    QTextCharFormat format = m_text.format();
    format.setObjectType(DocumentImages::objectType);
    format.setProperty(DocumentImages::sourceProperty, source);
    format.setProperty(QTextFormat::ImageAltText, description);
    format.setToolTip(description);
    m_text.insertObject(format);
}

} // namespace quorvantel::markdown
