#pragma once

#include "markdown/MarkdownStyle.h"

#include <QByteArray>
#include <QString>
#include <QTextBlock>
#include <QTextDocument>
#include <QUrl>

#include <memory>
#include <optional>

namespace quorvantel::testing {

/// A style of whose values no two are equal.
markdown::MarkdownStyle lightStyle();

/// Differs from `lightStyle` in every value.
markdown::MarkdownStyle darkStyle();

std::unique_ptr<QTextDocument> rendered(const QByteArray& text, const QUrl& baseUrl = {});

/// The format of the last character of the text where it first occurs; absent when it does not.
std::optional<QTextCharFormat> formatOf(const QTextDocument& document, const char* text);

/// The block that has the text in it; invalid when none has.
QTextBlock blockOf(const QTextDocument& document, const char* text);

/// What a document shows, a line for each block with text: ">" for each quotation around it, "|"
/// and the alignment for a table's cell, "`" for code, then its indentation in levels of two
/// spaces, its marker or "#" for each level of a heading, and its text. "⏎" stands for a break in
/// it.
QStringList outline(const QTextDocument& document);

/// All formats and texts of a document, a line for each run of characters.
QStringList description(const QTextDocument& document);

} // namespace quorvantel::testing
