#include "help/TopicSidebar.h"

#include "help/ContextMenu.h"
#include "help/HelpPalette.h"

#include <QAbstractButton>
#include <QBoxLayout>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QScopedValueRollback>

namespace quorvantel::help {

namespace {

constexpr int margin = 12;
constexpr int buttonSize = 28;
constexpr int iconSize = 16;

/// An arrow head that points left, or right when `isForward`.
QIcon chevron(bool isForward, const HelpStyle& style, double scale) {
    QIcon icon;
    for (const auto mode : {QIcon::Normal, QIcon::Disabled}) {
        QPixmap pixmap(QSize(iconSize, iconSize) * scale);
        pixmap.setDevicePixelRatio(scale);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setOpacity(mode == QIcon::Disabled ? 0.35 : 1);
        painter.setPen(QPen(style.text, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        const double tip = isForward ? 10.5 : 5.5;
        const double tail = isForward ? 6 : 10;
        painter.drawPolyline(QPolygonF{{tail, 3.5}, {tip, 8}, {tail, 12.5}});
        painter.end();
        icon.addPixmap(pixmap, mode);
    }
    return icon;
}

} // namespace

TopicSidebar::TopicSidebar(const HelpContent& content, QWidget* parent)
    : QWidget(parent), m_model(content) {
    setUpButton(m_back, tr("Back"));
    setUpButton(m_forward, tr("Forward"));
    connect(&m_back, &QToolButton::clicked, this, &TopicSidebar::backRequested);
    connect(&m_forward, &QToolButton::clicked, this, &TopicSidebar::forwardRequested);

    m_searchField.setPlaceholderText(tr("Search help"));
    m_searchField.setAccessibleName(tr("Search help topics"));
    m_searchField.setClearButtonEnabled(true);
    m_searchField.findChild<QAbstractButton*>()->setAccessibleName(tr("Clear the search"));
    m_searchField.setFrame(false);
    m_searchField.setTextMargins(8, 0, 4, 0);
    m_searchField.setMinimumHeight(buttonSize);
    m_searchField.installEventFilter(this);
    connect(&m_searchField, &QLineEdit::textChanged, this, &TopicSidebar::queryChanged);

    m_list.setModel(&m_model);
    m_list.setItemDelegate(&m_delegate);
    m_list.setAccessibleName(tr("Help topics"));
    m_list.setFrameShape(QFrame::NoFrame);
    m_list.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_list.setMouseTracking(true);
    m_list.setResizeMode(QListView::Adjust);
    m_list.installEventFilter(this);
    connect(m_list.selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& current) {
                if (!m_isSelecting && current.isValid()) {
                    Q_EMIT topicChosen(*m_model.row(current).topic);
                }
            });

    // Control with a click or Space would have the list mark no topic at all.
    connect(m_list.selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this](const QItemSelection& selected) {
                if (!m_isSelecting && selected.isEmpty() && m_list.currentIndex().isValid()) {
                    m_list.setCurrentIndex(m_list.currentIndex());
                }
            });

