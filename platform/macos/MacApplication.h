#pragma once

#include <QApplication>

namespace quorvantel::platform {

/// The toolkit's application object.
///
/// A logout or "Quit" ends the program at once, whatever windows are open: nothing in them is worth
/// asking about, since every change is stored as it is made.
class MacApplication : public QApplication {
    Q_OBJECT

public:
    /// `argc` and `argv` must outlive the object.
    MacApplication(int& argc, char** argv);

protected:
    bool event(QEvent* event) override;
};

} // namespace quorvantel::platform
