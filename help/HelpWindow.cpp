#include "help/HelpWindow.h"

#include "help/HelpPalette.h"
#include "markdown/MarkdownRenderer.h"

#include <QApplication>
#include <QBoxLayout>
#include <QDesktopServices>
#include <QEvent>
#include <QPainter>
#include <QScrollBar>
#include <QShortcut>

#include <algorithm>
#include <cmath>
#include <utility>

namespace quorvantel::help {

namespace {

constexpr QSize initialSize(920, 660);
constexpr QSize smallestSize(560, 360);
constexpr int sidebarWidth = 264;
constexpr int narrowestSidebar = 200;
constexpr double zoomStep = 1.1;
constexpr double smallestZoom = 0.6;
constexpr double largestZoom = 3;

/// A topic's text without its title at the beginning, which a snippet would only repeat.
QString withoutHeading(const QString& text, const QString& title) {
    return text.startsWith(title + u'\n') ? text.sliced(title.size() + 1) : text;
}

bool opensElsewhere(const QUrl& link) {
    const QString scheme = link.scheme();
    return scheme == QStringLiteral("http") || scheme == QStringLiteral("https") ||
           scheme == QStringLiteral("mailto");
}

} // namespace

HelpWindow::HelpWindow(Content content, HelpBundle bundle, HelpStyle style, QWidget* parent)
    : QWidget(parent, Qt::Window),
      onOpenUrl([](const QUrl& url) { QDesktopServices::openUrl(url); }),
      m_bundle(std::move(bundle)),
      m_style(std::move(style)) {
    if (auto* const loaded = std::get_if<HelpContent>(&content)) {
        m_content = std::move(*loaded);
    }
    setWindowTitle(m_content.windowTitle.isEmpty() ? tr("Help") : m_content.windowTitle);
    setMinimumSize(smallestSize);
    resize(initialSize);
    addShortcut(QKeySequence::keyBindings(QKeySequence::Close), [this] { close(); });
    if (m_content.topics.empty()) {
        buildEmptyState();
        applyStyle();
        return;
    }
    buildBrowser();
    addShortcuts();
    applyStyle();
    visit({});
    m_sidebar->focusSearch();
}

void HelpWindow::buildEmptyState() {
    auto* const label = new QLabel(tr("This app hasn't provided any help content yet."), this);
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(label);
}

void HelpWindow::buildBrowser() {
    m_sidebar = new TopicSidebar(m_content);
    m_sidebar->setMinimumWidth(narrowestSidebar);
    m_view = new TopicView;
    m_splitter = new QSplitter(Qt::Horizontal, this);
    m_splitter->addWidget(m_sidebar);
    m_splitter->addWidget(m_view);
    m_splitter->setChildrenCollapsible(false);
    m_splitter->setHandleWidth(1);
    m_splitter->setStretchFactor(0, 0);
    m_splitter->setStretchFactor(1, 1);
    m_splitter->setSizes({sidebarWidth, initialSize.width() - sidebarWidth});
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_splitter);

    connect(m_sidebar, &TopicSidebar::queryChanged, this, &HelpWindow::search);
    connect(m_sidebar, &TopicSidebar::topicChosen, this, [this](std::size_t topic) {
        visit({topic, {}});
    });
    connect(m_sidebar, &TopicSidebar::readingRequested, this, [this] { m_view->setFocus(); });
    connect(m_sidebar, &TopicSidebar::backRequested, this, &HelpWindow::goBack);
    connect(m_sidebar, &TopicSidebar::forwardRequested, this, &HelpWindow::goForward);
    connect(m_view, &QTextBrowser::anchorClicked, this, &HelpWindow::openLink);
    connect(m_view, &TopicView::zoomRequested, this,
            [this](int steps) { setZoom(m_zoom * std::pow(zoomStep, steps)); });
}

void HelpWindow::addShortcuts() {
    addShortcut({QKeySequence(QKeySequence::Find)}, [this] { m_sidebar->focusSearch(); });
    addShortcut(QKeySequence::keyBindings(QKeySequence::Back), [this] { goBack(); });
    addShortcut(QKeySequence::keyBindings(QKeySequence::Forward), [this] { goForward(); });
    addShortcut({QKeySequence(Qt::CTRL | Qt::Key_Plus), QKeySequence(Qt::CTRL | Qt::Key_Equal)},
                [this] { setZoom(m_zoom * zoomStep); });
    addShortcut({QKeySequence(Qt::CTRL | Qt::Key_Minus)}, [this] { setZoom(m_zoom / zoomStep); });
    addShortcut({QKeySequence(Qt::CTRL | Qt::Key_0)}, [this] { setZoom(1); });
}

void HelpWindow::addShortcut(const QList<QKeySequence>& keys, std::function<void()> action) {
    for (const QKeySequence& key : keys) {
        // Backspace, one of the platform's keys for "back", is for editing the search text.
        if (key != QKeySequence(Qt::Key_Backspace)) {
            connect(new QShortcut(key, this), &QShortcut::activated, this, action);
        }
    }
}

std::optional<HelpTopic> HelpWindow::currentTopic() const {
    return m_current ? std::optional(m_content.topics[*m_current]) : std::nullopt;
}

