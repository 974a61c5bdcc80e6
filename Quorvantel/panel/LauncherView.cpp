#include "panel/LauncherView.h"

#include "panel/LauncherLayout.h"
#include "panel/accessibility/PanelAccessible.h"
#include "shapes/ContinuousCorners.h"
#include "shapes/PixelGrid.h"
#include "theme/InterfaceFont.h"

#include <QKeyEvent>
#include <QPainter>

#include <chrono>
#include <utility>

namespace quorvantel {

namespace {

using namespace LauncherLayout;
using namespace std::chrono_literals;

constexpr int horizontalPadding = 18;
/// The search row continues the columns of the rows below: the symbol is centred above their icons,
/// the query starts where their names do.
constexpr int iconColumnWidth = 28;
constexpr int columnSpacing = 8;
/// What QLineEdit leaves free before its text.
constexpr int lineEditInset = 2;
constexpr int symbolSize = SettingsButton::symbolSize;
constexpr int buttonSize = 28;
constexpr int emptyStateFontSize = 13;
constexpr int emptyStateSymbolSize = 14;
constexpr int emptyStateSpacing = 8;
/// Longer than a desktop takes to tell that the list has grown under the mouse.
constexpr auto growth = 150ms;

/// On Linux, Qt's "control" is the Control key and its "meta" the Super key; both stand for Command
/// here. On macOS, Qt's "control" is Command itself.
bool includesCommand(Qt::KeyboardModifiers modifiers) {
    return modifiers.testFlag(Qt::ControlModifier) || modifiers.testFlag(Qt::MetaModifier);
}

platform::Image magnifyingGlass() {
    return platform::Image::symbol(QStringLiteral("magnifyingglass"), {});
}

} // namespace

LauncherView::LauncherView(SearchEngine& engine, const ThemedRoot& theme, IconCache& icons,
                           QWidget* parent)
    : QWidget(parent),
      m_engine(engine),
      m_theme(theme),
      m_icons(icons),
      m_searchField(theme, this),
      m_settingsButton(theme, icons, this),
      m_list(theme, icons, this),
      m_emptyState(this) {
    PanelAccessible::install();
    m_searchField.installEventFilter(this);
    setFocusProxy(&m_searchField);

    m_settingsButton.hide();

    connect(&m_searchField, &QLineEdit::textChanged, &engine, &SearchEngine::setQuery);
    connect(&m_settingsButton, &SettingsButton::clicked, this, &LauncherView::openSettings);
    connect(&m_list, &ResultListView::rowClicked, this, &LauncherView::launchRow);
    connect(&m_list, &ResultListView::rowEntered, this, [this](int row) {
        const auto mouse = mousePosition();
        if (mouse && m_selection.hover(row, *mouse)) {
            applySelection();
        }
    });
    connect(&engine, &SearchEngine::queryChanged, this, &LauncherView::showQuery);
    connect(&engine, &SearchEngine::resultsChanged, this, &LauncherView::showResults);
    connect(&engine, &SearchEngine::targetsChanged, this,
            [this] { m_list.refreshResults(m_engine.results()); });
    connect(&engine, &SearchEngine::resetTokenChanged, this, &LauncherView::resetSelection);
    connect(&theme, &ThemedRoot::themeChanged, this, &LauncherView::applyTheme);
    m_restCheck.setSingleShot(true);
    connect(&m_restCheck, &QTimer::timeout, this, &LauncherView::noteRest);
    applyTheme();
    focusSearchField();
}

void LauncherView::setOnSettings(std::function<void()> onSettings) {
    m_onSettings = std::move(onSettings);
    m_settingsButton.setVisible(m_onSettings != nullptr);
    layOut();
}

void LauncherView::setBlurAvailable(bool isAvailable) {
    if (std::exchange(m_isBlurAvailable, isAvailable) != isAvailable) {
        update();
        Q_EMIT translucencyChanged();
    }
}

void LauncherView::setComposited(bool isComposited) {
    if (std::exchange(m_isComposited, isComposited) != isComposited) {
        update();
    }
}

bool LauncherView::isTranslucent() const {
    return m_theme.theme().isGlass && m_isBlurAvailable && !m_theme.reducesTransparency();
}

void LauncherView::focusSearchField() {
    m_searchField.setFocus(Qt::ActiveWindowFocusReason);
}

void LauncherView::showQuery() {
    if (m_searchField.text() != m_engine.query()) {
        m_searchField.setText(m_engine.query());
    }
    showListOrEmptyState();
    update();
}

void LauncherView::showResults() {
    m_list.setResults(m_engine.results());
    showListOrEmptyState();
    resetSelection();
    update();
    if (onHeightChange) {
        onHeightChange(
            neededHeight(static_cast<int>(m_engine.results().size()), !m_engine.query().isEmpty()));
    }
}

void LauncherView::showListOrEmptyState() {
    m_list.setVisible(!hasEmptyState());
    m_emptyState.setVisible(hasEmptyState());
}

void LauncherView::resetSelection() {
    m_selection.reset();
    applySelection();
    // Once the new list has been drawn.
    m_restCheck.start(0ms);
}

void LauncherView::noteRest() {
    const auto mouse = mousePosition();
    if (!mouse && m_restCheck.intervalAsDuration() == 0ms) {
        m_restCheck.start(growth);
        return;
    }
    m_selection.rest(mouse);
}

void LauncherView::applySelection() {
    m_list.setSelectedIndex(m_selection.selectedIndex());
    if (m_selection.takeKeyboardNavigation()) {
        m_list.scrollToCentre(m_selection.selectedIndex());
    }
}

void LauncherView::applyTheme() {
    update();
    Q_EMIT translucencyChanged();
}

void LauncherView::launchRow(int row) {
    const auto& results = m_engine.results();
    if (!onLaunch || row < 0 || row >= static_cast<int>(results.size())) {
        return;
    }
    // A copy, since launching resets the engine.
    const LaunchTarget target = results[static_cast<std::size_t>(row)];
    onLaunch(target);
}

bool LauncherView::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &m_searchField && event->type() == QEvent::KeyPress) {
        return handleKey(static_cast<const QKeyEvent&>(*event));
    }
    return QWidget::eventFilter(watched, event);
}

