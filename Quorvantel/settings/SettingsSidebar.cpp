#include "settings/SettingsSidebar.h"

#include "settings/SidebarRowDelegate.h"

namespace quorvantel {

namespace {

constexpr int narrowest = 168;
constexpr int idealWidth = 184;
constexpr int widest = 220;
constexpr int padding = 10;

} // namespace

SettingsSidebar::SettingsSidebar(const ThemedRoot& theme, IconCache& icons, QWidget* parent)
    : QListWidget(parent), m_theme(theme) {
    setAccessibleName(QStringLiteral("Sections"));
    setFrameShape(QFrame::NoFrame);
    setAutoFillBackground(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setViewportMargins(padding, padding, padding, padding);
    setMinimumWidth(narrowest);
    setMaximumWidth(widest);
    setItemDelegate(new SidebarRowDelegate(theme, icons, this));
    for (const SettingsSection section : allSettingsSections) {
        auto* const item = new QListWidgetItem(title(section), this);
        item->setData(SidebarRowDelegate::symbolRole, symbolName(section));
    }
    connect(this, &QListWidget::itemSelectionChanged, this,
            [this] { Q_EMIT selectionChangedTo(selection()); });
    connect(&theme, &ThemedRoot::themeChanged, this, &SettingsSidebar::applyTheme);
    applyTheme();
}

std::optional<SettingsSection> SettingsSidebar::selection() const {
    const QList<QListWidgetItem*> items = selectedItems();
    if (items.isEmpty()) {
        return std::nullopt;
    }
    return allSettingsSections[static_cast<std::size_t>(row(items.first()))];
}

void SettingsSidebar::select(SettingsSection section) {
    setCurrentRow(static_cast<int>(section));
}

QSize SettingsSidebar::sizeHint() const {
    return {idealWidth, QListWidget::sizeHint().height()};
}

void SettingsSidebar::applyTheme() {
    QPalette colors = palette();
    colors.setColor(QPalette::Base, m_theme.theme().secondaryBackground.toQColor());
    colors.setColor(QPalette::Window, m_theme.theme().secondaryBackground.toQColor());
    setPalette(colors);
    viewport()->update();
}

} // namespace quorvantel
