#include "help/HelpPalette.h"

#include <QFontDatabase>

namespace quorvantel::help {

namespace {

constexpr double topicMargin = 28;
/// Monospaced faces look larger than proportional ones of the same size.
constexpr double codeScale = 0.93;

} // namespace

QPalette paletteFor(const HelpStyle& style) {
    QPalette palette;
    palette.setColor(QPalette::Window, style.background);
    palette.setColor(QPalette::Base, style.background);
    palette.setColor(QPalette::AlternateBase, style.tintedBackground);
    palette.setColor(QPalette::Button, style.fieldBackground);
    palette.setColor(QPalette::ToolTipBase, style.fieldBackground);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                            QPalette::ToolTipText, QPalette::BrightText}) {
        palette.setColor(role, style.text);
    }
    QColor disabled = style.secondaryText;
    disabled.setAlphaF(0.6F);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, disabled);
    }
    // Styles draw it below disabled text, slightly moved.
    palette.setColor(QPalette::Disabled, QPalette::Light, Qt::transparent);
    palette.setColor(QPalette::PlaceholderText, style.secondaryText);
    palette.setColor(QPalette::Highlight, style.accent);
    palette.setColor(QPalette::HighlightedText, style.selectedText);
    palette.setColor(QPalette::Link, style.accent);
    palette.setColor(QPalette::LinkVisited, style.accent);
    palette.setColor(QPalette::Mid, style.separator);
    palette.setColor(QPalette::Dark, style.separator);
    return palette;
}

markdown::MarkdownStyle markdownStyleFor(const HelpStyle& style, const QFont& font) {
    QFont codeFont = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    if (font.pixelSize() > 0) {
        codeFont.setPixelSize(font.pixelSize());
    } else {
        codeFont.setPointSizeF(font.pointSizeF());
    }
    return {font,
            scaled(codeFont, codeScale),
            style.text,
            style.secondaryText,
            style.accent,
            style.separator,
            style.tintedBackground,
            topicMargin};
}

QFont scaled(QFont font, double factor) {
    if (font.pixelSize() > 0) {
        font.setPixelSize(std::max(1, qRound(font.pixelSize() * factor)));
    } else {
        font.setPointSizeF(std::max(1.0, font.pointSizeF() * factor));
    }
    return font;
}

} // namespace quorvantel::help
