#include "help/HelpBrowser.h"

#include "help/HelpPalette.h"
#include "markdown/MarkdownRenderer.h"

#include <QApplication>
#include <QBoxLayout>
#include <QEvent>
#include <QScrollBar>
#include <QShortcut>

#include <algorithm>
#include <cmath>
#include <utility>

namespace quorvantel::help {

namespace {

constexpr int sidebarWidth = 264;
constexpr int narrowestSidebar = 200;
constexpr double zoomStep = 1.1;
constexpr double smallestZoom = 0.6;
constexpr double largestZoom = 3;

bool opensElsewhere(const QUrl& link) {
    const QString scheme = link.scheme();
    return scheme == QStringLiteral("http") || scheme == QStringLiteral("https") ||
           scheme == QStringLiteral("mailto");
}

} // namespace

HelpBrowser::HelpBrowser(HelpContent content, HelpBundle bundle, const HelpStyle& style,
                         QWidget* parent)
    : QWidget(parent),
      m_content(std::move(content)),
      m_bundle(std::move(bundle)),
      m_splitter(new QSplitter(Qt::Horizontal, this)),
      m_sidebar(new TopicSidebar(m_content)),
      m_view(new TopicView) {
    layOut();
    connectParts();
    addShortcuts();
    setStyle(style);
    visit({});
    m_sidebar->focusSearch();
}

void HelpBrowser::layOut() {
    m_sidebar->setMinimumWidth(narrowestSidebar);
    m_splitter->addWidget(m_sidebar);
    m_splitter->addWidget(m_view);
    m_splitter->setChildrenCollapsible(false);
    m_splitter->setHandleWidth(1);
    m_splitter->setStretchFactor(0, 0);
    m_splitter->setStretchFactor(1, 1);
    m_splitter->setSizes({sidebarWidth, window()->width() - sidebarWidth});
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_splitter);
}

void HelpBrowser::connectParts() {
    connect(m_sidebar, &TopicSidebar::queryChanged, this, &HelpBrowser::search);
    connect(m_sidebar, &TopicSidebar::topicChosen, this, [this](std::size_t topic) {
        visit({topic, {}});
    });
    connect(m_sidebar, &TopicSidebar::readingRequested, this, [this] { m_view->setFocus(); });
    connect(m_sidebar, &TopicSidebar::backRequested, this, &HelpBrowser::goBack);
    connect(m_sidebar, &TopicSidebar::forwardRequested, this, &HelpBrowser::goForward);
    connect(m_view, &QTextBrowser::anchorClicked, this, &HelpBrowser::openLink);
    connect(m_view, &TopicView::zoomRequested, this,
            [this](int steps) { setZoom(m_zoom * std::pow(zoomStep, steps)); });
}

void HelpBrowser::addShortcuts() {
    addShortcut({QKeySequence(QKeySequence::Find)}, [this] { m_sidebar->focusSearch(); });
    addShortcut(QKeySequence::keyBindings(QKeySequence::Back), [this] { goBack(); });
    addShortcut(QKeySequence::keyBindings(QKeySequence::Forward), [this] { goForward(); });
    addShortcut({QKeySequence(Qt::CTRL | Qt::Key_Plus), QKeySequence(Qt::CTRL | Qt::Key_Equal)},
                [this] { setZoom(m_zoom * zoomStep); });
    addShortcut({QKeySequence(Qt::CTRL | Qt::Key_Minus)}, [this] { setZoom(m_zoom / zoomStep); });
    addShortcut({QKeySequence(Qt::CTRL | Qt::Key_0)}, [this] { setZoom(1); });
}

void HelpBrowser::addShortcut(const QList<QKeySequence>& keys,
                              const std::function<void()>& action) {
    for (const QKeySequence& key : keys) {
        // Backspace, one of the platform's keys for "back", is for editing the search text.
        if (key != QKeySequence(Qt::Key_Backspace)) {
            connect(new QShortcut(key, this), &QShortcut::activated, this, action);
        }
    }
}

void HelpBrowser::rest() {
    leavePlace();
    m_view->showDocument(std::make_unique<QTextDocument>());
}

void HelpBrowser::resume() {
    showTopic(*m_current);
    m_view->verticalScrollBar()->setValue(m_history.current().scrollPosition);
}

void HelpBrowser::visit(const Place& place) {
    leavePlace();
    m_history.visit(place);
    goTo(place);
}

