#include "catalogue/SettingsPaneTable.h"
#include "help/HelpWindow.h"
#include "markdown/MarkdownRenderer.h"
#include "markdown/TextRole.h"
#include "search/FrecencyStore.h"
#include "search/FuzzyScorer.h"
#include "settings/SettingsWindowController.h"
#include "shell/HelpStyle.h"
#include "support/FakeHotKeys.h"
#include "support/FakeLook.h"
#include "support/FakeScreens.h"
#include "support/FakeWindowActivator.h"
#include "support/FakeWindowFrame.h"
#include "support/ScriptedKeyCapture.h"

#include <QAccessible>
#include <QRegularExpression>
#include <QShortcut>
#include <QTemporaryDir>
#include <QTextBlock>

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace quorvantel {
namespace {

using namespace Qt::StringLiterals;

const QString linux = u"Linux"_s;
const QString macOS = u"macOS"_s;

help::HelpBundle bundle(const QString& system) {
    return help::HelpBundle(u":/help"_s, system);
}

const help::HelpContent& content() {
    static const help::HelpContent content = help::loadHelpContent(u"topics"_s, bundle(linux));
    return content;
}

/// A topic as it is shown on a system.
struct Topic : help::HelpTopic {
    QString system;

    QString markdown() const { return help::loadTopicText(*this, bundle(system)); }
    std::unique_ptr<QTextDocument> document() const {
        return markdown::renderMarkdown(markdown().toUtf8(), bundle(system).baseUrl(), {});
    }
};

std::vector<Topic> topics() {
    std::vector<Topic> topics;
    for (const QString& system : {linux, macOS}) {
        for (const help::HelpTopic& topic : content().topics) {
            topics.push_back({topic, system});
        }
    }
    return topics;
}

/// A run of characters in a topic.
struct TextRun {
    QString text;
    QTextCharFormat format;

    bool has(int role) const {
        return (format.intProperty(markdown::TextRole::property) & role) != 0;
    }
};

std::vector<TextRun> runs(const Topic& topic) {
    std::vector<TextRun> result;
    const auto text = topic.document();
    for (QTextBlock block = text->begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            result.push_back({it.fragment().text(), it.fragment().charFormat()});
        }
    }
    return result;
}

bool leadsToATopic(const QUrl& link, const QString& system) {
    for (const Topic& topic : topics()) {
        if (topic.markdownFile == link.path() && topic.system == system) {
            return !link.hasFragment() || std::ranges::any_of(runs(topic), [&](const TextRun& run) {
                return run.format.anchorNames().contains(link.fragment());
            });
        }
    }
    return false;
}

TEST(HelpTopics, AreAllThereUnderTheirTitles) {
    EXPECT_EQ(content().windowTitle, u"Quorvantel Help"_s);
    QSet<QString> identifiers;
    for (const Topic& topic : topics()) {
        identifiers.insert(topic.id);
        EXPECT_TRUE(bundle(linux).contains(topic.markdownFile)) << topic.id.toStdString();
        EXPECT_EQ(topic.document()->firstBlock().text(), topic.title);
        EXPECT_EQ(topic.document()->firstBlock().blockFormat().headingLevel(), 1);
    }
    EXPECT_EQ(static_cast<std::size_t>(identifiers.size()), content().topics.size());
}

TEST(HelpTopics, LeadAndShowWhereTheySay) {
    int links = 0;
    for (const Topic& topic : topics()) {
        for (const TextRun& run : runs(topic)) {
            const QString address = run.format.anchorHref();
            links += address.isEmpty() ? 0 : 1;
            EXPECT_TRUE(address.isEmpty() || leadsToATopic(QUrl(address), topic.system))
                << address.toStdString();
            EXPECT_FALSE(run.has(markdown::TextRole::missingImage)) << run.text.toStdString();
        }
    }
    EXPECT_GT(links, 10);
}

TEST(HelpTopics, TellOfOneSystemAlone) {
    const QHash<QString, QRegularExpression> foreign{
        {linux, QRegularExpression(u"<!--|Command|Option|Finder|launchd|Library/|[⌘⌥⇧⌃]\\w"_s)},
        {macOS,
         QRegularExpression(u"<!--|Super|Alt|Ctrl|X11|Wayland|GNOME|XDG|desktop|\\.config"_s)}};
    for (const Topic& topic : topics()) {
        // What the settings say of themselves is theirs to say.
        QString text = topic.markdown();
        text.remove(u"The button says ⌃⌥⌘Space"_s);
        EXPECT_EQ(foreign[topic.system].match(text).captured().toStdString(), "")
            << topic.system.toStdString() << topic.id.toStdString();
    }
}

/// What the topics say of the program, against the program.
class HelpTopicsTruth : public ::testing::Test {
protected:
    /// What the topic tells on each system.
    static QHash<QString, QString> texts(const QString& identifier) {
        QHash<QString, QString> texts;
        for (const Topic& topic : topics()) {
            if (topic.id == identifier) {
                texts.insert(topic.system, topic.document()->toPlainText());
            }
        }
        return texts;
    }

    /// The names of an object's parts, as a screen reader would speak them.
    static QStringList namesIn(QAccessibleInterface& object) {
        QStringList names{object.text(QAccessible::Name)};
        for (int i = 0; i < object.childCount(); ++i) {
            names << namesIn(*object.child(i));
        }
        return names;
    }

    static QSet<QKeySequence> shortcuts(const QWidget& window) {
        QSet<QKeySequence> keys;
        for (const QShortcut* const shortcut : window.findChildren<QShortcut*>()) {
            keys.insert(shortcut->key());
        }
        return keys;
    }

    QTemporaryDir directory;
    FrecencyStore frecency{directory.path()};
    LearnedAbbreviationStore learned{directory.path()};
    testing::FakeLook look;
    AppSettings settings{look.defaults};
    testing::FakeHotKeys hotKeys;
    HotKeyService hotKey{hotKeys};
    testing::ScriptedKeyCapture keyboard;
    testing::FakeWindowActivator activator;
    testing::FakeWindowFrame frame;
    testing::FakeScreens screens;
    SettingsWindowController settingsWindow{{settings, hotKey, look.manager, look.theme, look.icons,
                                             keyboard, activator, frame, screens, [] {}, [] {}}};
};

TEST_F(HelpTopicsTruth, TheHotKeyIsTheDefault) {
    const QString symbols = HotKeyBinding::defaultBinding().displayText();
    QString name = symbols;
    name.replace(u"⌃"_s, u"Ctrl+"_s).replace(u"⌥"_s, u"Alt+"_s);
    name.replace(u"⇧"_s, u"Shift+"_s).replace(u"⌘"_s, u"Super+"_s);
    for (const QString& topic : {u"first-steps"_s, u"hotkey"_s, u"keyboard"_s}) {
        EXPECT_TRUE(texts(topic)[linux].contains(name)) << topic.toStdString();
        EXPECT_TRUE(texts(topic)[macOS].contains(symbols)) << topic.toStdString();
    }
}

TEST_F(HelpTopicsTruth, WhatIsPrintedBoldIsAKeyOrInTheSettings) {
    const QRegularExpression keys(
        u"^((Ctrl|Alt|Shift|Super)\\+|[⌃⌥⇧⌘])*(Ctrl|Alt|Super|Tab|Space|Return|Escape|F[0-9]+|.)$"_s);
    settingsWindow.show(learned);
    const QStringList names =
        namesIn(*QAccessible::queryAccessibleInterface(settingsWindow.window()));
    for (const Topic& topic : topics()) {
        for (const TextRun& run : runs(topic)) {
            const bool isName = run.has(markdown::TextRole::strong) && !run.text.endsWith(u'.') &&
                                !keys.match(run.text).hasMatch();
            for (const QString& part : isName ? run.text.split(u" › "_s) : QStringList()) {
                EXPECT_TRUE(part == u"Settings"_s || !names.filter(part).isEmpty())
                    << part.toStdString();
            }
        }
    }
}

TEST_F(HelpTopicsTruth, TheKeysOfTheWindowsWork) {
    settingsWindow.show(learned);
    const help::HelpWindow helpWindow(content(), bundle(linux), {});
    const QHash<QString, QSet<QKeySequence>> windows{
        {u"## In the settings"_s, shortcuts(*settingsWindow.window())},
        {u"## In this window"_s, shortcuts(helpWindow)}};
    // The toolkit knows those of each system for help and for going back, which differ.
    const QRegularExpression standard(
        u"^(Tab|(Shift\\+|⇧)Tab|Space|Return|Escape|[↓↑]|(Ctrl\\+|⌘)C|⌘[\\[\\]?])$"_s);
    const QRegularExpression row(u"^\\| (?!Keys)([^ :]+)( (and|or) ([^ ]+))?( in the .*)? \\|"_s);
    QHash<QString, int> listed;
    for (const Topic& topic : topics()) {
        QString heading;
        for (const QString& line : topic.markdown().split(u'\n')) {
            heading = line.startsWith(u'#') ? line : heading;
            const QRegularExpressionMatch match = row.match(line);
            for (QString key : {match.captured(1), match.captured(4)}) {
                if (windows.contains(heading) && !key.isEmpty() &&
                    !standard.match(key).hasMatch()) {
                    key.replace(u'−', u'-').replace(u"←"_s, u"Left"_s).replace(u"→"_s, u"Right"_s);
                    key.replace(u"⌘"_s, u"Ctrl+"_s);
                    EXPECT_TRUE(windows[heading].contains(QKeySequence(key))) << key.toStdString();
                    ++listed[topic.system];
                }
            }
        }
    }
    EXPECT_EQ(listed[linux], 10);
    EXPECT_EQ(listed[macOS], 8);
}

TEST_F(HelpTopicsTruth, TheFilesAreThoseOfTheStores) {
    frecency.record(u"app"_s, 0);
    learned.learn(u"query"_s, u"app"_s, 0);
    const QStringList files = QDir(directory.path()).entryList(QDir::Files);
    EXPECT_EQ(files.size(), 2);
    for (const QString& file : files) {
        for (const QString& text : texts(u"privacy"_s)) {
            EXPECT_TRUE(text.contains(u"Quorvantel/" + file)) << file.toStdString();
        }
    }
}

TEST_F(HelpTopicsTruth, AWordOfItsNameFindsAPane) {
    for (const SettingsPaneRow& pane : settingsPaneTable()) {
        const QString name = pane.name.toString();
        EXPECT_TRUE(std::ranges::any_of(pane.keywords, [&](QStringView key) {
            return FuzzyScorer::score(name.section(u' ', 0, 0), key).has_value();
        })) << name.toStdString();
    }
}

TEST(HelpStyle, TextIsReadableInEveryPalette) {
    using testing::contrast;
    constexpr double readable = 4.5;
    for (const ColorScheme scheme : {ColorScheme::Light, ColorScheme::Dark}) {
        for (const ThemePreset preset : {ThemePreset::Graphite, ThemePreset::Teal, ThemePreset::Ink,
                                         ThemePreset::Paper, ThemePreset::Glass}) {
            const help::HelpStyle style = helpStyleFor(resolve(scheme, preset));
            for (const QColor& ground :
                 {style.background, style.sidebarBackground, style.selectionFill, style.hoverFill,
                  style.fieldBackground, style.tintedBackground}) {
                EXPECT_EQ(ground.alpha(), 255);
                EXPECT_GE(contrast(style.text, ground), readable);
                EXPECT_GE(contrast(style.secondaryText, ground), readable)
                    << ground.name().toStdString();
                EXPECT_GE(contrast(style.accent, ground), readable) << ground.name().toStdString();
            }
            EXPECT_GE(contrast(style.selectedText, style.accent), readable);
            EXPECT_GE(contrast(style.text, style.matchFill), readable);
        }
    }
}

} // namespace
} // namespace quorvantel
