#pragma once

#include "catalogue/FakeBundleReader.h"
#include "catalogue/FakeSettingsPanels.h"
#include "catalogue/Listings.h"
#include "platform/Platform.h"
#include "support/FakeHotKeys.h"
#include "support/FakeLook.h"
#include "support/FakePanelHost.h"
#include "support/FakeScreens.h"
#include "support/FakeWindowActivator.h"
#include "support/FakeWindowFrame.h"
#include "support/MemoryDefaults.h"
#include "support/ScriptedKeyCapture.h"

namespace quorvantel::testing {

/// Applications that the test names; counts the scans.
class FakeApplications : public platform::InstalledApplications {
public:
    std::unique_ptr<Listing> list() const override {
        ++scans;
        std::vector<platform::InstalledApplication> applications;
        for (const QString& name : names) {
            platform::InstalledApplication& application = applications.emplace_back();
            application.location =
                QUrl::fromLocalFile(QStringLiteral("/apps/%1.desktop").arg(name));
            application.identifier = QStringLiteral("org.example.") + name;
            application.name = name;
            application.icon = platform::Image::iconTheme(QStringLiteral("missing"));
        }
        return std::make_unique<FakeListing>(std::move(applications), isEndless);
    }

    QStringList names;
    bool isEndless = false;
    mutable int scans = 0;
};

class FakeWorkspace : public platform::Workspace {
public:
    void openApplication(const QUrl& location, Completion completion) override {
        onOpen();
        opened << location.fileName();
        completions.push_back(std::move(completion));
    }
    bool openSettings(const QUrl& url) override {
        onOpen();
        opened << url.toString();
        return false;
    }

    std::function<void()> onOpen = [] {};
    QStringList opened;
    std::vector<Completion> completions;
};

class FakeClicks : public platform::ClickMonitor {
public:
    std::unique_ptr<Token> observe(std::function<void()> clickHandler) override {
        class Observation : public Token {
        public:
            explicit Observation(FakeClicks& clicks) : m_clicks(clicks) { ++m_clicks.observers; }
            ~Observation() override { --m_clicks.observers; }

        private:
            FakeClicks& m_clicks;
        };
        handler = std::move(clickHandler);
        return std::make_unique<Observation>(*this);
    }

    std::function<void()> handler;
    int observers = 0;
};

class FakeKeyboard : public platform::Keyboard {
public:
    QChar baseCharacter(const QKeyEvent& /*event*/) override { return {}; }
};

class FakeRequests : public platform::ApplicationRequests {
public:
    void receive(Handler /*handler*/) override {}
};

class FakeLoginItem : public platform::LoginItem {
public:
    bool isEnabled() const override { return enabled; }
    void setEnabled(bool isEnabled) override { enabled = isEnabled; }

    bool enabled = false;
};

class FakeDirectories : public platform::Directories {
public:
    QString applicationSupport() const override { return {}; }
};

class NoColorArchive : public platform::ColorArchive {
public:
    std::optional<platform::ColorComponents> decode(const QByteArray&) const override { return {}; }
};

/// A desktop that the test controls.
class FakePlatform : public platform::Platform {
public:
    platform::Directories& directories() override { return folders; }
    platform::UserDefaults& userDefaults() override { return defaults; }
    platform::ColorArchive& colorArchive() override { return archive; }
    platform::BundleReader& bundleReader() override { return bundles; }
    platform::InstalledApplications& installedApplications() override { return applications; }
    platform::SettingsPanels& settingsPanels() override { return panels; }
    platform::Workspace& workspace() override { return fakeWorkspace; }
    platform::GlobalHotKeys& globalHotKeys() override { return hotKeys; }
    platform::Keyboard& keyboard() override { return fakeKeyboard; }
    platform::ClickMonitor* clickMonitor() override { return &clicks; }
    platform::PanelHost& panelHost() override { return host; }
    platform::KeyCapture& keyCapture() override { return capture; }
    platform::WindowActivator& windowActivator() override { return activator; }
    platform::WindowFrame& windowFrame() override { return frame; }
    platform::Screens& screens() override { return fakeScreens; }
    platform::SystemAppearance& systemAppearance() override { return appearance; }
    platform::ImageLoader& imageLoader() override { return loader; }
    platform::ApplicationRequests& applicationRequests() override { return requests; }
    platform::LoginItem& loginItem() override { return item; }

    FakeDirectories folders;
    MemoryDefaults defaults;
    NoColorArchive archive;
    FakeBundleReader bundles;
    FakeApplications applications;
    FakeSettingsPanels panels;
    FakeWorkspace fakeWorkspace;
    FakeHotKeys hotKeys;
    FakeKeyboard fakeKeyboard;
    FakeClicks clicks;
    FakePanelHost host;
    ScriptedKeyCapture capture;
    FakeWindowActivator activator;
    FakeWindowFrame frame;
    FakeScreens fakeScreens;
    FakeSystemAppearance appearance;
    FakeImageLoader loader;
    FakeRequests requests;
    FakeLoginItem item;
};

} // namespace quorvantel::testing
