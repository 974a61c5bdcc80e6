#include "platform/macos/PendingCompletions.h"

#include <gtest/gtest.h>

#include <memory>

namespace quorvantel::platform {
namespace {

using namespace Qt::StringLiterals;

TEST(PendingCompletions, EachIsCalledOnceAndMayEndThemAll) {
    auto pending = std::make_unique<PendingCompletions>();
    QStringList reports;
    const auto first =
        pending->add([&](const QString& error) { reports.append(u"first: "_s + error); });
    const auto second = pending->add([&](const QString& error) {
        pending.reset();
        reports.append(u"second: "_s + error);
    });
    pending->finish(second + 1, u"of nobody's"_s);
    pending->finish(first, u"gone"_s);
    pending->finish(first, u"again"_s);
    pending->finish(second, {});
    EXPECT_EQ(reports, QStringList({u"first: gone"_s, u"second: "_s}));
}

} // namespace
} // namespace quorvantel::platform