void HelpWindow::visit(const Place& place) {
    leaveTopic();
    recordShownTopic();
    m_history.visit(place);
    goTo(place);
}

void HelpWindow::goTo(const Place& place) {
    if (m_current != place.topic) {
        showTopic(place.topic);
    }
    if (!place.anchor.isEmpty()) {
        m_view->scrollToAnchor(place.anchor);
    }
    updateHistoryButtons();
}

void HelpWindow::goBack() {
    recordShownTopic();
    if (m_history.canGoBack()) {
        leaveTopic();
        const Place place = m_history.goBack();
        goTo(place);
        m_view->verticalScrollBar()->setValue(m_scrollPositions.value(place.topic));
    }
}

void HelpWindow::goForward() {
    recordShownTopic();
    if (m_history.canGoForward()) {
        leaveTopic();
        const Place place = m_history.goForward();
        goTo(place);
        m_view->verticalScrollBar()->setValue(m_scrollPositions.value(place.topic));
    }
}

void HelpWindow::leaveTopic() {
    if (m_current) {
        m_scrollPositions[*m_current] = m_view->verticalScrollBar()->value();
    }
}

void HelpWindow::recordShownTopic() {
    if (m_current && m_history.current().topic != *m_current) {
        m_history.visit({*m_current, {}});
    }
}

void HelpWindow::updateHistoryButtons() {
    m_sidebar->setCanGo(m_history.canGoBack(), m_history.canGoForward());
}

void HelpWindow::showTopic(std::size_t topic) {
    m_current = topic;
    m_view->showDocument(render(topic));
    m_view->setAccessibleName(m_content.topics[topic].title);
    m_sidebar->select(topic);
    markMatches(true);
}

std::unique_ptr<QTextDocument> HelpWindow::render(std::size_t topic) const {
    const QString text = loadTopicText(m_content.topics[topic], m_bundle);
    return markdown::renderMarkdown(text.toUtf8(), m_bundle.baseUrl(), markdownStyle());
}

void HelpWindow::search(const QString& query) {
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
    const bool isListed = m_sidebar->model().indexOf(*m_current).isValid();
    if (first && !isListed) {
        // Topics that pass by while the user types are not visited.
        leaveTopic();
        showTopic(*first);
        return;
    }
    m_sidebar->select(*m_current);
    markMatches(isListed);
}

void HelpWindow::buildIndex() {
    if (m_index) {
        return;
    }
    m_index.emplace();
    for (std::size_t i = 0; i < m_content.topics.size(); ++i) {
        const QString& title = m_content.topics[i].title;
        m_index->add(title, withoutHeading(render(i)->toPlainText(), title));
    }
}

void HelpWindow::markMatches(bool scrolls) {
    const QStringList words = foldedWords(m_sidebar->query());
    const auto ranges = FoldedText(m_view->document()->toPlainText()).find(words);
    m_view->mark(ranges, m_style.matchFill, m_style.text);
    if (scrolls && !ranges.empty()) {
        m_view->scrollTo(ranges.front());
    }
}

void HelpWindow::openLink(const QUrl& link) {
    if (opensElsewhere(link)) {
        onOpenUrl(link);
        return;
    }
    if (!link.scheme().isEmpty() || !link.authority().isEmpty()) {
        return;
    }
    const auto topic = link.path().isEmpty() ? m_current : topicForFile(link.path());
    if (topic) {
        visit({*topic, link.fragment(QUrl::FullyDecoded)});
    }
}

std::optional<std::size_t> HelpWindow::topicForFile(const QString& file) const {
    const auto topic = std::find_if(
        m_content.topics.begin(), m_content.topics.end(),
        [&file](const HelpTopic& candidate) { return candidate.markdownFile == file; });
    return topic == m_content.topics.end()
               ? std::nullopt
               : std::optional(static_cast<std::size_t>(topic - m_content.topics.begin()));
}

void HelpWindow::setZoom(double zoom) {
    m_zoom = std::clamp(zoom, smallestZoom, largestZoom);
    m_view->setStyle(markdownStyle());
}

void HelpWindow::setStyle(const HelpStyle& style) {
    if (m_style != style) {
        m_style = style;
        applyStyle();
    }
}

void HelpWindow::applyStyle() {
    const QPalette palette = paletteFor(m_style);
    setPalette(palette);
    if (m_view == nullptr) {
        return;
    }
    QPalette handle = palette;
    handle.setColor(QPalette::Window, m_style.separator);
    m_splitter->handle(1)->setAutoFillBackground(true);
    m_splitter->handle(1)->setPalette(handle);
    m_sidebar->setStyle(m_style);
    m_view->setPalette(palette);
    m_view->setStyle(markdownStyle());
    if (m_current) {
        markMatches(false);
    }
}

markdown::MarkdownStyle HelpWindow::markdownStyle() const {
    return markdownStyleFor(m_style, scaled(QApplication::font(), m_zoom));
}

void HelpWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange && m_view != nullptr) {
        m_view->setStyle(markdownStyle());
    }
}

void HelpWindow::paintEvent(QPaintEvent* /*event*/) {
    QPainter(this).fillRect(rect(), m_style.background);
}

} // namespace quorvantel::help
