#include "platform/linux/TypedNames.h"

#include <gtest/gtest.h>

namespace quorvantel::platform {
namespace {

TEST(TypedNamesTest, ShortenReverseDomainsToThePartThatTellsThemApart) {
    const QList<std::pair<const char*, const char*>> names = {
        {"org.example.Viewer", "Viewer"},
        {"org.example.two.Text-Editor", "Text-Editor"},
        {"org.example._7up", "_7up"},
        {"org.example.desktop", "example"},
        {"com.example.Chat.Client", "Chat"},
        {"com.example.chat.desktop.App", "chat"},
        {"org.app.desktop", "app"},
        {"studio", "studio"},
        {"example.desktop", "example.desktop"},
        {"name-3.4.1", "name-3.4.1"},
        {"tool-1.2.beta", "tool-1.2.beta"},
        {"org.example.viewer 2", "org.example.viewer 2"},
        {"org..viewer", "org..viewer"},
        {"7zip.file.manager", "7zip.file.manager"},
        {"", ""},
    };
    for (const auto& [name, typed] : names) {
        EXPECT_EQ(typedFileName(QString::fromUtf8(name)).toStdString(), typed) << name;
    }
}

TEST(TypedNamesTest, TellTheProgramUnlessItOnlyRunsAnother) {
    const QList<std::pair<const char*, const char*>> commands = {
        {"viewer|%U", "viewer"},
        {"/opt/a b/viewer-2.1", "viewer-2.1"},
        {"env|A=1|B=2|/snap/bin/viewer|%u", "viewer"},
        {"/usr/bin/env|-u|A|viewer", ""},
        {"env", ""},
        {"sh|-c|viewer", ""},
        {"/usr/bin/python3.11|viewer.py", ""},
        {"flatpak|run|org.example.Viewer", ""},
        {"env|A=1|wine|viewer.exe", ""},
        {"kcmshell5|viewer", ""},
        {"xdg-open|a", ""},
        {"bash|a", ""},
        {"shutter", "shutter"},
        {"", ""},
    };
    for (const auto& [words, program] : commands) {
        EXPECT_EQ(typedProgram(QString::fromUtf8(words).split(u'|')).toStdString(), program)
            << words;
    }
    EXPECT_EQ(typedProgram({}), QString());
}

} // namespace
} // namespace quorvantel::platform
