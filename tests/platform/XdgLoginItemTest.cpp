#include "platform/linux/XdgLoginItem.h"

#include "support/TestFiles.h"

#include <gtest/gtest.h>

namespace quorvantel::platform {
namespace {

using namespace Qt::StringLiterals;
using namespace quorvantel::testing;

TEST(XdgLoginItemTest, IsOnWhileTheDesktopsEntryIsThereAndNotSwitchedOff) {
    const QString path = inHome(u".config/autostart/org.quorvantel.Quorvantel.desktop"_s);
    QStringList told;
    XdgLoginItem item(u"/usr/libexec/it"_s, [&told](const QString& text) { told << text; });
    EXPECT_FALSE(item.isEnabled());
    item.setEnabled(true);
    EXPECT_TRUE(item.isEnabled());
    const QByteArray entry = readFile(path);
    EXPECT_TRUE(entry.contains("\nExec=\"/usr/libexec/it\"\n")) << entry.toStdString();

    writeFile(path, entry + "Hidden=true\n");
    EXPECT_FALSE(item.isEnabled());
    writeFile(path, QByteArray(entry).replace("-enabled=true", "-enabled=false"));
    EXPECT_FALSE(item.isEnabled());
    item.setEnabled(true);
    EXPECT_TRUE(item.isEnabled());
    item.setEnabled(false);
    EXPECT_FALSE(QFile::exists(path));
    EXPECT_EQ(told.size(), 3);
}

} // namespace
} // namespace quorvantel::platform
