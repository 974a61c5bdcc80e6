#include "markdown/MarkdownRenderer.h"

#include <QGuiApplication>

#include <cstdint>
#include <cstdlib>

namespace {

using quorvantel::markdown::MarkdownStyle;

MarkdownStyle styleOfSize(int size) {
    MarkdownStyle style;
    style.font.setPixelSize(size);
    style.codeFont.setPixelSize(size);
    return style;
}

void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

} // namespace

/// What Qt's look-up of fonts leaves allocated in fontconfig is not this program's to free.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig";
}

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static const QGuiApplication application(*argc, *argv);
    return 0;
}

/// Renders any bytes, lays them out and restyles them; none of this may change the text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray text(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const auto document = quorvantel::markdown::renderMarkdown(
        text, QUrl(QStringLiteral("file:///nonexistent/")), styleOfSize(13));
    document->setTextWidth(300);
    require(document->size().isValid());
    const QString shown = document->toPlainText();
    quorvantel::markdown::restyleMarkdown(*document, styleOfSize(20));
    require(document->size().isValid());
    require(document->toPlainText() == shown);
    return 0;
}
