#pragma once

#include <QByteArray>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QString>

#include <optional>

namespace quorvantel::platform {

/// Opens the program to assistive technology, also to one that starts after it, without ever
/// waiting for it.
///
/// The toolkit's own bridge asks only at its start whether assistive technology runs, and it
/// connects to its bus (AT-SPI) and asks its registry in calls that block, for minutes when nobody
/// answers. So it is kept from connecting by itself. Here the bus is looked for, also when it comes
/// later, and asked the same questions without a wait; once they are answered, the bridge connects.
class AccessibilityBus : public QObject {
    Q_OBJECT

public:
    /// The environment variable that names the bus to all toolkits, as the user has set it.
    using Address = std::optional<QByteArray>;

    /// Keeps the toolkit's bridge idle, by a variable that launched programs must not inherit. To
    /// be called before there is an application object; returns what the variable was.
    static Address holdBack();

    /// Looks for the bus from now on. `address` is what `holdBack` returned. To be constructed
    /// after the application object.
    explicit AccessibilityBus(const Address& address);

private:
    void askForAddress();
    void connectWhenProven(const QString& address);
    void connectBridge(const QString& address);

    QDBusServiceWatcher m_watcher;
    bool m_isConnected = false;
};

} // namespace quorvantel::platform
