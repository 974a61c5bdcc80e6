#include "platform/linux/SettingsPanelTable.h"

#include <QResource>

#include <algorithm>
#include <utility>

namespace quorvantel::platform {

namespace {

QList<QStringView> trimmedCells(QStringView line) {
    QList<QStringView> cells = line.split(u',');
    for (QStringView& cell : cells) {
        cell = cell.trimmed();
    }
    return cells;
}

SettingsPanel panel(QStringView name, QStringView usualName) {
    const bool isPane = !name.startsWith(u'~');
    name = isPane ? name : name.mid(1);
    if (name.startsWith(u'=')) {
        return {name.mid(1).toString(), isPane};
    }
    const qsizetype star = usualName.indexOf(u'*');
    return {usualName.left(star) + name + usualName.mid(star + 1), isPane};
}

std::vector<SettingsPanel> panelsOf(QStringView cell, QStringView usualName) {
    std::vector<SettingsPanel> panels;
    for (const QStringView name : cell.tokenize(u' ', Qt::SkipEmptyParts)) {
        panels.push_back(panel(name, usualName));
    }
    return panels;
}

} // namespace

SettingsPanelTable::SettingsPanelTable(const QString& text) {
    QList<QStringView> lines = QStringView(text).split(u'\n', Qt::SkipEmptyParts);
    const QList<QStringView> desktops = trimmedCells(lines.takeFirst()).mid(1);
    const QList<QStringView> usualNames = trimmedCells(lines.takeFirst()).mid(1);
    for (const QStringView names : desktops) {
        m_columns.push_back({names.toString().split(u' '), {}});
    }
    for (const QStringView line : std::as_const(lines)) {
        QList<QStringView> cells = trimmedCells(line);
        m_panes.append(cells.takeFirst().toString());
        for (std::size_t index = 0; index < m_columns.size(); ++index) {
            const auto column = static_cast<qsizetype>(index);
            m_columns[index].cells.push_back(panelsOf(cells[column], usualNames[column]));
        }
    }
    m_panes.removeLast();
    m_anyDesktop = std::move(m_columns.back());
    m_columns.pop_back();
}

SettingsPanelTable SettingsPanelTable::builtIn() {
    const QResource file(QStringLiteral(":/platform/settings-panels.csv"));
    return SettingsPanelTable(QString::fromUtf8(file.uncompressedData()));
}

std::vector<SettingsPanel> SettingsPanelTable::panels(const QString& pane,
                                                      const QByteArray& currentDesktops) const {
    std::vector<SettingsPanel> panels;
    const qsizetype found = m_panes.indexOf(pane);
    if (found < 0) {
        return panels;
    }
    // This is done for every pane while the launcher starts.
    panels.reserve(64);
    const auto add = [&panels, row = static_cast<std::size_t>(found)](const Column& column,
                                                                      bool isPane) {
        std::ranges::copy_if(column.cells[row], std::back_inserter(panels),
                             [isPane](const auto& panel) { return panel.isPane == isPane; });
    };
    const auto addOverview = [&panels](const Column& column) {
        for (const SettingsPanel& overview : column.cells.back()) {
            panels.push_back({overview.entry, false});
        }
    };
    const Column& running = m_columns[runningColumn(currentDesktops)];
    for (const bool isPane : {true, false}) {
        add(running, isPane);
        add(m_anyDesktop, isPane);
    }
    addOverview(running);
    for (const Column& column : m_columns) {
        if (&column != &running) {
            add(column, true);
            add(column, false);
            addOverview(column);
        }
    }
    return panels;
}

std::size_t SettingsPanelTable::runningColumn(const QByteArray& currentDesktops) const {
    for (const QByteArray& desktop : currentDesktops.split(':')) {
        const auto found = std::ranges::find_if(m_columns, [&desktop](const Column& column) {
            return column.desktops.contains(QString::fromUtf8(desktop), Qt::CaseInsensitive);
        });
        if (found != m_columns.end()) {
            return static_cast<std::size_t>(found - m_columns.begin());
        }
    }
    return 0;
}

} // namespace quorvantel::platform
