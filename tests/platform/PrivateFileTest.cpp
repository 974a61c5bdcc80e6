#include "platform/PrivateFile.h"

#include "support/TestFiles.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <csignal>
#include <ostream>

namespace quorvantel::platform {

// Names the error in the messages of failed expectations.
void PrintTo(FileError error, std::ostream* stream) {
    *stream << qPrintable(describe(error));
}

namespace {

using namespace Qt::StringLiterals;
using namespace quorvantel::testing;

class PrivateFileTest : public ::testing::Test {
protected:
    QString path(const char* name) const { return m_folder.filePath(QString::fromUtf8(name)); }
    void write(const char* name, const QByteArray& text) const { writeFile(path(name), text); }
    void folder(const char* name) const { ASSERT_TRUE(QDir().mkpath(path(name))); }
    void link(const char* target, const char* name) const {
        ASSERT_EQ(::symlink(target, qPrintable(path(name))), 0);
    }
    void setMode(const char* name, mode_t mode) const {
        ASSERT_EQ(::chmod(qPrintable(path(name)), mode), 0);
    }

    mode_t mode(const char* name) const { return modeOf(path(name)); }
    QByteArray content(const char* name) const { return readFile(path(name)); }
    QStringList files(const char* name) const { return QDir(path(name)).entryList(QDir::Files); }

    FileContent read(const char* name, qint64 limit = 100) const {
        return readRegularFile(path(name), limit);
    }

    bool replace(const char* name, const QByteArray& text) const {
        return replacePrivateFile(path(name), text);
    }

private:
    QTemporaryDir m_folder;
};

TEST_F(PrivateFileTest, ReadsUpToItsLimit) {
    write("ten", "0123456789");
    write("empty", "");
    const QByteArray large(200'000, 'x');
    write("large", large);
    link("ten", "link");

    EXPECT_EQ(read("ten", 10), FileContent(QByteArray("0123456789")));
    EXPECT_EQ(read("ten", 9), FileContent(FileError::TooLarge));
    EXPECT_EQ(read("empty", 0), FileContent(QByteArray("")));
    EXPECT_EQ(read("large", large.size()), FileContent(large));
    EXPECT_EQ(read("large", large.size() - 1), FileContent(FileError::TooLarge));
    EXPECT_EQ(read("link"), FileContent(QByteArray("0123456789")));
    // Larger than any memory, but not on disk.
    write("huge", "");
    ASSERT_EQ(::truncate(qPrintable(path("huge")), off_t{1} << 43), 0);
    EXPECT_EQ(read("huge"), FileContent(FileError::TooLarge));
    // Claims to be empty, and is not.
    EXPECT_EQ(readRegularFile(u"/proc/self/status"_s, 10), FileContent(FileError::TooLarge));
}

TEST_F(PrivateFileTest, TellsWhyNothingWasRead) {
    folder("folder");
    write("file", "x");
    link("nowhere", "dangling");
    link("loop", "loop");
    link("/dev/zero", "endless");
    makeFifo(path("fifo"));
    for (const char* const name : {"missing", "missing/below", "file/below", "dangling"}) {
        EXPECT_EQ(read(name), FileContent(FileError::Missing)) << name;
    }
    for (const char* const name : {"folder", "fifo", "loop", "endless"}) {
        EXPECT_EQ(read(name), FileContent(FileError::NotRegular)) << name;
    }
}

TEST_F(PrivateFileTest, TellsLackOfPermissionFromAbsence) {
    if (::geteuid() == 0) {
        GTEST_SKIP() << "the superuser may read everything";
    }
    folder("closed");
    write("closed/file", "x");
    write("file", "x");
    setMode("closed", 0);
    setMode("file", 0);

    EXPECT_EQ(read("closed/file"), FileContent(FileError::Unreadable));
    EXPECT_EQ(read("file"), FileContent(FileError::Unreadable));
    EXPECT_FALSE(replace("closed/file", "y"));
    setMode("closed", 0700);
}

TEST_F(PrivateFileTest, KeepsFileAndNewFoldersToTheUser) {
    const mode_t mask = ::umask(0);
    folder("shared");
    setMode("shared", 0755);
    write("shared/old", "old");
    setMode("shared/old", 0644);

    EXPECT_TRUE(replace("shared/old", "new"));
    EXPECT_TRUE(replace("shared/one/two/file", "content"));
    ::umask(mask);

    EXPECT_EQ(content("shared/old"), "new");
    EXPECT_EQ(content("shared/one/two/file"), "content");
    EXPECT_EQ(mode("shared/old"), 0600U);
    EXPECT_EQ(mode("shared/one/two/file"), 0600U);
    EXPECT_EQ(mode("shared/one"), 0700U);
    EXPECT_EQ(mode("shared/one/two"), 0700U);
    EXPECT_EQ(mode("shared"), 0755U);
    EXPECT_EQ(files("shared"), QStringList(u"old"_s));
}

TEST_F(PrivateFileTest, WritesThroughLinks) {
    folder("real/deep");
    link("real/deep", "folder");
    link("../elsewhere/file", "real/deep/file"); // seen from real/deep, however it is reached
    link("file", "real/deep/chain");
    link("not/yet", "new");
    EXPECT_TRUE(replace("folder/chain", "first"));
    EXPECT_TRUE(replace("folder/file", "second"));
    EXPECT_TRUE(replace("new/file", "third"));

    EXPECT_EQ(content("real/elsewhere/file"), "second");
    EXPECT_EQ(content("not/yet/file"), "third");
    EXPECT_EQ(mode("not"), 0700U);
    for (const char* name : {"folder", "real/deep/file", "real/deep/chain", "new"}) {
        EXPECT_TRUE(QFileInfo(path(name)).isSymLink()) << name;
    }
}

TEST_F(PrivateFileTest, LeavesWhatItCannotReplace) {
    folder("folder/inside");
    write("file", "content");
    link("loop", "loop");

    for (const char* const name : {"folder", "file/below", "loop", "loop/below"}) {
        EXPECT_FALSE(replace(name, "x")) << name;
    }
    EXPECT_TRUE(QFileInfo(path("folder/inside")).isDir());
    EXPECT_EQ(content("file"), "content");
}

TEST_F(PrivateFileTest, NeverReplacesADevice) {
    // One of the test's own, as /dev/null but not that of the machine.
    if (::mknod(qPrintable(path("device")), S_IFCHR | 0600, ::makedev(1, 3)) != 0) {
        GTEST_SKIP() << "only the superuser may make devices";
    }
    link("device", "nothing");
    EXPECT_FALSE(replace("nothing", "x"));
    EXPECT_FALSE(replace("device", "x"));
    struct stat status {};
    ASSERT_EQ(::stat(qPrintable(path("device")), &status), 0);
    EXPECT_TRUE(S_ISCHR(status.st_mode));
}

TEST_F(PrivateFileTest, KeepsTheOldContentWhenTheNewCannotBeWritten) {
    write("file", "content");
    // The process may write no file of more than a few bytes for the rest of this test.
    rlimit old{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &old), 0);
    const rlimit few{4, old.rlim_max};
    ASSERT_NE(std::signal(SIGXFSZ, SIG_IGN), SIG_ERR);
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &few), 0);
    const bool replaced = replace("file", "much longer content");
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &old), 0);

    EXPECT_FALSE(replaced);
    EXPECT_EQ(content("file"), "content");
    EXPECT_EQ(files("."), QStringList(u"file"_s));
}

