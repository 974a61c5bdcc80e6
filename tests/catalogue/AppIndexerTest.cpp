#include "catalogue/AppIndexer.h"

#include "catalogue/FakeBundleReader.h"
#include "catalogue/Listings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvantel {
namespace {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FakeInstalledApplications final : public platform::InstalledApplications {
public:
    std::unique_ptr<Listing> list() const override {
        return std::make_unique<testing::FakeListing>(applications);
    }

    std::vector<platform::InstalledApplication> applications;
};

platform::InstalledApplication installedApplication(const QString& identifier, const QString& name,
                                                    bool isBackgroundOnly = false) {
    platform::InstalledApplication application;
    application.location = QUrl::fromLocalFile(u"/usr/"_s + identifier);
    application.identifier = identifier;
    application.name = name;
    application.isBackgroundOnly = isBackgroundOnly;
    return application;
}

class AppIndexerTest : public ::testing::Test {
protected:
    void addBundle(const QString& path, const QString& identifier) {
        bundles.add({path, {{u"CFBundleIdentifier"_s, identifier}}, {}});
    }

    std::vector<LaunchTarget> scan() const {
        return AppIndexer(AppIndexer::standardRoots(u"/home/me"_s), u"org.example.Launcher"_s,
                          bundles, installed)
            .scan();
    }

    std::vector<QString> scannedFiles() const {
        std::vector<QString> files;
        for (const LaunchTarget& target : scan()) {
            files.push_back(std::get<LaunchTarget::App>(target.kind()).bundleUrl.toLocalFile());
        }
        return files;
    }

    FakeBundleReader bundles;
    FakeInstalledApplications installed;
};

TEST_F(AppIndexerTest, ListsTheFoldersByPrecedenceAndEachApplicationOnce) {
    addBundle(u"/home/me/Applications/Editor.app"_s, u"editor"_s);
    addBundle(u"/home/me/Applications/Zebra.app"_s, u"zebra"_s);
    addBundle(u"/home/me/Applications/Ant.app"_s, u"ant"_s);
    addBundle(u"/System/Applications/Utilities/Terminal.app"_s, u"terminal"_s);
    addBundle(u"/System/Applications/Editor.app"_s, u"editor"_s);
    addBundle(u"/Applications/Editor.app"_s, u"editor"_s);
    addBundle(u"/Applications/Copy of Editor.app"_s, u"editor"_s);
    addBundle(u"/Applications/Tools/Nested.app"_s, u"nested"_s);
    installed.applications = {installedApplication(u"zebra"_s, u"Zebra"_s),
                              installedApplication(u"browser"_s, u"Browser"_s)};
    EXPECT_THAT(scannedFiles(), ElementsAre(u"/Applications/Editor.app"_s,
                                            u"/System/Applications/Utilities/Terminal.app"_s,
                                            u"/home/me/Applications/Zebra.app"_s,
                                            u"/home/me/Applications/Ant.app"_s, u"/usr/browser"_s));
}

TEST_F(AppIndexerTest, KnowsABundleByItsExactExtension) {
    addBundle(u"/Applications/.Hidden.app"_s, u"hidden"_s);
    addBundle(u"/Applications/Loud.APP"_s, u"loud"_s);
    addBundle(u"/Applications/notes.txt"_s, u"text"_s);
    bundles.addUnreadable(u"/Applications/Broken.app"_s);
    EXPECT_THAT(scan(), IsEmpty());
}

TEST_F(AppIndexerTest, ReadsABundlesTypedValues) {
    const QString path = u"/Applications/Mail 100% #1.app"_s;
    bundles.add({path,
                 {{u"CFBundleIdentifier"_s, u"mail"_s}, {u"CFBundleName"_s, u"Mail"_s}},
                 u"Post.app"_s});
    bundles.add({u"/Applications/Number.app"_s, {{u"CFBundleIdentifier"_s, 7LL}}, {}});
    bundles.add({u"/Applications/Agent.app"_s,
                 {{u"CFBundleIdentifier"_s, u"agent"_s}, {u"LSBackgroundOnly"_s, u"Yes"_s}},
                 {}});
    bundles.add({u"/Applications/Untitled.app"_s,
                 {{u"CFBundleIdentifier"_s, u"untitled"_s}, {u"CFBundleName"_s, 3LL}},
                 {}});
    addBundle(u"/Applications/Launcher.app"_s, u"org.example.Launcher"_s);

    const std::vector<LaunchTarget> targets = scan();
    ASSERT_EQ(targets.size(), 2U);
    EXPECT_EQ(targets[0].id(), u"mail"_s);
    EXPECT_EQ(targets[0].displayName(), u"Post"_s);
    EXPECT_EQ(targets[0].searchKeys(), (QStringList{u"Post"_s, u"Mail"_s, u"Mail 100% #1"_s}));
    EXPECT_EQ(targets[0].icon(), platform::Image::file(path));
    const auto& app = std::get<LaunchTarget::App>(targets[0].kind());
    EXPECT_EQ(app.bundleUrl.toLocalFile(), path);
    EXPECT_EQ(app.bundleIdentifier, u"mail"_s);
    EXPECT_EQ(targets[1].searchKeys(), QStringList{u"Untitled"_s});
}

TEST_F(AppIndexerTest, LetsAHiddenEntryButNotABackgroundBundleStandBeforeOthers) {
    bundles.add({u"/Applications/Agent.app"_s,
                 {{u"CFBundleIdentifier"_s, u"agent"_s}, {u"LSBackgroundOnly"_s, true}},
                 {}});
    installed.applications = {
        installedApplication(u"viewer"_s, u"Viewer"_s, true),
        installedApplication(u"viewer"_s, u"Viewer"_s),
        installedApplication(u"agent"_s, u"Agent"_s),
        installedApplication(u"nameless"_s, {}),
        installedApplication(u"nameless"_s, u"Named"_s),
        installedApplication({}, u"Anonymous"_s),
        installedApplication(u"org.example.Launcher"_s, u"Launcher"_s),
    };
    installed.applications[2].secondaryNames = {u"Spy"_s};
    EXPECT_EQ(scan().front().searchKeys(), (QStringList{u"Agent"_s, u"·spy"_s}));
    EXPECT_THAT(scan(), ElementsAre(::testing::Property(&LaunchTarget::displayName, u"Agent"_s),
                                    ::testing::Property(&LaunchTarget::displayName, u"Named"_s)));
}

} // namespace
} // namespace quorvantel
