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
    return m_targets;
}

void SearchEngine::setTargets(std::vector<LaunchTarget> targets) {
    assertOnOwnThread();
    const bool targetsDiffer = !std::equal(m_targets.begin(), m_targets.end(), targets.begin(),
                                           targets.end(), haveSameValues);
    if (targetsDiffer) {
        m_targets = std::move(targets);
        m_index = SearchKeyIndex(m_targets);
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
    const QStringView trimmed = withoutOuterSpaces(query);
    if (trimmed.isEmpty()) {
        return {};
    }
    matchCatalogue(trimmed);
    addFrecency(now);
    addLearnedBoosts(query, now);
    m_sorter.sort(m_candidates);

    std::vector<LaunchTarget> found;
    found.reserve(m_candidates.size());
    for (const Candidate& candidate : m_candidates) {
        found.push_back(target(candidate));
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

void SearchEngine::matchCatalogue(QStringView query) const {
    m_candidates.clear();
    m_matcher.setQuery(query);
    for (std::uint32_t place = 0; place < m_index.size(); ++place) {
        if (const auto score = m_index.bestScore(place, m_matcher)) {
            m_candidates.push_back({*score, place});
        }
    }
}

/// The most launched candidate gains half of its score, the others in proportion.
void SearchEngine::addFrecency(double now) const {
    const std::vector<std::optional<FrecencyEntry>>& launches = launchesByPlace();
    m_weights.clear();
    double largest = 0.0;
    for (const Candidate& candidate : m_candidates) {
        const auto& launched = launches[candidate.place];
        m_weights.push_back(launched ? FrecencyStore::weight(*launched, now) : 0.0);
        largest = std::max(largest, m_weights.back());
    }
    if (largest <= 0.0) {
        return;
    }
    for (size_t i = 0; i < m_candidates.size(); ++i) {
        m_candidates[i].score *= 1.0 + frecencyBoostFactor * m_weights[i] / largest;
    }
}

/// Looked up again only after a launch: to find thousands of identifiers in a table takes longer
/// than to match their names.
const std::vector<std::optional<FrecencyEntry>>& SearchEngine::launchesByPlace() const {
    if (m_launchesRevision == m_frecency.revision()) {
        return m_launches;
    }
    m_launchesRevision = m_frecency.revision();
    m_launches.assign(m_index.size(), std::nullopt);
    const QHash<QString, FrecencyEntry>& entries = m_frecency.entries();
    for (std::uint32_t place = 0; place < m_index.size() && !entries.isEmpty(); ++place) {
        const auto known = entries.constFind(m_targets[m_index.targetAt(place)].id());
        if (known != entries.cend()) {
            m_launches[place] = *known;
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
        candidate.score += boosts[target(candidate).id()];
    }
}

const LaunchTarget& SearchEngine::target(const Candidate& candidate) const {
    return m_targets[m_index.targetAt(candidate.place)];
}

} // namespace quorvantel
