#include "platform/linux/session/StandardErrorLog.h"

#include <QDebug>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <string>

namespace quorvantel::platform {
namespace {

/// In place of standard error, a pipe that nobody reads until asked to.
class ReadLate {
public:
    ReadLate() {
        [[maybe_unused]] const int failed = ::pipe(m_ends.data());
        ::fcntl(m_ends[0], F_SETFL, O_NONBLOCK);
        ::dup2(m_ends[1], STDERR_FILENO);
    }
    ~ReadLate() {
        ::dup2(m_original, STDERR_FILENO);
        for (const int descriptor : {m_ends[0], m_ends[1], m_original}) {
            ::close(descriptor);
        }
    }

    std::string read() {
        std::string text(1 << 20, '\0');
        text.resize(static_cast<std::size_t>(
            std::max<ssize_t>(::read(m_ends[0], text.data(), text.size()), 0)));
        return text;
    }

private:
    int m_original = ::dup(STDERR_FILENO);
    std::array<int, 2> m_ends{};
};

TEST(StandardErrorLogTest, WaitsForNobodyToRead) {
    const QString longMessage(6000, u'x');
    std::string kept;
    std::string after;
    // Ends the test where a line waits.
    ::alarm(20);
    const auto originalHandler = qInstallMessageHandler(nullptr);
    {
        ReadLate reader;
        logToStandardError();
        for (int line = 0; line < 100; ++line) {
            qWarning().noquote() << longMessage;
        }
        kept = reader.read();
        qWarning("short");
        after = reader.read();
    }
    qInstallMessageHandler(originalHandler);
    ::alarm(0);
    EXPECT_GT(kept.size(), 6000U);
    EXPECT_EQ(kept.back(), '\n');
    EXPECT_EQ(after, "short\n");
}

} // namespace
} // namespace quorvantel::platform
