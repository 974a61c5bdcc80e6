#pragma once

#include <QString>
#include <QStringList>
#include <QtGlobal>

#include <utility>

namespace quorvantel::testing {

/// Collects what is logged while it lives, instead of letting it through. One at a time.
class LogLines {
public:
    LogLines() {
        lines().clear();
        m_earlier = qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext&, const QString& text) { lines() += text; });
    }
    ~LogLines() { qInstallMessageHandler(m_earlier); }
    LogLines(const LogLines&) = delete;
    LogLines& operator=(const LogLines&) = delete;

    /// Takes the lines logged so far.
    QStringList take() { return std::exchange(lines(), {}); }

private:
    static QStringList& lines() {
        static QStringList collected;
        return collected;
    }

    QtMessageHandler m_earlier;
};

} // namespace quorvantel::testing