TEST_F(PrivateFileTest, LeavesNothingOfSavesThatWereKilled) {
    write("file", "content");
    const auto beKilled = [this] {
        std::signal(SIGXFSZ, SIG_DFL);
        const rlimit none{0, 0};
        ::setrlimit(RLIMIT_CORE, &none);
        const rlimit few{4, 4};
        ::setrlimit(RLIMIT_FSIZE, &few);
        replace("file", "much longer content");
    };
    for (int save = 0; save < 3; ++save) {
        EXPECT_EXIT(beKilled(), ::testing::KilledBySignal(SIGXFSZ), "");
    }
    EXPECT_EQ(content("file"), "content");
    EXPECT_EQ(files("."), QStringList({u"file"_s, u"file.unfinished"_s}));
    setMode("file.unfinished", 0644);
    EXPECT_TRUE(replace("file", "new"));
    EXPECT_EQ(mode("file"), 0600U);
    EXPECT_EQ(files("."), QStringList(u"file"_s));
}

TEST_F(PrivateFileTest, LeavesWhatAnotherSaveWritesAndWhatItDidNotLeave) {
    write("foreign", "content");
    link("foreign", "link.unfinished");
    makeFifo(path("fifo.unfinished"));
    write("busy.unfinished", "half");
    QFile busy(path("busy.unfinished"));
    ASSERT_TRUE(busy.open(QIODevice::ReadOnly));
    ASSERT_EQ(::flock(busy.handle(), LOCK_EX), 0);
    for (const char* const name : {"link", "fifo", "busy"}) {
        EXPECT_TRUE(replace(name, "new")) << name;
        EXPECT_EQ(content(name), "new") << name;
    }
    EXPECT_EQ(content("foreign"), "content");
    EXPECT_EQ(content("busy.unfinished"), "half");
}

} // namespace
} // namespace quorvantel::platform
