#include "settings/SettingsView.h"

#include "settings/AdvancedSettingsPane.h"
#include "settings/AppearancePane.h"
#include "settings/GeneralSettingsPane.h"
#include "settings/HotkeySettingsPane.h"
#include "settings/SettingsAccessible.h"
#include "settings/SettingsPane.h"
#include "settings/SidebarSplitter.h"
#include "theme/ControlPalette.h"

#include <QHBoxLayout>
#include <QLayout>

namespace quorvantel {

namespace {

constexpr int idealDetailWidth = 460;
constexpr int idealHeight = 360;

} // namespace

SettingsView::SettingsView(LearnedAbbreviationStore& learned, const SettingsServices& services,
                           QWidget* parent)
    : QWidget(parent),
      m_theme(services.theme),
      m_sidebar(new SettingsSidebar(services.theme, services.icons)),
      m_detail(new QStackedWidget) {
    installSettingsAccessible();
    for (const SettingsSection section : allSettingsSections) {
        QWidget* const pane = makePane(section, learned, services);
        pane->setObjectName(rawValue(section));
        pane->setAccessibleName(title(section));
        m_detail->addWidget(pane);
    }

    auto* const columns = new SidebarSplitter(services.theme);
    columns->addWidget(m_sidebar);
    columns->addWidget(m_detail);
    columns->setStretchFactor(1, 1);
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(columns);

    connect(m_sidebar, &SettingsSidebar::selectionChangedTo, this,
            [this] { m_detail->setCurrentIndex(static_cast<int>(shownSection())); });
    connect(&m_theme, &ThemedRoot::themeChanged, this, &SettingsView::applyTheme);
    applyTheme();
    m_sidebar->select(SettingsSection::Hotkey);
    setFocusProxy(m_sidebar);
    resize(m_sidebar->sizeHint().width() + columns->handleWidth() + idealDetailWidth, idealHeight);
}

SettingsSection SettingsView::shownSection() const {
    return m_sidebar->selection().value_or(SettingsSection::Hotkey);
}

QWidget* SettingsView::makePane(SettingsSection section, LearnedAbbreviationStore& learned,
                                const SettingsServices& services) const {
    const auto titled = [&](QWidget* content) {
        return new SettingsPane(title(section), content, services.theme);
    };
    switch (section) {
    case SettingsSection::General:
        return titled(new GeneralSettingsPane(services));
    case SettingsSection::Hotkey:
        return titled(new HotkeySettingsPane(services));
    case SettingsSection::Advanced:
        return titled(new AdvancedSettingsPane(learned, services));
    case SettingsSection::Appearance:
        return new AppearancePane(services.themeManager, services.theme);
    }
    Q_UNREACHABLE();
}

void SettingsView::applyTheme() {
    setPalette(controlPalette(m_theme.theme()));
}

} // namespace quorvantel
