#include "platform/linux/DesktopEntryApplications.h"

#include "catalogue/Listings.h"
#include "support/LogLines.h"
#include "support/TestFiles.h"

#include <QDir>
#include <QFile>
#include <QMap>

#include <gtest/gtest.h>

namespace quorvantel::platform {
namespace {

using namespace Qt::StringLiterals;
using namespace quorvantel::testing;

QByteArray entryText(const QByteArray& name, const QByteArray& more = {}) {
    return "[Desktop Entry]\nType=Application\nName=" + name + "\nExec=true\n" + more + "\n";
}

class DesktopEntryApplicationsTest : public ::testing::Test {
protected:
    QString user(const QString& name) const { return inHome(u"user/"_s + name); }
    QString system(const QString& name) const { return inHome(u"system/"_s + name); }

    DesktopEntryApplications applications() const {
        return DesktopEntryApplications({inHome(u"user"_s), inHome(u"system"_s)});
    }

    InstalledApplication only() const {
        const auto list = testing::everythingIn(applications());
        EXPECT_EQ(list.size(), 1U);
        return list.empty() ? InstalledApplication() : list.front();
    }

    static QString words(const InstalledApplication& application) {
        return application.secondaryNames.value(0).simplified();
    }

    QMap<QString, bool> hiddenByIdentifier() const {
        QMap<QString, bool> hidden;
        for (const InstalledApplication& application : testing::everythingIn(applications())) {
            hidden.insert(application.identifier, application.isBackgroundOnly);
        }
        return hidden;
    }

    bool isHidden(const QByteArray& keys) const {
        writeFile(user(u"entry.desktop"_s), entryText("Entry", keys));
        return only().isBackgroundOnly;
    }