    m_noMatch.setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    m_noMatch.setWordWrap(true);
    m_noMatch.setContentsMargins(margin, 2 * margin, margin, 0);
    m_noMatch.setTextFormat(Qt::PlainText);
    m_noMatch.hide();
    layOut();
}

void TopicSidebar::setUpButton(QToolButton& button, const QString& name) {
    button.setAutoRaise(true);
    button.setFixedSize(buttonSize, buttonSize);
    button.setIconSize(QSize(iconSize, iconSize));
    button.setAccessibleName(name);
    button.setToolTip(name);
    button.setEnabled(false);
}

void TopicSidebar::layOut() {
    auto* const bar = new QHBoxLayout;
    bar->setContentsMargins(margin, margin, margin, margin - 2);
    bar->setSpacing(2);
    bar->addWidget(&m_back);
    bar->addWidget(&m_forward);
    bar->addSpacing(4);
    bar->addWidget(&m_searchField, 1);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(bar);
    column->addWidget(&m_list, 1);
    column->addWidget(&m_noMatch, 1);
}

void TopicSidebar::setStyle(const HelpStyle& style) {
    m_style = style;
    m_delegate.setStyle(style);
    QPalette palette = paletteFor(style);
    palette.setColor(QPalette::Window, style.sidebarBackground);
    palette.setColor(QPalette::Base, style.sidebarBackground);
    setPalette(palette);
    m_list.setPalette(palette);
    QPalette muted = palette;
    muted.setColor(QPalette::WindowText, style.secondaryText);
    m_noMatch.setPalette(muted);
    palette.setColor(QPalette::Base, Qt::transparent);
    m_searchField.setPalette(palette);
    m_back.setIcon(chevron(false, style, devicePixelRatioF()));
    m_forward.setIcon(chevron(true, style, devicePixelRatioF()));
    update();
}

void TopicSidebar::showAll() {
    const QScopedValueRollback guard(m_isSelecting, true);
    m_model.showAll();
    m_list.setAccessibleDescription(QString());
    m_noMatch.hide();
    m_list.show();
}

void TopicSidebar::showMatches(const std::vector<TopicMatch>& matches, const QString& query) {
    const QScopedValueRollback guard(m_isSelecting, true);
    m_model.showMatches(matches);
    m_list.setAccessibleDescription(tr("Topics found: %1").arg(matches.size()));
    m_noMatch.setText(tr("No topic matches “%1”.").arg(query.simplified()));
    m_noMatch.setVisible(matches.empty());
    m_list.setVisible(!matches.empty());
}

void TopicSidebar::select(std::size_t topic) {
    const QScopedValueRollback guard(m_isSelecting, true);
    const QModelIndex index = m_model.indexOf(topic);
    if (index.isValid()) {
        m_list.setCurrentIndex(index);
        m_list.scrollTo(index);
    } else {
        // A row that stayed the current one could not be chosen again.
        m_list.selectionModel()->clear();
    }
}

void TopicSidebar::setCanGo(bool back, bool forward) {
    m_back.setEnabled(back);
    m_forward.setEnabled(forward);
}

void TopicSidebar::focusSearch() {
    m_searchField.setFocus(Qt::ShortcutFocusReason);
    m_searchField.selectAll();
}

bool TopicSidebar::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        update();
    }
    if (event->type() == QEvent::ContextMenu && watched == &m_searchField) {
        openContextMenu(*m_searchField.createStandardContextMenu(), *this,
                        static_cast<const QContextMenuEvent*>(event)->globalPos());
        return true;
    }
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<const QKeyEvent*>(event)->key();
        if (watched == &m_searchField && handleSearchKey(key)) {
            return true;
        }
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            Q_EMIT readingRequested();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

bool TopicSidebar::handleSearchKey(int key) {
    switch (key) {
    case Qt::Key_Down:
        moveSelection(1);
        return true;
    case Qt::Key_Up:
        moveSelection(-1);
        return true;
    case Qt::Key_Escape:
        m_searchField.clear();
        return true;
    default:
        return false;
    }
}

void TopicSidebar::moveSelection(int step) {
    int row = m_list.currentIndex().isValid() ? m_list.currentIndex().row() + step : 0;
    while (row >= 0 && row < m_model.rowCount() && !m_model.row(m_model.index(row)).topic) {
        row += step;
    }
    if (row >= 0 && row < m_model.rowCount()) {
        m_list.setCurrentIndex(m_model.index(row));
    }
}

void TopicSidebar::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), m_style.sidebarBackground);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool hasFocus = m_searchField.hasFocus();
    painter.setPen(hasFocus ? QPen(m_style.accent, 1.5) : QPen(m_style.separator, 1));
    painter.setBrush(m_style.fieldBackground);
    painter.drawRoundedRect(QRectF(m_searchField.geometry()).adjusted(0.5, 0.5, -0.5, -0.5), 7, 7);
}

} // namespace quorvantel::help
