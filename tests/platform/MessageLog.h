#pragma once

#include <QStringList>

namespace quorvantel {

/// Collects what Qt's message handler is given while it lives. One at a time.
class MessageLog {
public:
    MessageLog();
    MessageLog(const MessageLog&) = delete;
    MessageLog& operator=(const MessageLog&) = delete;
    ~MessageLog();

    const QStringList& lines() const;

private:
    QtMessageHandler m_previous;
};

} // namespace quorvantel