    LogLines log;
};

TEST_F(DesktopEntryApplicationsTest, ReadsNamesInTheUsersLanguage) {
    writeFile(user(u"org.example.Text-Editor.desktop"_s),
              "# A comment\n" + entryText("Text Editor", "Name[de]=Texteditor\n"
                                                         "Name[de_AT]=Schreibzeug\n"
                                                         "GenericName=Editor\n"
                                                         "GenericName[de]=Schreiber\n"
                                                         "Keywords=Text;Plain\\;ASCII;\n"
                                                         "Keywords[fr]=Texte;\n"
                                                         "Keywords[de] = Schrift;\n"
                                                         "Icon=editor.svg\n"
                                                         "Icon[de]=schreiber\n"
                                                         "[Desktop Action New]\nName=New"));
    InstalledApplication editor = only();
    EXPECT_EQ(editor.identifier, u"org.example.Text-Editor"_s);
    EXPECT_EQ(editor.location.toLocalFile(), user(u"org.example.Text-Editor.desktop"_s));
    EXPECT_EQ(editor.localizedName, u"Text Editor"_s);
    EXPECT_EQ(editor.name, u"Text Editor"_s);
    EXPECT_EQ(editor.fileName, u"Text-Editor"_s);
    EXPECT_EQ(editor.icon, Image::iconTheme(u"editor"_s));
    EXPECT_EQ(words(editor), u"Editor Editor Text Plain;ASCII Text Plain;ASCII"_s);
    EXPECT_FALSE(editor.isBackgroundOnly);

    qputenv("LC_ALL", "de_CH.UTF-8");
    EXPECT_EQ(only().localizedName, u"Texteditor"_s);
    EXPECT_EQ(only().name, u"Text Editor"_s);
    EXPECT_EQ(only().icon, Image::iconTheme(u"schreiber"_s));
    EXPECT_EQ(words(only()), u"Schreiber Editor Schrift Text Plain;ASCII"_s);
    qputenv("LANGUAGE", "fr:de_AT");
    EXPECT_EQ(only().localizedName, u"Schreibzeug"_s);
    EXPECT_TRUE(log.lines().isEmpty());
}

TEST_F(DesktopEntryApplicationsTest, TellsImageFilesFromThemeNames) {
    const auto icon = [this](const QByteArray& name) {
        writeFile(user(u"a.b.desktop"_s), entryText("Entry", "Icon=" + name));
        EXPECT_EQ(only().fileName, u"a.b"_s);
        return only().icon;
    };
    EXPECT_EQ(icon("/usr/share/a b.png"), Image::file(u"/usr/share/a b.png"_s));
    EXPECT_EQ(icon("org.example.App"), Image::iconTheme(u"org.example.App"_s));
    EXPECT_EQ(icon("app.png"), Image::iconTheme(u"app"_s));
    EXPECT_TRUE(icon("").isNull());
    EXPECT_EQ(DesktopEntry("\t[Desktop Entry]\nIcon=a\n").icon(), Image::iconTheme(u"a"_s));
}

TEST_F(DesktopEntryApplicationsTest, HidesWhatIsNotMeantToBeShown) {
    EXPECT_FALSE(isHidden("NoDisplay=false"));
    EXPECT_TRUE(isHidden("NoDisplay=true"));
    EXPECT_TRUE(isHidden("Hidden=true"));
    EXPECT_TRUE(isHidden("NoDisplay=true\nTryExec=no-such-program"));
    EXPECT_TRUE(isHidden("OnlyShowIn=GNOME;"));
    EXPECT_FALSE(isHidden("NotShowIn=GNOME;"));
    qputenv("XDG_CURRENT_DESKTOP", "ubuntu:GNOME");
    EXPECT_FALSE(isHidden("OnlyShowIn=KDE;GNOME;"));
    EXPECT_TRUE(isHidden("OnlyShowIn=KDE"));
    EXPECT_TRUE(isHidden("NotShowIn=KDE;GNOME"));
    EXPECT_FALSE(isHidden("NotShowIn=gnome;"));
    EXPECT_FALSE(isHidden("OnlyShowIn=ubuntu;\nNotShowIn=GNOME;"));
    EXPECT_TRUE(isHidden("OnlyShowIn=GNOME;\nNotShowIn=ubuntu;"));
}

TEST_F(DesktopEntryApplicationsTest, KeepsTheOrderOfPrecedenceAndWhatHidesLaterEntries) {
    writeFile(user(u"a.desktop"_s), "[Desktop Entry]\nHidden=true\n");
    writeFile(system(u"a.desktop"_s), entryText("A"));
    const auto list = testing::everythingIn(applications());
    ASSERT_EQ(list.size(), 2U);
    EXPECT_TRUE(list[0].isBackgroundOnly);
    EXPECT_EQ(list[0].identifier, u"a"_s);
    EXPECT_FALSE(list[1].isBackgroundOnly);
    EXPECT_TRUE(log.lines().isEmpty());
}

TEST_F(DesktopEntryApplicationsTest, LeavesOutWhatLacksItsProgramForALaterEntry) {
    const QByteArray head = "[Desktop Entry]\nType=Application\nName=A\n";
    writeFile(system(u"a.desktop"_s), entryText("A"));
    for (const char* const keys :
         {"Exec=no-such-program", "Exec=/etc/passwd %U", "Exec='no such' true",
          "Exec=true\nTryExec=no-such-program", "Exec=true\nTryExec=/etc/passwd",
          "DBusActivatable=true\nTryExec=no-such-program"}) {
        writeFile(user(u"a.desktop"_s), head + keys);
        EXPECT_EQ(only().location.toLocalFile(), system(u"a.desktop"_s)) << keys;
    }
    for (const char* const keys :
         {"Exec=true\nTryExec=sh", "Exec=\"true\" \"a b\"", "Exec=env no-such-program",
          "Exec=no-such-program\nDBusActivatable=true"}) {
        writeFile(user(u"a.desktop"_s), head + keys);
        EXPECT_EQ(testing::everythingIn(applications()).size(), 2U) << keys;
    }
    EXPECT_TRUE(log.lines().isEmpty());
}

TEST_F(DesktopEntryApplicationsTest, LeavesBrokenEntriesOutAndSaysSoOnce) {
    writeFile(user(u"no-group.desktop"_s), "[Other]\nName=A\n");
    writeFile(user(u"late-group.desktop"_s), "[Other]\nName=A\n" + entryText("A"));
    writeFile(user(u"no-quote.desktop"_s),
              "[Desktop Entry]\nType=Application\nName=A\nExec=true \"a\n");
    writeFile(user(u"no-syntax.desktop"_s), "[Desktop Entry]\nHidden=true\nnonsense\n");
    writeFile(user(u"no-type.desktop"_s), "[Desktop Entry]\nName=A\nExec=true\n");
    writeFile(user(u"no-name.desktop"_s), "[Desktop Entry]\nType=Application\nExec=true\n");
    writeFile(user(u"no-exec.desktop"_s), "[Desktop Entry]\nType=Application\nName=A\n");
    writeFile(user(u"no-text.desktop"_s), entryText("\xFF\xFE"));
    writeFile(user(u"empty.desktop"_s), {});
    writeFile(user(u"large.desktop"_s), entryText("A", "#" + QByteArray(1024 * 1024, ' ')));
    const qsizetype brokenEntries = 10;
    writeFile(user(u"link.desktop"_s), "[Desktop Entry]\nType=Link\nName=A\nURL=http://a\n");
    writeFile(user(u"bus.desktop"_s),
              "[Desktop Entry]\nType=Application\nName=A\nDBusActivatable=true\n");

    const DesktopEntryApplications scanner = applications();
    for (int scan = 0; scan < 2; ++scan) {
        const auto list = testing::everythingIn(scanner);
        ASSERT_EQ(list.size(), 1U);
        EXPECT_EQ(list.front().identifier, u"bus"_s);
        EXPECT_EQ(log.lines().size(), brokenEntries);
    }
    for (const QString& line : log.lines()) {
        EXPECT_TRUE(line.startsWith(u"Quorvantel: "_s));
        EXPECT_FALSE(line.contains(u'\n'));
    }
}

TEST_F(DesktopEntryApplicationsTest, NamesEntriesInFoldersAfterTheirPath) {
    writeFile(user(u"kde/tools/org.example.a.Viewer.desktop"_s), entryText("Viewer"));
    writeFile(user(u".dot/b.desktop"_s), entryText("B"));
    writeFile(user(u"notes.txt"_s), entryText("C"));
    writeFile(inHome(u"elsewhere/shared/d.desktop"_s), entryText("D"));
    QFile::link(inHome(u"elsewhere/shared"_s), user(u"linked"_s));
    QFile::link(inHome(u"elsewhere/shared/d.desktop"_s), user(u"d2.desktop"_s));
    EXPECT_EQ(
        hiddenByIdentifier().keys(),
        (QStringList{u".dot-b"_s, u"d2"_s, u"kde-tools-org.example.a.Viewer"_s, u"linked-d"_s}));
}

TEST_F(DesktopEntryApplicationsTest, ComesToAnEndWithHostileFolders) {
    writeFile(user(u"a.desktop"_s), entryText("A"));
    QFile::link(inHome(u"user"_s), user(u"loop1"_s));
    QFile::link(u".."_s, user(u"loop2"_s));
    QFile::link(user(u"self"_s), user(u"self"_s));
    QFile::link(u"nowhere"_s, user(u"dangling.desktop"_s));
    makeFifo(user(u"fifo.desktop"_s));
    QFile::link(user(u"fifo.desktop"_s), user(u"linked-fifo.desktop"_s));
    QFile::link(u"/dev/zero"_s, user(u"zero.desktop"_s));
    QDir().mkdir(user(u"folder.desktop"_s));
    QString deep = u"deep"_s;
    for (int depth = 0; depth < 200; ++depth) {
        deep += u"/d"_s;
    }
    writeFile(user(deep + u"/lost.desktop"_s), entryText("Lost"));
    writeFile(user(u"deep/found.desktop"_s), entryText("Found"));
    const QByteArray notText = QFile::encodeName(user({})) + "\xFF.desktop";
    ASSERT_EQ(symlink(QFile::encodeName(user(u"a.desktop"_s)).constData(), notText.constData()), 0);

    const QMap<QString, bool> found = hiddenByIdentifier();
    EXPECT_TRUE(found.contains(u"a"_s));
    EXPECT_TRUE(found.contains(u"deep-found"_s));
    EXPECT_EQ(found.size(), 2);
}

TEST_F(DesktopEntryApplicationsTest, DoesNotSearchTheWholeDiskBehindALink) {
    writeFile(user(u"own.desktop"_s), entryText("Own"));
    QFile::link(u"/"_s, user(u"disk"_s));
    EXPECT_TRUE(hiddenByIdentifier().contains(u"own"_s));
    EXPECT_TRUE(log.lines().contains(u"Quorvantel: ignoring some folders in "_s +
                                     inHome(u"user"_s) + u": there is too much in them"));
}

} // namespace
} // namespace quorvantel::platform
