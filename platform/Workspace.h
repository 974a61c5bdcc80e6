#pragma once

#include <QString>
#include <QUrl>

#include <functional>

namespace quorvantel::platform {

/// Opens applications and addresses on the user's behalf.
class Workspace {
public:
    /// Receives an empty text when the application started, otherwise why it did not.
    using Completion = std::function<void(const QString& error)>;

    virtual ~Workspace() = default;

    /// Starts the application at `location` and lets it come to the front.
    ///
    /// The program runs in a session of its own, keeps no file descriptor of the launcher's and
    /// outlives it; no shell reads its command line. Returns at once. `completion` is called at
    /// most once, on the main thread: with an error as soon as one is known, possibly before this
    /// returns, and otherwise when it is certain that the program ran, which may be as late as its
    /// end. It is not called once the workspace is gone.
    virtual void openApplication(const QUrl& location, Completion completion) = 0;

    /// Opens a settings address. Returns false when nothing on this system can show it, which does
    /// no harm.
    virtual bool openSettings(const QUrl& url) = 0;
};

} // namespace quorvantel::platform
