#include "text/TextFolding.h"

#include "text/Ascii.h"

#include <QList>
#include <QString>

#include <algorithm>
#include <array>

namespace quorvantel {

namespace {

struct Expansion {
    char32_t scalar;
    std::u32string_view folded;
};

// The case foldings to more than one scalar (status F of the Unicode Character Database's
// CaseFolding.txt) that decomposition and the removal of marks leave over; Qt folds one to one.
constexpr std::array<Expansion, 17> expansions{{
    {U'\u00DF', U"ss"},
    {U'\u0149', U"\u02BCn"},
    {U'\u0587', U"\u0565\u0582"},
    {U'\u1E9A', U"a\u02BE"},
    {U'\u1E9E', U"ss"},
    {U'\uFB00', U"ff"},
    {U'\uFB01', U"fi"},
    {U'\uFB02', U"fl"},
    {U'\uFB03', U"ffi"},
    {U'\uFB04', U"ffl"},
    {U'\uFB05', U"st"},
    {U'\uFB06', U"st"},
    {U'\uFB13', U"\u0574\u0576"},
    {U'\uFB14', U"\u0574\u0565"},
    {U'\uFB15', U"\u0574\u056B"},
    {U'\uFB16', U"\u057E\u0576"},
    {U'\uFB17', U"\u0574\u056D"},
}};

void appendCaseFolded(char32_t scalar, std::u32string& folded) {
    const auto* const expansion = std::lower_bound(
        expansions.begin(), expansions.end(), scalar,
        [](const Expansion& entry, char32_t wanted) { return entry.scalar < wanted; });
    if (expansion != expansions.end() && expansion->scalar == scalar) {
        folded += expansion->folded;
    } else {
        folded += QChar::toCaseFolded(scalar);
    }
}

std::u32string caseFolded(const std::u32string& scalars) {
    std::u32string folded;
    folded.reserve(scalars.size());
    for (const char32_t scalar : scalars) {
        appendCaseFolded(scalar, folded);
    }
    return folded;
}

std::u32string decomposedWithoutMarks(const QString& text) {
    std::u32string scalars = unicodeScalars(text.normalized(QString::NormalizationForm_D));
    std::erase_if(
        scalars, [](char32_t scalar) { return QChar::category(scalar) == QChar::Mark_NonSpacing; });
    return scalars;
}

QString textOf(const std::u32string& scalars) {
    // QString::fromStdU32String would swallow a leading U+FEFF as a byte order mark.
    QString text;
    for (const char32_t scalar : scalars) {
        text += QChar::fromUcs4(scalar);
    }
    return text;
}

} // namespace

std::u32string unicodeScalars(QStringView text) {
    const QList<uint> scalars = text.toUcs4();
    return {scalars.begin(), scalars.end()};
}

std::u32string foldedScalars(QStringView text) {
    std::u32string folded;
    foldScalars(text, folded);
    return folded;
}

void foldScalars(QStringView text, std::u32string& folded) {
    if (isAscii(text)) {
        folded.resize(static_cast<std::size_t>(text.size()));
        std::transform(text.begin(), text.end(), folded.begin(),
                       [](QChar unit) { return asciiLowercase(unit.unicode()); });
        return;
    }
    // Marks go first: some, such as the Greek iota subscript, fold to letters.
    const std::u32string unmarked = caseFolded(decomposedWithoutMarks(text.toString()));
    folded = unicodeScalars(textOf(unmarked).normalized(QString::NormalizationForm_C));
}

} // namespace quorvantel
