#include "search/ReferenceScorer.h"

#include <QList>

#include <cfloat>
#include <cmath>

namespace quorvantel::testing {

namespace {

using Matrix = std::vector<std::vector<double>>;

constexpr double impossible = -DBL_MAX;

QList<uint> folded(const QString& text) {
    QString kept;
    for (const uint scalar : text.normalized(QString::NormalizationForm_D).toUcs4()) {
        if (QChar::category(scalar) != QChar::Mark_NonSpacing) {
            kept += QChar::fromUcs4(scalar);
        }
    }
    QString lower = kept.toCaseFolded();
    lower.replace(u'ß', QStringLiteral("ss"));
    lower.replace(u'ﬁ', QStringLiteral("fi"));
    lower.replace(u'ŉ', QStringLiteral("ʼn"));
    return lower.normalized(QString::NormalizationForm_C).toUcs4();
}

double bonus(const QList<uint>& original, int k) {
    if (k >= original.size()) {
        return 0.0;
    }
    if (k == 0) {
        return 0.9;
    }
    const uint p = original[k - 1];
    if (p == U' ' || p == U'-' || p == U'_') {
        return 0.8;
    }
    if (p == U'.') {
        return 0.6;
    }
    if (p == U'/') {
        return 0.9;
    }
    const bool pIsLowercase = QChar::isLower(p) || p == U'ⓐ' || p == U'ⅰ' || p == U'ª';
    const bool isUppercase =
        QChar::isUpper(original[k]) || original[k] == U'Ⓑ' || original[k] == U'Ⅱ';
    return pIsLowercase && isUppercase ? 0.7 : 0.0;
}

bool isSubsequence(const QList<uint>& query, const QList<uint>& key) {
    int found = 0;
    for (const uint scalar : key) {
        if (found < query.size() && query[found] == scalar) {
            ++found;
        }
    }
    return found == query.size();
}

} // namespace

std::optional<FuzzyMatch> referenceMatch(const QString& query, const QString& key) {
    if (query.isEmpty()) {
        return FuzzyMatch{0.0, {}};
    }
    const QList<uint> Q = folded(query);
    const QList<uint> T = folded(key);
    const QList<uint> O = key.toUcs4();
    const int n = int(Q.size());
    const int m = int(T.size());
    if (n > m || !isSubsequence(Q, T)) {
        return std::nullopt;
    }
    Matrix M(size_t(n) + 1, std::vector<double>(size_t(m) + 1, impossible));
    Matrix D = M;
    const auto at = [](Matrix& matrix, int i, int j) -> double& {
        return matrix[size_t(i)][size_t(j)];
    };
    for (int j = 0; j <= m; ++j) {
        at(D, 0, j) = -0.005 * j;
    }
    for (int i = 1; i <= n; ++i) {
        for (int j = i; j <= m; ++j) {
            if (Q[i - 1] == T[j - 1]) {
                const double b = bonus(O, j - 1);
                double run = impossible;
                if (i >= 2 && j >= 2 && at(M, i - 1, j - 1) > impossible) {
                    run = at(M, i - 1, j - 1) + 1.0 + b;
                }
                double fresh = impossible;
                if (at(D, i - 1, j - 1) > impossible) {
                    fresh = at(D, i - 1, j - 1) + b;
                }
                at(M, i, j) = run > fresh ? run : fresh;
            }
            double gap = impossible;
            if (at(D, i, j - 1) > impossible) {
                const bool halfPrice = i == n && at(M, n, j - 1) > impossible;
                gap = at(D, i, j - 1) - (halfPrice ? 0.005 : 0.01);
            }
            at(D, i, j) = at(M, i, j) > gap ? at(M, i, j) : gap;
        }
    }
    if (!(at(D, n, m) > impossible)) {
        return std::nullopt;
    }
    FuzzyMatch match{at(D, n, m), std::vector<int>(size_t(n))};
    int j = m;
    for (int i = n; i >= 1; --i) {
        for (; j >= i; --j) {
            if (at(M, i, j) > impossible && std::fabs(at(D, i, j) - at(M, i, j)) < 1e-9) {
                match.positions[size_t(i) - 1] = j - 1;
                --j;
                break;
            }
        }
    }
    return match;
}

const QStringList& nastyLetters() {
    static const QStringList letters =
        QStringLiteral("a|a|b|s|S|A|B|f|i|n| |-|_|.|/|é|É|e\u0301|\u0308|ß|ẞ|ﬁ|ŉ|İ|ı|ς|Σ|ᾳ|𐐀|"
                       "각|가|\u1100\u1161|が|😀|👩\u200D💻|ⓐ|Ⓑ|ⅰ|Ⅱ|ª")
            .split(u'|')
        << QString(QChar(0xD83D)) << QString(QChar(0xDE00));
    return letters;
}

} // namespace quorvantel::testing
