#pragma once

#include "search/LearnedAbbreviationStore.h"
#include "settings/SettingsServices.h"
#include "settings/SettingsView.h"

#include <QObject>
#include <QSize>
#include <QTimer>

#include <memory>

namespace quorvantel {

/// Owns the one settings window, an ordinary window of the desktop: in the task list while it is
/// open, and closed rather than destroyed by the user. Control+W closes it, Control+Q quits the
/// launcher, F1 shows help.
class SettingsWindowController : public QObject {
    Q_OBJECT

public:
    /// Creates no window yet.
    explicit SettingsWindowController(SettingsServices services, QObject* parent = nullptr);

    /// Brings the window to the front, in the middle of the screen under the pointer; creates it
    /// on the first request. `learned` is what the Advanced section resets and must outlive the
    /// controller.
    void show(LearnedAbbreviationStore& learned);

    /// Null before the first request.
    SettingsView* window() const { return m_window.get(); }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildWindow(LearnedAbbreviationStore& learned);
    Qt::WindowStates enlargement() const;
    void place();
    void centre();

    SettingsServices m_services;
    std::unique_ptr<SettingsView> m_window;
    /// What the window measures while it is not maximised. Qt's own note of it fails: a desktop may
    /// tell of the size of a maximised window before it tells that it is maximised.
    QSize m_normalSize;
    /// Runs since the last change of size.
    QTimer m_rest;
};

} // namespace quorvantel
