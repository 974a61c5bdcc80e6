#pragma once

#include "drawing/IconCache.h"
#include "panel/EmptyStateView.h"
#include "panel/ResultListView.h"
#include "panel/ResultSelection.h"
#include "panel/SearchField.h"
#include "panel/SettingsButton.h"
#include "search/SearchEngine.h"
#include "theme/ThemedRoot.h"

#include <QPointF>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <optional>

namespace quorvantel {

/// The whole content of the launcher panel: a search field and below it the ranked results.
///
/// The view owns the selection and everything that the keyboard and the mouse do in the panel. It
/// launches nothing and hides nothing itself, but calls back.
class LauncherView : public QWidget {
    Q_OBJECT

public:
    /// `engine`, `theme` and `icons` must outlive the view.
    LauncherView(SearchEngine& engine, const ThemedRoot& theme, IconCache& icons,
                 QWidget* parent = nullptr);

    /// The user chose a target, by Return or by a click. The callee may change the engine.
    std::function<void(const LaunchTarget&)> onLaunch;
    /// Escape was pressed.
    std::function<void()> onDismiss;
    /// The height, in points, that the content needs from now on.
    std::function<void(double)> onHeightChange;

    /// The character that the key of an event types by itself, whichever modifiers are held with
    /// it; null when it types none.
    std::function<QChar(const QKeyEvent&)> baseCharacter;

    /// Where the mouse is, on a plane that stays where it is; absent when nobody can tell.
    std::function<std::optional<QPointF>()> mousePosition = [] { return std::nullopt; };

    /// What Command+comma and the settings button do. The button shows only once there is
    /// something to do.
    void setOnSettings(std::function<void()> onSettings);

    int selectedIndex() const { return m_selection.selectedIndex(); }

    /// Whether the desktop blurs what is behind the panel; a glass palette is opaque without.
    void setBlurAvailable(bool isAvailable);

    /// Whether what the panel leaves transparent shows the desktop, as at first. If not, the panel
    /// fills its corners, and its window is to be cut to its outline.
    void setComposited(bool isComposited);

    /// Whether what is behind the panel shows through.
    bool isTranslucent() const;

    /// Puts the typing caret into the search field.
    void focusSearchField();

    /// Closes the menu of the search field, if it is open.
    void closeMenu() { m_searchField.closeMenu(); }

Q_SIGNALS:
    void translucencyChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void showQuery();
    void showResults();
    void showListOrEmptyState();
    void resetSelection();
    void noteRest();
    void applyTheme();
    void applySelection();
    void launchRow(int row);
    bool handleKey(const QKeyEvent& event);
    bool isCommaKey(const QKeyEvent& event) const;
    bool openSettings();
    void layOut();
    bool hasEmptyState() const;
    void paintEmptyState(QPainter& painter);

    SearchEngine& m_engine;
    const ThemedRoot& m_theme;
    IconCache& m_icons;
    ResultSelection m_selection;
    QTimer m_restCheck;
    bool m_isBlurAvailable = false;
    bool m_isComposited = true;
    std::function<void()> m_onSettings;
    SearchField m_searchField;
    SettingsButton m_settingsButton;
    ResultListView m_list;
    EmptyStateView m_emptyState;
};

} // namespace quorvantel
