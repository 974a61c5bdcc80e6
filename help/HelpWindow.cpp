#include "help/HelpWindow.h"

#include "help/HelpPalette.h"

#include <QDesktopServices>
#include <QLabel>
#include <QPainter>
#include <QShortcut>

#include <utility>

namespace quorvantel::help {

namespace {

constexpr QSize initialSize(920, 660);
constexpr QSize smallestSize(560, 360);

HelpContent loadedContent(HelpWindow::Content content) {
    auto* const loaded = std::get_if<HelpContent>(&content);
    return loaded == nullptr ? HelpContent() : std::move(*loaded);
}

} // namespace

HelpWindow::HelpWindow(Content content, HelpBundle bundle, const HelpStyle& style, QWidget* parent)
    : QMainWindow(parent),
      onOpenUrl([](const QUrl& url) { QDesktopServices::openUrl(url); }),
      m_style(style) {
    HelpContent topics = loadedContent(std::move(content));
    setWindowTitle(topics.windowTitle.isEmpty() ? tr("Help") : topics.windowTitle);
    setMinimumSize(smallestSize);
    resize(initialSize);
    for (const QKeySequence& key : QKeySequence::keyBindings(QKeySequence::Close)) {
        connect(new QShortcut(key, this), &QShortcut::activated, this, &QWidget::close);
    }
    setCentralWidget(topics.topics.empty() ? makeEmptyState()
                                           : makeBrowser(std::move(topics), std::move(bundle)));
    setPalette(paletteFor(m_style));
}

QWidget* HelpWindow::makeBrowser(HelpContent content, HelpBundle bundle) {
    m_browser = new HelpBrowser(std::move(content), std::move(bundle), m_style, this);
    connect(m_browser, &HelpBrowser::urlRequested, this,
            [this](const QUrl& url) { onOpenUrl(url); });
    return m_browser;
}

QWidget* HelpWindow::makeEmptyState() {
    auto* const label = new QLabel(tr("This app hasn't provided any help content yet."), this);
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    return label;
}

void HelpWindow::setStyle(const HelpStyle& style) {
    if (m_style == style) {
        return;
    }
    m_style = style;
    setPalette(paletteFor(style));
    if (m_browser != nullptr) {
        m_browser->setStyle(style);
    }
}

void HelpWindow::closeEvent(QCloseEvent* event) {
    QMainWindow::closeEvent(event);
    if (m_browser != nullptr && !std::exchange(m_isResting, true)) {
        m_browser->rest();
    }
    // The system's window holds its picture; it can go once it is hidden, and comes anew.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (isHidden()) {
                destroy();
            }
        },
        Qt::QueuedConnection);
}

void HelpWindow::showEvent(QShowEvent* event) {
    if (m_browser != nullptr && std::exchange(m_isResting, false)) {
        m_browser->resume();
    }
    QMainWindow::showEvent(event);
}

void HelpWindow::paintEvent(QPaintEvent* /*event*/) {
    QPainter(this).fillRect(rect(), m_style.background);
}

} // namespace quorvantel::help
