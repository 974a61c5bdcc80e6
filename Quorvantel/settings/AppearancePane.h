#pragma once

#include "settings/DetailPane.h"
#include "settings/SegmentedPill.h"
#include "theme/ThemeManager.h"
#include "theme/ThemedRoot.h"

namespace quorvantel {

/// The detail area of the Appearance section: light, dark or as the system, and the tint of the
/// launcher's surface. A choice takes effect and is stored at once.
class AppearancePane : public DetailPane {
    Q_OBJECT

public:
    /// The references must outlive the pane.
    AppearancePane(ThemeManager& manager, const ThemedRoot& theme, QWidget* parent = nullptr);

private:
    SegmentedPill* addSection(const QString& heading, const QStringList& options,
                              const QString& explanation);
    void bindAppearance(SegmentedPill& pill);
    void bindPreset(SegmentedPill& pill);

    ThemeManager& m_manager;
    const ThemedRoot& m_theme;
};

} // namespace quorvantel
