#pragma once

#include <QApplication>

namespace quorvantel::platform {

/// The toolkit's application object as a member of the desktop session (X Session Management
/// Protocol, where the session offers it).
///
/// A logout ends the program with exit status 0 at once, whatever windows are open: nothing in them
/// is worth asking about, since every change is stored as it is made. The session manager is told
/// never to restart the program, which the desktop's autostart does already.
class SessionApplication : public QApplication {
    Q_OBJECT

public:
    /// `argc` and `argv` must outlive the object.
    SessionApplication(int& argc, char** argv);

protected:
    bool event(QEvent* event) override;
};

} // namespace quorvantel::platform
