#pragma once

#include <QString>
#include <QStringList>
#include <QtGlobal>

#include <utility>

namespace quorvantel::testing {

/// Collects what is logged while it lives, instead of letting it through. One at a time.
class LogLines {
public:
    /// Leaves out lines that begin otherwise, such as the toolkit's own.
    explicit LogLines(const QString& beginning = {}) {
        collected().clear();
        wanted() = beginning;
        m_earlier =
            qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& text) {
                if (text.startsWith(wanted())) {
                    collected() += text;
                }
            });
    }
    ~LogLines() { qInstallMessageHandler(m_earlier); }
    LogLines(const LogLines&) = delete;
    LogLines& operator=(const LogLines&) = delete;

    const QStringList& lines() const { return collected(); }

    /// Takes the lines logged so far.
    QStringList take() { return std::exchange(collected(), {}); }

private:
    static QStringList& collected() {
        static QStringList lines;
        return lines;
    }

    static QString& wanted() {
        static QString beginning;
        return beginning;
    }

    QtMessageHandler m_earlier;
};

} // namespace quorvantel::testing
