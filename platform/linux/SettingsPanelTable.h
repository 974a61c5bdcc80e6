#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <vector>

namespace quorvantel::platform {

/// A desktop entry that can show a settings pane.
struct SettingsPanel {
    /// The desktop file ID without ".desktop".
    QString entry;
    /// Whether it is the pane itself, rather than a near relative or the overview of all settings.
    bool isPane;

    friend bool operator==(const SettingsPanel&, const SettingsPanel&) = default;
};

/// Which panels of which desktop show a settings pane: the table "settings-panels.csv".
///
/// A row stands for a pane, the last one for the overview of all settings; a column for a desktop,
/// under the names that it has in XDG_CURRENT_DESKTOP, and the last column for programs of no
/// desktop in particular. A cell lists desktop file IDs in order of preference, of older and later
/// versions alike, since only what is installed counts; that also tells the versions of a desktop
/// apart. An ID is short for what the second row makes of it in place of the "*", unless it begins
/// with "=". With a "~" in front it is not the pane itself but a near relative.
///
/// Every panel is named by its desktop entry, since that says how to start it, announces its start
/// and has its icon. The columns stand in the order in which they are tried where none of the
/// desktops runs; the one whose settings program is made for nothing but its own desktop is last.
class SettingsPanelTable {
public:
    /// `text` is that of the file.
    explicit SettingsPanelTable(const QString& text);

    /// The table that is part of the program.
    static SettingsPanelTable builtIn();

    /// The panes: settings extension identifiers without the "com.apple." that all begin with.
    const QStringList& panes() const { return m_panes; }

    /// What may show a pane, the best first: of the running desktop the pane itself, a relative and
    /// the overview, then those of the other desktops. Empty for a pane that nobody knows.
    ///
    /// `currentDesktops` is the list in XDG_CURRENT_DESKTOP, separated by colons, of which the
    /// first known name counts, whatever its case.
    std::vector<SettingsPanel> panels(const QString& pane, const QByteArray& currentDesktops) const;

private:
    struct Column {
        QStringList desktops;
        /// One cell a pane, and one for the overview.
        std::vector<std::vector<SettingsPanel>> cells;
    };

    /// The column of the first known desktop; the first one of all when none is known.
    std::size_t runningColumn(const QByteArray& currentDesktops) const;

    QStringList m_panes;
    std::vector<Column> m_columns;
    Column m_anyDesktop;
};

} // namespace quorvantel::platform
