#pragma once

#include <QStringView>

#include <string>

/// How texts are compared in a search: without regard to case and diacritics, in no particular
/// language.
namespace quorvantel {

/// The Unicode scalars of a text. Each lone surrogate becomes U+FFFD.
std::u32string unicodeScalars(QStringView text);

/// The scalars of a text after full case folding (Unicode Standard, section 3.13) and without its
/// non-spacing marks (general category Mn), in composed form (NFC).
///
/// "é" becomes "e" however it was written, "ß" becomes "ss" and "İ" becomes "i"; a Hangul syllable
/// stays one scalar. The result may be shorter or longer than the text, and is empty for a text of
/// nothing but marks.
std::u32string foldedScalars(QStringView text);

/// The same, in the memory of an earlier one.
void foldScalars(QStringView text, std::u32string& folded);

} // namespace quorvantel
