#include "search/SearchEngine.h"

#include "search/FrecencyStore.h"
#include "search/LearnedAbbreviationStore.h"

#include <QThread>

#include <algorithm>
#include <utility>

namespace quorvantel {

namespace {

constexpr double frecencyBoostFactor = 0.5;

/// Without spaces and tabs at both ends. Newlines stay, so QString::trimmed does not fit.
QStringView withoutOuterSpaces(QStringView text) {
    const auto isSpace = [](QChar unit) {
        return unit == u'\t' || unit.category() == QChar::Separator_Space;
    };
    const auto start = std::find_if_not(text.begin(), text.end(), isSpace);
    const auto end = std::find_if_not(text.rbegin(), std::make_reverse_iterator(start), isSpace);
    return {start, end.base()};
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
    return *m_targets;
}

void SearchEngine::setTargets(std::vector<LaunchTarget> targets) {
    assertOnOwnThread();
    const bool targetsDiffer = !std::equal(m_targets->begin(), m_targets->end(), targets.begin(),
                                           targets.end(), haveSameValues);
    if (targetsDiffer) {
        m_targets = std::make_shared<std::vector<LaunchTarget>>(std::move(targets));
        m_index = SearchKeyIndex(*m_targets);
        m_launchesRevision.reset();
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

const SearchResults& SearchEngine::results() const {
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
    std::vector<LaunchTarget> found;
    for (const std::uint32_t index : rank(query, now)) {
        found.push_back((*m_targets)[index]);
    }
    return found;
}

void SearchEngine::assertOnOwnThread() const {
    Q_ASSERT(QThread::currentThread() == thread());
}

/// Returns whether the results differ from the earlier ones.
bool SearchEngine::updateResults() {
    SearchResults found(m_targets, rank(m_query, m_now()));
    std::swap(m_results, found);
    return m_results != found;
}

/// The indices in the catalogue of what the query finds, best first.
std::vector<std::uint32_t> SearchEngine::rank(const QString& query, double now) const {
    const QStringView trimmed = withoutOuterSpaces(query);
    if (trimmed.isEmpty()) {
        return {};
    }
    m_matcher.setQuery(trimmed);
    m_index.find(m_matcher, m_candidates);
    addFrecency(now);
    addLearnedBoosts(query, now);
    m_sorter.sort(m_candidates);
    std::vector<std::uint32_t> order(m_candidates.size());
    std::ranges::transform(m_candidates, order.begin(), [this](const Candidate& candidate) {
        return m_index.targetAt(candidate.place);
    });
    return order;
}

/// The most launched candidate gains half of its score, the others in proportion.
void SearchEngine::addFrecency(double now) const {
    m_weights.clear();
    double largest = 0.0;
    auto candidate = m_candidates.cbegin();
    for (const Launch& launch : launchesByPlace()) {
        // Both are in the order of their places.
        candidate = std::find_if(candidate, m_candidates.cend(), [&](const Candidate& later) {
            return later.place >= launch.place;
        });
        if (candidate == m_candidates.cend()) {
            break;
        }
        if (candidate->place == launch.place) {
            const double weight = FrecencyStore::weight(launch.entry, now);
            m_weights.push_back(
                {static_cast<std::size_t>(candidate - m_candidates.cbegin()), weight});
            largest = std::max(largest, weight);
        }
    }
    if (largest <= 0.0) {
        return;
    }
    for (const Weight& one : m_weights) {
        m_candidates[one.candidate].score *= 1.0 + frecencyBoostFactor * one.weight / largest;
    }
}

/// Looked up again only after a launch: to find thousands of identifiers in a table takes longer
/// than to match their names.
const std::vector<SearchEngine::Launch>& SearchEngine::launchesByPlace() const {
    if (m_launchesRevision == m_frecency.revision()) {
        return m_launches;
    }
    m_launchesRevision = m_frecency.revision();
    m_launches.clear();
    const QHash<QString, FrecencyEntry>& entries = m_frecency.entries();
    for (std::uint32_t place = 0; place < m_index.size() && !entries.isEmpty(); ++place) {
        const auto known = entries.constFind(target(place).id());
        if (known != entries.cend()) {
            m_launches.push_back({place, *known});
        }
    }
    return m_launches;
}

void SearchEngine::addLearnedBoosts(const QString& query, double now) const {
    if (m_learned == nullptr) {
        return;
    }
    const LearnedAbbreviationStore::Boosts boosts = m_learned->boosts(query, now);
    if (boosts.isEmpty()) {
        return;
    }
    for (Candidate& candidate : m_candidates) {
        candidate.score += boosts[target(candidate.place).id()];
    }
}

const LaunchTarget& SearchEngine::target(std::uint32_t place) const {
    return (*m_targets)[m_index.targetAt(place)];
}

} // namespace quorvantel
