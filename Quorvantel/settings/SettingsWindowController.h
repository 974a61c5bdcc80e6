#pragma once

#include "search/LearnedAbbreviationStore.h"
#include "settings/SettingsServices.h"
#include "settings/SettingsView.h"

#include <QObject>

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

private:
    void buildWindow(LearnedAbbreviationStore& learned);
    void centre();

    SettingsServices m_services;
    std::unique_ptr<SettingsView> m_window;
};

} // namespace quorvantel