bool LauncherView::handleKey(const QKeyEvent& event) {
    const int count = static_cast<int>(m_engine.results().size());
    switch (event.key()) {
    case Qt::Key_Down:
        if (m_selection.moveDown(count)) {
            applySelection();
        }
        return true;
    case Qt::Key_Up:
        if (m_selection.moveUp()) {
            applySelection();
        }
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (const auto row = m_selection.rowToOpen(count)) {
            launchRow(*row);
            return true;
        }
        return false;
    case Qt::Key_Escape:
        if (onDismiss) {
            onDismiss();
        }
        return true;
    default:
        return includesCommand(event.modifiers()) && isCommaKey(event) && openSettings();
    }
}

bool LauncherView::isCommaKey(const QKeyEvent& event) const {
    return event.key() == Qt::Key_Comma || (baseCharacter && baseCharacter(event) == u',');
}

bool LauncherView::openSettings() {
    if (m_onSettings) {
        m_onSettings();
    }
    return m_onSettings != nullptr;
}

bool LauncherView::hasEmptyState() const {
    return m_engine.results().empty() && !m_engine.query().isEmpty();
}

void LauncherView::resizeEvent(QResizeEvent* /*event*/) {
    layOut();
}

void LauncherView::layOut() {
    const int fieldLeft = horizontalPadding + iconColumnWidth + columnSpacing - lineEditInset;
    const int buttonLeft = width() - horizontalPadding - buttonSize + (buttonSize - symbolSize) / 2;
    const bool hasButton = m_onSettings != nullptr;
    const int fieldRight = hasButton ? buttonLeft - columnSpacing : width() - horizontalPadding;
    m_searchField.setGeometry(fieldLeft, 0, fieldRight - fieldLeft, searchRowHeight);
    m_settingsButton.setGeometry(buttonLeft, (searchRowHeight - buttonSize) / 2, buttonSize,
                                 buttonSize);
    const int listTop = searchRowHeight + separatorHeight;
    m_list.setGeometry(0, listTop, width(), std::max(0, height() - listTop));
    m_emptyState.setGeometry(0, listTop, width(), emptyStateHeight);
}

void LauncherView::paintEvent(QPaintEvent* /*event*/) {
    const ResolvedTheme& theme = m_theme.theme();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);

    const ThemeColor fill = isTranslucent() ? theme.glassTint : theme.primaryBackground;
    const ThemeColor border = theme.isGlass ? theme.glassBorder : theme.panelBorder;
    if (m_isComposited) {
        fillContinuousRoundedRect(painter, rect(), cornerRadius, fill.toQColor());
    } else {
        PixelGrid::fill(painter, rect(), fill.toQColor());
    }
    strokeContinuousRoundedRect(painter, rect(), cornerRadius, border.toQColor());

    drawSymbol(painter, m_icons, magnifyingGlass(),
               QRect(horizontalPadding + (iconColumnWidth - symbolSize) / 2,
                     (searchRowHeight - symbolSize) / 2, symbolSize, symbolSize),
               theme.secondaryText.toQColor());
    if (height() > searchRowHeight) {
        const QRectF separator(0, searchRowHeight, width(), PixelGrid::hairline(painter));
        PixelGrid::fill(painter, separator, theme.separator.toQColor());
    }
    if (hasEmptyState()) {
        paintEmptyState(painter);
    }
}

void LauncherView::paintEmptyState(QPainter& painter) {
    const QColor color = m_theme.theme().secondaryText.toQColor();
    const QString text = EmptyStateView::text();
    const QFont font = interfaceFont(emptyStateFontSize);
    const int textWidth = QFontMetrics(font).horizontalAdvance(text);
    const int top = searchRowHeight + separatorHeight;
    const int left = (width() - emptyStateSymbolSize - emptyStateSpacing - textWidth) / 2;
    drawSymbol(painter, m_icons, magnifyingGlass(),
               QRect(left, top + (emptyStateHeight - emptyStateSymbolSize) / 2,
                     emptyStateSymbolSize, emptyStateSymbolSize),
               color);
    painter.setFont(font);
    painter.setPen(color);
    painter.drawText(
        QRect(left + emptyStateSymbolSize + emptyStateSpacing, top, textWidth, emptyStateHeight),
        Qt::AlignVCenter | Qt::TextSingleLine, text);
}

} // namespace quorvantel
