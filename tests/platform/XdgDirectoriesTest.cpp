#include "platform/linux/XdgDirectories.h"

#include "platform/linux/DesktopEntryApplications.h"
#include "support/TestFiles.h"

#include <gtest/gtest.h>

namespace quorvantel::platform {
namespace {

using namespace Qt::StringLiterals;
using namespace quorvantel::testing;

TEST(XdgDirectoriesTest, FollowTheEnvironmentWhereItGivesAbsolutePaths) {
    qputenv("XDG_DATA_HOME", "/data/");
    qputenv("XDG_CONFIG_HOME", "/config");
    EXPECT_EQ(XdgDirectories().applicationSupport(), u"/data"_s);
    EXPECT_EQ(XdgDirectories().configuration(), u"/config"_s);

    qputenv("XDG_DATA_HOME", "data");
    qputenv("XDG_CONFIG_HOME", "");
    EXPECT_EQ(XdgDirectories().applicationSupport(), inHome(u".local/share"_s));
    EXPECT_EQ(XdgDirectories().configuration(), inHome(u".config"_s));
}

TEST(XdgDirectoriesTest, OrderTheApplicationDirectoriesByPrecedenceEachOnce) {
    qputenv("XDG_DATA_HOME", "/home/data");
    qputenv("XDG_DATA_DIRS", "/one:relative::/two/:/home/data/:/one/");
    EXPECT_EQ(DesktopEntryApplications::standardDirectories(),
              (QStringList{u"/home/data/applications"_s, u"/one/applications"_s,
                           u"/two/applications"_s}));
    qunsetenv("XDG_DATA_DIRS");
    EXPECT_EQ(DesktopEntryApplications::standardDirectories(),
              (QStringList{u"/home/data/applications"_s, u"/usr/local/share/applications"_s,
                           u"/usr/share/applications"_s}));
}

} // namespace
} // namespace quorvantel::platform
