#include "help/HelpContent.h"

#include "help/BundleFiles.h"
#include "help/HelpContentError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvantel::help {
namespace {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;

class HelpContentTest : public ::testing::Test {
protected:
    HelpContent load(const QByteArray& manifest) const {
        m_files.write("topics.json", manifest);
        return loadHelpContent(u"topics"_s, m_files.bundle());
    }

    /// Why the manifest of a name does not load, which has to be of that kind.
    QString failure(HelpContentError::Kind kind, const QString& name = u"topics"_s) const {
        try {
            loadHelpContent(name, m_files.bundle());
            return {};
        } catch (const HelpContentError& error) {
            EXPECT_EQ(error.kind(), kind);
            return error.description();
        }
    }

    QString failure(const QByteArray& manifest) const {
        m_files.write("topics.json", manifest);
        return failure(HelpContentError::Kind::manifestUnreadable);
    }

    QString topicText(const QString& file) const {
        return loadTopicText({u"id"_s, u"A Title"_s, file, {}}, m_files.bundle());
    }

    BundleFiles m_files;
};

TEST_F(HelpContentTest, TopicsAreGroupedInTheOrderOfTheManifest) {
    const HelpContent content = load(R"({"windowTitle": "My Help", "future": [1], "topics": [
        {"id": "1", "title": "One", "markdownFile": "1.md", "group": "A"},
        {"id": "2", "title": "Two", "markdownFile": "2.md"},
        {"id": "3", "title": "Three", "markdownFile": "3.md", "group": "A", "extra": {}},
        {"id": "4", "title": "Four", "markdownFile": "4.md", "group": "B"},
        {"id": "5", "title": "Five", "markdownFile": "5.md", "group": null},
        {"id": "6", "title": "Six", "markdownFile": "6.md", "group": ""}]})");
    EXPECT_EQ(content.windowTitle, u"My Help"_s);
    ASSERT_EQ(content.topics.size(), 6U);
    EXPECT_EQ(content.topics[2], (HelpTopic{u"3"_s, u"Three"_s, u"3.md"_s, u"A"_s}));
    ASSERT_EQ(content.groups.size(), 4U);
    EXPECT_EQ(content.groups[0].title, u"A"_s);
    EXPECT_THAT(content.groups[0].topics, ElementsAre(content.topics[0], content.topics[2]));
    EXPECT_EQ(content.groups[1].title, std::nullopt);
    EXPECT_THAT(content.groups[1].topics, ElementsAre(content.topics[1], content.topics[4]));
    EXPECT_EQ(content.groups[2].title, u"B"_s);
    EXPECT_EQ(content.groups[3].title, QString());

    for (const char* const untitled :
         {R"({"topics": []})", R"({"windowTitle": null, "topics": []})"}) {
        EXPECT_EQ(load(untitled).windowTitle, u"Help"_s) << untitled;
    }
}

TEST_F(HelpContentTest, AMissingManifestIsNamed) {
    EXPECT_EQ(failure(HelpContentError::Kind::manifestNotFound, u"nothing"_s),
              u"Help manifest 'nothing' was not found in the bundle."_s);
}

TEST_F(HelpContentTest, AManifestMustHaveWhatItNeedsInTheRightTypes) {
    const QString prefix = u"Help manifest 'topics' could not be read: "_s;
    for (const char* const manifest :
         {"", "{", "[]", "null", "\"text\"", "{}", R"({"topics": {}})", R"({"topics": null})",
          R"({"topics": [], "windowTitle": 1})", R"({"topics": ["a"]})", R"({"topics": [{}]})",
          R"({"topics": [{"id": 1, "title": "T", "markdownFile": "m"}]})",
          R"({"topics": [{"id": "1", "title": null, "markdownFile": "m"}]})",
          R"({"topics": [{"id": "1", "title": "T"}]})",
          R"({"topics": [{"id": "1", "title": "T", "markdownFile": "m", "group": 3}]})",
          R"({"topics": [{"Id": "1", "title": "T", "markdownFile": "m"}]})", "{\"topics\": []} x",
          "{\"topics\": [], \"windowTitle\": \"\xFF\"}"}) {
        const QString reason = failure(manifest);
        EXPECT_TRUE(reason.startsWith(prefix) && reason.size() > prefix.size() + 5) << manifest;
    }
    EXPECT_TRUE(failure(R"({"topics": [{"id": "1", "title": "T"}]})")
                    .endsWith(u"\"markdownFile\" of topic 1 is missing."_s));
    EXPECT_FALSE(failure(QByteArray("{\"topics\": []}") + QByteArray(1024 * 1024, ' ')).isEmpty());
    EXPECT_FALSE(failure(QByteArray(100'000, '[')).isEmpty());
}

TEST_F(HelpContentTest, ATopicTellsOfItsSystemAlone) {
    m_files.write("both.md", "# A\n<!-- only on Linux -->\n- l\n\n  <!-- only on macOS --> \n- m\n"
                             "<!-- everywhere -->\n- z\n<!-- only on -->\n<!-- other -->\n");
    const auto text = [this](const QString& system) {
        return loadTopicText({u"id"_s, u"A"_s, u"both.md"_s, {}},
                             HelpBundle(m_files.path(), system));
    };
    const QString end = u"- z\n<!-- only on -->\n<!-- other -->\n"_s;
    EXPECT_EQ(text(u"Linux"_s), u"# A\n- l\n\n"_s + end);
    EXPECT_EQ(text(u"macOS"_s), u"# A\n- m\n"_s + end);
    EXPECT_EQ(text(u"Other"_s), u"# A\n"_s + end);
    EXPECT_EQ(runningSystem(), u"Linux"_s);
}

TEST_F(HelpContentTest, ATopicThatCannotBeReadSaysSo) {
    m_files.write("here.md", "# Hällo\n");
    m_files.write("latin1.md", "# H\xE4llo\n");
    m_files.write("huge.md", QByteArray(5 * 1024 * 1024, 'a'));
    m_files.write("../secret.md", "secret");
    QFile::link(m_files.path() + u"/../secret.md"_s, m_files.path() + u"/link.md"_s);
    EXPECT_EQ(topicText(u"here.md"_s), u"# Hällo\n"_s);
    for (const char* const name :
         {"gone.md", "latin1.md", "huge.md", "../secret.md", "link.md", "", ".", "/etc/hostname"}) {
        EXPECT_EQ(
            topicText(QString::fromUtf8(name)).toStdString(),
            std::string("# A Title\n\n*This help topic could not be loaded.*\n\nThe file **") +
                name +
                "** is missing from the app bundle. Please report this to the app "
                "developer.");
    }
}

} // namespace
} // namespace quorvantel::help
