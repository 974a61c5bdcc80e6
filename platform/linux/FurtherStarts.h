#pragma once

#include "platform/linux/start/FirstInstance.h"
#include "platform/linux/start/StartRequest.h"

#include <QObject>
#include <QSocketNotifier>
#include <QString>

#include <functional>
#include <memory>

namespace quorvantel::platform {

/// Takes the requests of further starts, which end when they are answered.
class FurtherStarts : public QObject {
    Q_OBJECT

public:
    /// Does what a start asks for and returns what is to be said against it, which may be nothing.
    using Handler = std::function<QString(const StartRequest&)>;

    /// `instance` is held until this object ends; without a listener no requests come.
    explicit FurtherStarts(FirstInstance instance);

    /// Answers requests from the event loop, from now on. To be called once.
    void receive(Handler handler);

private:
    void admit();
    void answer(const FileDescriptor& connection);

    FirstInstance m_instance;
    Handler m_handler;
    std::unique_ptr<QSocketNotifier> m_arrivals;
};

} // namespace quorvantel::platform
