#include "platform/MessageLog.h"

namespace quorvantel {

namespace {

QStringList messages;

void collect(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& message) {
    messages.append(message);
}

} // namespace

MessageLog::MessageLog() : m_previous(qInstallMessageHandler(collect)) {
    messages.clear();
}

MessageLog::~MessageLog() {
    qInstallMessageHandler(m_previous);
}

const QStringList& MessageLog::lines() const {
    return messages;
}

} // namespace quorvantel