void HelpBrowser::goTo(const Place& place) {
    if (m_current != place.topic) {
        showTopic(place.topic);
    }
    if (!place.anchor.isEmpty()) {
        m_view->scrollToAnchor(place.anchor);
    }
    m_sidebar->setCanGo(m_history.canGoBack(), m_history.canGoForward());
}

void HelpBrowser::goBack() {
    leavePlace();
    if (m_history.canGoBack()) {
        returnTo(m_history.goBack());
    }
}

void HelpBrowser::goForward() {
    leavePlace();
    if (m_history.canGoForward()) {
        returnTo(m_history.goForward());
    }
}

void HelpBrowser::returnTo(const Place& place) {
    goTo(place);
    m_view->verticalScrollBar()->setValue(place.scrollPosition);
}

void HelpBrowser::leavePlace() {
    if (!m_current) {
        return;
    }
    if (m_history.current().topic != *m_current) {
        // A topic that a search showed has been visited once the reader leaves it.
        m_history.visit({*m_current, {}});
    }
    m_history.current().scrollPosition = m_view->verticalScrollBar()->value();
}

void HelpBrowser::showTopic(std::size_t topic) {
    m_current = topic;
    m_view->showDocument(render(topic));
    m_view->setAccessibleName(m_content.topics[topic].title);
    m_sidebar->select(topic);
    markMatches(true);
}

std::unique_ptr<QTextDocument> HelpBrowser::render(std::size_t topic) const {
    const QString text = loadTopicText(m_content.topics[topic], m_bundle);
    return markdown::renderMarkdown(text.toUtf8(), m_bundle.baseUrl(), markdownStyle());
}

void HelpBrowser::search(const QString& query) {
    if (foldedWords(query).isEmpty()) {
        m_sidebar->showAll();
        m_sidebar->select(*m_current);
        markMatches(false);
        return;
    }
    buildIndex();
    const std::vector<TopicMatch> matches = m_index->find(query);
    m_sidebar->showMatches(matches, query);
    const auto first = m_sidebar->model().firstTopic();
    if (first && !isListed(*m_current)) {
        if (m_history.current().topic == *m_current) {
            // Otherwise the topic just passed by while the user typed, and is not visited.
            leavePlace();
        }
        showTopic(*first);
        return;
    }
    m_sidebar->select(*m_current);
    markMatches(true);
}

void HelpBrowser::buildIndex() {
    if (m_index) {
        return;
    }
    m_index.emplace();
    for (std::size_t i = 0; i < m_content.topics.size(); ++i) {
        m_index->add(m_content.topics[i].title, render(i)->toPlainText());
    }
}

bool HelpBrowser::isListed(std::size_t topic) const {
    return m_sidebar->model().indexOf(topic).isValid();
}

void HelpBrowser::markMatches(bool scrolls) {
    const QStringList words =
        isListed(*m_current) ? foldedWords(m_sidebar->query()) : QStringList();
    const auto ranges = FoldedText(m_view->document()->toPlainText()).find(words);
    m_view->mark(ranges, m_style.matchFill, m_style.text);
    if (scrolls && !ranges.empty()) {
        m_view->scrollTo(ranges.front());
    }
}

void HelpBrowser::openLink(const QUrl& link) {
    if (opensElsewhere(link)) {
        Q_EMIT urlRequested(link);
        return;
    }
    if (!link.scheme().isEmpty() || !link.authority().isEmpty()) {
        return;
    }
    const auto topic = link.path().isEmpty() ? m_current : m_content.topicForFile(link.path());
    if (topic) {
        visit({*topic, link.fragment(QUrl::FullyDecoded)});
    }
}

void HelpBrowser::setZoom(double zoom) {
    m_zoom = std::clamp(zoom, smallestZoom, largestZoom);
    m_view->setStyle(markdownStyle());
}

void HelpBrowser::setStyle(const HelpStyle& style) {
    m_style = style;
    const QPalette palette = paletteFor(style);
    QPalette handle = palette;
    handle.setColor(QPalette::Window, style.separator);
    m_splitter->handle(1)->setAutoFillBackground(true);
    m_splitter->handle(1)->setPalette(handle);
    m_sidebar->setStyle(style);
    m_view->setPalette(palette);
    m_view->setStyle(markdownStyle());
    if (m_current) {
        markMatches(false);
    }
}

markdown::MarkdownStyle HelpBrowser::markdownStyle() const {
    return markdownStyleFor(m_style, scaled(QApplication::font(), m_zoom));
}

void HelpBrowser::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        m_view->setStyle(markdownStyle());
    }
}

} // namespace quorvantel::help
