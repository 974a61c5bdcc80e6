#include "Fuzzing.h"
#include "markdown/MarkdownRenderer.h"

namespace {

using quorvantel::markdown::MarkdownStyle;

MarkdownStyle styleOfSize(int size) {
    MarkdownStyle style;
    style.font.setPixelSize(size);
    style.codeFont.setPixelSize(size);
    return style;
}

} // namespace

/// Renders any bytes, lays them out and restyles them; none of this may change the text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quorvantel::fuzzing;
    const auto document = quorvantel::markdown::renderMarkdown(
        bytesOf(data, size), QUrl(QStringLiteral("file:///nonexistent/")), styleOfSize(13));
    document->setTextWidth(300);
    require(document->size().isValid());
    const QString shown = document->toPlainText();
    quorvantel::markdown::restyleMarkdown(*document, styleOfSize(20));
    require(document->size().isValid());
    require(document->toPlainText() == shown);
    return 0;
}
