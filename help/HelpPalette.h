#pragma once

#include "help/HelpStyle.h"
#include "markdown/MarkdownStyle.h"

#include <QFont>
#include <QPalette>

namespace quorvantel::help {

/// The colours that standard controls of the help window draw with.
QPalette paletteFor(const HelpStyle& style);

/// How topics look, their text in `font`.
markdown::MarkdownStyle markdownStyleFor(const HelpStyle& style, const QFont& font);

/// The font at `factor` times its size.
QFont scaled(QFont font, double factor);

} // namespace quorvantel::help
