#include "settings/AppearancePane.h"

#include "settings/SettingsText.h"

#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace quorvantel {

namespace {

constexpr int sectionSpacing = 10;
constexpr int maximumPillWidth = 320;

template <typename Value>
struct Option {
    Value value;
    QStringView label;
};

constexpr std::array appearanceOptions{
    Option<ThemeManager::Appearance>{ThemeManager::Appearance::Light, QStringView(u"Light")},
    Option<ThemeManager::Appearance>{ThemeManager::Appearance::Dark, QStringView(u"Dark")},
    Option<ThemeManager::Appearance>{ThemeManager::Appearance::Auto, QStringView(u"Match System")},
};

constexpr std::array surfaceOptions{
    Option<ThemePreset>{ThemePreset::Graphite, QStringView(u"Graphite")},
    Option<ThemePreset>{ThemePreset::Teal, QStringView(u"Teal")},
};

template <typename Options>
QStringList labels(const Options& options) {
    QStringList texts;
    for (const auto& option : options) {
        texts << option.label.toString();
    }
    return texts;
}

template <typename Options, typename Value>
std::optional<int> indexOf(const Options& options, Value value) {
    const auto found =
        std::ranges::find(options, value, [](const auto& option) { return option.value; });
    return found == options.end() ? std::nullopt
                                  : std::optional(static_cast<int>(found - options.begin()));
}

} // namespace

AppearancePane::AppearancePane(ThemeManager& manager, const ThemedRoot& theme, QWidget* parent)
    : DetailPane(parent), m_manager(manager), m_theme(theme) {
    bindAppearance(*addSection(
        QStringLiteral("Appearance"), labels(appearanceOptions),
        QStringLiteral("How Quorvantel looks. “Match System” follows your macOS appearance. "
                       "Applies to the launcher and this Settings window.")));
    bindPreset(*addSection(QStringLiteral("Surface"), labels(surfaceOptions),
                           QStringLiteral("The launcher panel’s tint. Graphite is a neutral dark; "
                                          "Teal applies the brand color.")));
}

SegmentedPill* AppearancePane::addSection(const QString& heading, const QStringList& options,
                                          const QString& explanation) {
    auto* const pill = new SegmentedPill(options, m_theme);
    pill->setAccessibleName(heading);
    pill->setMaximumWidth(maximumPillWidth);
    // A widget, since a layout within a layout gets more height than its texts need.
    auto* const section = new QWidget;
    auto* const layout = new QVBoxLayout(section);
    layout->setContentsMargins({});
    layout->setSpacing(sectionSpacing);
    layout->addWidget(new SettingsText(heading, SettingsText::Style::Heading, m_theme));
    layout->addWidget(pill);
    layout->addWidget(new SettingsText(explanation, SettingsText::Style::Hint, m_theme));
    add(section);
    return pill;
}

void AppearancePane::bindAppearance(SegmentedPill& pill) {
    const auto show = [this, &pill] {
        pill.setSelection(indexOf(appearanceOptions, m_manager.appearance()));
    };
    connect(&m_manager, &ThemeManager::appearanceChanged, &pill, show);
    connect(&pill, &SegmentedPill::selected, &m_manager, [this](int index) {
        m_manager.setAppearance(appearanceOptions[static_cast<std::size_t>(index)].value);
    });
    show();
}

void AppearancePane::bindPreset(SegmentedPill& pill) {
    const auto show = [this, &pill] {
        pill.setSelection(indexOf(surfaceOptions, m_manager.preset()));
    };
    connect(&m_manager, &ThemeManager::presetChanged, &pill, show);
    connect(&pill, &SegmentedPill::selected, &m_manager, [this](int index) {
        m_manager.setPreset(surfaceOptions[static_cast<std::size_t>(index)].value);
    });
    show();
}

} // namespace quorvantel
