#include "search/SearchEngine.h"

#include "search/FrecencyStore.h"
#include "search/LearnedAbbreviationStore.h"
#include "search/QueryMatcher.h"

#include <QThread>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace quorvantel {

namespace {

constexpr double frecencyBoostFactor = 0.5;

/// Without spaces and tabs at both ends. Newlines stay, so QString::trimmed does not fit.
QString withoutOuterSpaces(const QString& text) {
    const auto isSpace = [](QChar unit) {
        return unit == u'\t' || unit.category() == QChar::Separator_Space;
    };
    const auto start = std::find_if_not(text.begin(), text.end(), isSpace);
    const auto end = std::find_if_not(text.rbegin(), std::make_reverse_iterator(start), isSpace);
    return QStringView(start, end.base()).toString();
}

bool haveSameKind(const LaunchTarget& left, const LaunchTarget& right) {
    const auto* const app = std::get_if<LaunchTarget::App>(&left.kind());
    const auto* const otherApp = std::get_if<LaunchTarget::App>(&right.kind());
    if (app != nullptr && otherApp != nullptr) {
        return app->bundleUrl == otherApp->bundleUrl &&
               app->bundleIdentifier == otherApp->bundleIdentifier;
    }
    const auto* const pane = std::get_if<LaunchTarget::SettingsPane>(&left.kind());
    const auto* const otherPane = std::get_if<LaunchTarget::SettingsPane>(&right.kind());
    return pane != nullptr && otherPane != nullptr && pane->url == otherPane->url;
}

/// Equality of targets looks at the identifier alone; a new catalogue may bring new names.
bool haveSameValues(const LaunchTarget& left, const LaunchTarget& right) {
    return left == right && left.displayName() == right.displayName() &&
           left.searchKeys() == right.searchKeys() && left.icon() == right.icon() &&
           haveSameKind(left, right);
}

} // namespace

SearchEngine::SearchEngine(const FrecencyStore& frecency, const LearnedAbbreviationStore* learned,
                           Clock now, QObject* parent)
    : QObject(parent), m_frecency(frecency), m_learned(learned), m_now(std::move(now)) {}

const std::vector<LaunchTarget>& SearchEngine::targets() const {
    assertOnOwnThread();
    return m_targets;
}

void SearchEngine::setTargets(std::vector<LaunchTarget> targets) {
    assertOnOwnThread();
    const bool targetsDiffer = !std::equal(m_targets.begin(), m_targets.end(), targets.begin(),
                                           targets.end(), haveSameValues);
    if (targetsDiffer) {
        m_targets = std::move(targets);
        m_index = SearchKeyIndex(m_targets);
    }
    const bool resultsDiffer = updateResults();
    if (targetsDiffer) {
        Q_EMIT targetsChanged();
    }
    if (resultsDiffer) {
        Q_EMIT resultsChanged();
    }
}

const QString& SearchEngine::query() const {
    assertOnOwnThread();
    return m_query;
}

void SearchEngine::setQuery(const QString& query) {
    assertOnOwnThread();
    const bool queryDiffers = m_query != query;
    m_query = query;
    const bool resultsDiffer = updateResults();
    if (queryDiffers) {
        Q_EMIT queryChanged();
    }
    if (resultsDiffer) {
        Q_EMIT resultsChanged();
    }
}

const std::vector<LaunchTarget>& SearchEngine::results() const {
    assertOnOwnThread();
    return m_results;
}

qint64 SearchEngine::resetToken() const {
    assertOnOwnThread();
    return m_resetToken;
}

void SearchEngine::reset() {
    if (!query().isEmpty()) {
        setQuery({});
    }
    ++m_resetToken;
    Q_EMIT resetTokenChanged();
}

std::vector<LaunchTarget> SearchEngine::search(const QString& query, double now) const {
    assertOnOwnThread();
    const QString trimmed = withoutOuterSpaces(query);
    if (trimmed.isEmpty()) {
        return {};
    }
    std::vector<Candidate> candidates = matchCatalogue(trimmed);
    addFrecency(candidates, now);
    addLearnedBoosts(candidates, query, now);
    sort(candidates);

    std::vector<LaunchTarget> found;
    found.reserve(candidates.size());
    for (const Candidate& candidate : candidates) {
        found.push_back(m_targets[candidate.target]);
    }
    return found;
}

void SearchEngine::assertOnOwnThread() const {
    Q_ASSERT(QThread::currentThread() == thread());
}

/// Returns whether the results differ from the earlier ones.
bool SearchEngine::updateResults() {
    std::vector<LaunchTarget> found = search(m_query, m_now());
    m_results.swap(found);
    return m_results != found;
}

std::vector<SearchEngine::Candidate> SearchEngine::matchCatalogue(const QString& query) const {
    std::vector<Candidate> candidates;
    QueryMatcher matcher(query);
    for (std::uint32_t target = 0; target < m_index.targetCount(); ++target) {
        if (const auto score = m_index.bestScore(target, matcher)) {
            candidates.push_back({target, *score});
        }
    }
    return candidates;
}

/// The most launched candidate gains half of its score, the others in proportion.
void SearchEngine::addFrecency(std::vector<Candidate>& candidates, double now) const {
    std::vector<double> weights;
    weights.reserve(candidates.size());
    double largest = 0.0;
    for (const Candidate& candidate : candidates) {
        weights.push_back(m_frecency.weight(m_targets[candidate.target].id(), now));
        largest = std::max(largest, weights.back());
    }
    if (largest <= 0.0) {
        return;
    }
    for (size_t i = 0; i < candidates.size(); ++i) {
        candidates[i].score *= 1.0 + frecencyBoostFactor * weights[i] / largest;
    }
}

void SearchEngine::addLearnedBoosts(std::vector<Candidate>& candidates, const QString& query,
                                    double now) const {
    if (m_learned == nullptr) {
        return;
    }
    const LearnedAbbreviationStore::Boosts boosts = m_learned->boosts(query, now);
    for (Candidate& candidate : candidates) {
        candidate.score += boosts[m_targets[candidate.target].id()];
    }
}

void SearchEngine::sort(std::vector<Candidate>& candidates) const {
    // Absurd numbers in a store's file can make a score that is not a number. It comes last, for
    // it has no order of its own, which sorting relies on.
    for (Candidate& candidate : candidates) {
        if (std::isnan(candidate.score)) {
            candidate.score = -std::numeric_limits<double>::infinity();
        }
    }
    const auto place = [this](const Candidate& candidate) {
        return std::pair(m_index.nameRank(candidate.target), candidate.target);
    };
    std::ranges::sort(candidates, [&place](const Candidate& left, const Candidate& right) {
        return left.score != right.score ? left.score > right.score : place(left) < place(right);
    });
}

} // namespace quorvantel
