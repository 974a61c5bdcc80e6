#include "catalogue/AppCandidate.h"
#include "search/FrecencyStore.h"
#include "search/SearchEngine.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace quorvantel {
namespace {

using namespace Qt::StringLiterals;

struct Entry {
    const char* name;
    const char* words;
    const char* program;
};

// Names as people give them, and what such programs say of themselves.
constexpr Entry entries[] = {
    {"Firefox", "Web Browser Browser Internet WWW Explorer", "firefox"},
    {"Chromium", "Web Browser Internet Site", "chromium"},
    {"Epiphany", "Web Browser internet page surf", "epiphany"},
    {"Brow Shaper", "Image Retouching face", "brow-shaper"},
    {"GIMP", "Image Editor Image Picture Photo Draw Paint", "gimp-2.10"},
    {"Inkscape", "Vector Graphics Editor svg draw illustration", "inkscape"},
    {"Thunderbird", "Mail Client Email E-mail Newsgroup Calendar", "thunderbird"},
    {"Mailspring", "Mail Client imap", "mailspring"},
    {"Files", "File Manager folder explorer disk", "nautilus"},
    {"Disks", "Disk Utility partition volume drive", "gnome-disks"},
    {"Terminal", "Terminal shell prompt command commandline cmd", "gnome-terminal"},
    {"Calculator", "Calculator sum multiply arithmetic", "gnome-calculator"},
    {"Calendar", "Calendar event appointment reminder", "gnome-calendar"},
    {"Text Editor", "Text Editor Plain Write Notepad", "gedit"},
    {"Writer", "Word Processor document text letter", "lowriter"},
    {"Rhythmbox", "Music Player audio song mp3 podcast", "rhythmbox"},
    {"Videos", "Movie Player film clip dvd", "totem"},
    {"Settings", "Preferences configure control", "gnome-settings"},
    {"System Monitor", "Process task manager memory cpu", "gnome-system-monitor"},
    {"Document Viewer", "pdf ps paper reader", "evince"},
};

class SecondaryKeyRankingTest : public ::testing::Test {
protected:
    static QStringList search(const SearchEngine& engine, const QString& query) {
        QStringList names;
        for (const LaunchTarget& target : engine.search(query, 0)) {
            names += target.displayName();
        }
        return names;
    }

    /// How many letters of a text bring the application to the first place.
    static qsizetype lettersFor(const QString& application, const QString& text,
                                const SearchEngine& engine) {
        for (qsizetype letters = 1; letters < text.size(); ++letters) {
            if (search(engine, text.first(letters)).value(0) == application) {
                return letters;
            }
        }
        return text.size();
    }

    static std::vector<LaunchTarget> targets(bool haveSecondaryNames) {
        std::vector<LaunchTarget> list;
        for (const Entry& entry : entries) {
            AppCandidate candidate;
            candidate.identifier = candidate.displayName = QString::fromUtf8(entry.name);
            if (haveSecondaryNames) {
                candidate.secondaryNames = {QString::fromUtf8(entry.words),
                                            QString::fromUtf8(entry.program)};
            }
            list.push_back(*makeAppTarget(candidate, {}));
        }
        return list;
    }

    SecondaryKeyRankingTest() {
        full.setTargets(targets(true));
        plain.setTargets(targets(false));
    }

    QTemporaryDir directory;
    FrecencyStore frecency{directory.path()};
    SearchEngine full{frecency, nullptr};
    SearchEngine plain{frecency, nullptr};
};

TEST_F(SecondaryKeyRankingTest, FindsApplicationsByWhatTheyAreForAndByTheirCommands) {
    const QList<std::pair<const char*, QStringList>> expected = {
        {"browser", {u"Chromium"_s, u"Epiphany"_s, u"Firefox"_s}},
        {"web browser", {u"Chromium"_s, u"Epiphany"_s, u"Firefox"_s}},
        {"e-mail", {u"Thunderbird"_s}},
        {"music", {u"Rhythmbox"_s}},
        {"pdf", {u"Document Viewer"_s}},
        {"nautilus", {u"Files"_s}},
        {"gnome-disks", {u"Disks"_s}},
    };
    for (const auto& [query, names] : expected) {
        const QString text = QString::fromUtf8(query);
        QStringList found = search(full, text).first(names.size());
        found.sort();
        EXPECT_EQ(found, names) << query;
        EXPECT_FALSE(search(plain, text).contains(names.front())) << query;
    }
}

TEST_F(SecondaryKeyRankingTest, PutsNamesFirst) {
    EXPECT_EQ(search(full, u"brow"_s).front(), u"Brow Shaper"_s);
    EXPECT_EQ(search(full, u"calendar"_s).front(), u"Calendar"_s);
    EXPECT_EQ(search(full, u"mail"_s).front(), u"Mailspring"_s);
    EXPECT_EQ(search(full, u"disk"_s).front(), u"Disks"_s);
    EXPECT_EQ(search(full, u"te"_s).first(2), (QStringList{u"Terminal"_s, u"Text Editor"_s}));
    double more = 0;
    for (const LaunchTarget& target : full.targets()) {
        const QString& name = target.displayName();
        more += static_cast<double>(lettersFor(name, name, full) - lettersFor(name, name, plain));
    }
    EXPECT_LE(more / static_cast<double>(std::size(entries)), 0.15);
}

} // namespace
} // namespace quorvantel
