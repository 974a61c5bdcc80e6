#pragma once

#include <QStringView>

#include <array>
#include <cstddef>

namespace quorvantel {

/// One row of the table of settings panes. The texts live as long as the program.
struct SettingsPaneRow {
    static constexpr std::size_t maximumKeywords = 9;

    QStringView name;
    /// The system symbol that stands for the pane when its settings extension is not installed.
    QStringView symbol;
    /// "x-apple.systempreferences:" and the identifier of the settings extension.
    QStringView url;
    /// The search keys in order of preference; unused places at the end are empty.
    std::array<QStringView, maximumKeywords> keywords;
};

} // namespace quorvantel
