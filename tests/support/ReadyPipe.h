#pragma once

#include <QByteArray>

namespace quorvantel::testing {

/// A pipe on which a program that was just started announces itself with one line, as with the
/// options -displayfd and --print-address.
class ReadyPipe {
public:
    ReadyPipe();
    ReadyPipe(const ReadyPipe&) = delete;
    ReadyPipe& operator=(const ReadyPipe&) = delete;
    ~ReadyPipe();

    /// The end that the program inherits.
    int writeEnd() const { return m_writeEnd; }

    /// The line, without its end. Call it once, after the program was started. Throws
    /// std::runtime_error, naming `program`, when the program ended or no line came in time.
    QByteArray readLine(const char* program);

private:
    int m_readEnd = -1;
    int m_writeEnd = -1;
};

} // namespace quorvantel::testing
