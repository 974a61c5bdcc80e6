#include "catalogue/SettingsPaneTable.h"
#include "help/HelpWindow.h"
#include "markdown/MarkdownRenderer.h"
#include "markdown/TextRole.h"
#include "search/FrecencyStore.h"
#include "search/FuzzyScorer.h"
#include "settings/HelpStyle.h"
#include "settings/SettingsWindowController.h"
#include "support/FakeLook.h"
#include "support/FakeWindowActivator.h"
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

const help::HelpBundle& bundle() {
    static const help::HelpBundle bundle(u":/help"_s);
    return bundle;
}

const help::HelpContent& content() {
    static const help::HelpContent content = help::loadHelpContent(u"topics"_s, bundle());
    return content;
}

std::unique_ptr<QTextDocument> document(const help::HelpTopic& topic) {
    return markdown::renderMarkdown(help::loadTopicText(topic, bundle()).toUtf8(),
                                    bundle().baseUrl(), {});
}

/// A run of characters in a topic.
struct TextRun {
    QString text;
    QTextCharFormat format;

    bool has(int role) const {
        return (format.intProperty(markdown::TextRole::property) & role) != 0;
    }
};

std::vector<TextRun> runs(const help::HelpTopic& topic) {
    std::vector<TextRun> result;
    const auto text = document(topic);
    for (QTextBlock block = text->begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            result.push_back({it.fragment().text(), it.fragment().charFormat()});
        }
    }
    return result;
}

bool leadsToATopic(const QUrl& link) {
    for (const help::HelpTopic& topic : content().topics) {
        if (topic.markdownFile == link.path()) {
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
    for (const help::HelpTopic& topic : content().topics) {
        identifiers.insert(topic.id);
        EXPECT_TRUE(bundle().contains(topic.markdownFile)) << topic.id.toStdString();
        EXPECT_EQ(document(topic)->firstBlock().text(), topic.title);
        EXPECT_EQ(document(topic)->firstBlock().blockFormat().headingLevel(), 1);
    }
    EXPECT_EQ(static_cast<std::size_t>(identifiers.size()), content().topics.size());
}

TEST(HelpTopics, LeadAndShowWhereTheySay) {
    int links = 0;
    for (const help::HelpTopic& topic : content().topics) {
        for (const TextRun& run : runs(topic)) {
            const QString address = run.format.anchorHref();
            links += address.isEmpty() ? 0 : 1;
            EXPECT_TRUE(address.isEmpty() || leadsToATopic(QUrl(address))) << address.toStdString();
            EXPECT_FALSE(run.has(markdown::TextRole::missingImage)) << run.text.toStdString();
        }
    }
    EXPECT_GT(links, 5);
}

/// What the topics say of the program, against the program.
class HelpTopicsTruth : public ::testing::Test {
protected:
    static QString text(const QString& identifier) {
        const auto topic = std::ranges::find(content().topics, identifier, &help::HelpTopic::id);
        return document(*topic)->toPlainText();
    }

    static QStringList namesIn(QAccessibleInterface& object) {
        QStringList names{object.text(QAccessible::Name)};
        for (int i = 0; i < object.childCount(); ++i) {
            names << namesIn(*object.child(i));
        }
        return names;
    }

    QStringList namesInSettings() {
        settingsWindow.show(learned);
        QStringList names;
        for (const SettingsSection section : allSettingsSections) {
            settingsWindow.window()->select(section);
            names << namesIn(*QAccessible::queryAccessibleInterface(settingsWindow.window()));
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
    HotKeyActivity activity;
    testing::ScriptedKeyCapture keyboard;
    testing::FakeWindowActivator activator;
    SettingsWindowController settingsWindow{
        {settings, activity, look.manager, look.theme, look.icons, keyboard, activator, [] {}}};
};

TEST_F(HelpTopicsTruth, TheHotKeyIsTheDefault) {
    const HotKeyBinding binding = HotKeyBinding::defaultBinding();
    QString name;
    for (const auto& [modifier, key] :
         {std::pair(HotKeyModifier::control, "Ctrl+"), std::pair(HotKeyModifier::option, "Alt+"),
          std::pair(HotKeyModifier::shift, "Shift+"),
          std::pair(HotKeyModifier::command, "Super+")}) {
        name += (binding.modifiers & modifier) != 0 ? QLatin1StringView(key) : QLatin1StringView();
    }
    name += virtualKeyName(binding.keyCode);
    for (const QString& topic : {u"first-steps"_s, u"hotkey"_s, u"keyboard"_s}) {
        EXPECT_TRUE(text(topic).contains(name)) << topic.toStdString();
    }
}

TEST_F(HelpTopicsTruth, WhatIsPrintedBoldIsAKeyOrInTheSettings) {
    const QRegularExpression keys(
        u"^(Ctrl\\+|Alt\\+|Shift\\+|Super\\+)*(Ctrl|Alt|Super|Tab|Space|Return|Escape|F[0-9]+|.)$"_s);
    const QStringList names = namesInSettings();
    for (const help::HelpTopic& topic : content().topics) {
        for (const TextRun& run : runs(topic)) {
            if (!run.has(markdown::TextRole::strong) || run.text.endsWith(u'.') ||
                keys.match(run.text).hasMatch()) {
                continue;
            }
            for (const QString& part : run.text.split(u" › "_s)) {
                EXPECT_TRUE(part == u"Settings"_s || !names.filter(part).isEmpty())
                    << part.toStdString();
            }
        }
    }
}

TEST_F(HelpTopicsTruth, TheKeysOfTheWindowsWork) {
    settingsWindow.show(learned);
    const help::HelpWindow helpWindow(content(), bundle(), {});
    const QSet settingsKeys = shortcuts(*settingsWindow.window());
    const QSet helpKeys = shortcuts(helpWindow);
    // What works in any window, and has no shortcut of its own.
    const QSet standard{u"Tab"_s, u"Shift+Tab"_s, u"Space"_s,  u"Return"_s,
                        u"Up"_s,  u"Down"_s,      u"Escape"_s, u"Ctrl+C"_s};
    int listed = 0;
    const QSet<QKeySequence>* section = nullptr;
    const QString keyboardTopic = help::loadTopicText(content().topics[2], bundle());
    for (const QString& line : keyboardTopic.split(u'\n')) {
        if (line.startsWith(u"## "_s)) {
            section = line.endsWith(u"settings"_s)      ? &settingsKeys
                      : line.endsWith(u"this window"_s) ? &helpKeys
                                                        : nullptr;
        }
        if (section == nullptr || !line.startsWith(u"| "_s) || line.startsWith(u"| Keys"_s)) {
            continue;
        }
        QString keys = line.section(u'|', 1, 1).section(u" in "_s, 0, 0).simplified();
        keys.replace(u'−', u'-').replace(u"←"_s, u"Left"_s).replace(u"→"_s, u"Right"_s);
        keys.replace(u"↓"_s, u"Down"_s).replace(u"↑"_s, u"Up"_s);
        for (const QString& key : keys.split(u" and "_s)) {
            ++listed;
            EXPECT_TRUE(standard.contains(key) || section->contains(QKeySequence(key)))
                << key.toStdString();
        }
    }
    EXPECT_GT(listed, 15);
}

TEST_F(HelpTopicsTruth, TheFilesAreThoseOfTheStores) {
    frecency.record(u"app"_s, 0);
    learned.learn(u"query"_s, u"app"_s, 0);
    const QStringList files = QDir(directory.path()).entryList(QDir::Files);
    EXPECT_EQ(files.size(), 2);
    for (const QString& file : files) {
        EXPECT_TRUE(text(u"privacy"_s).contains(u"Quorvantel/" + file)) << file.toStdString();
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

/// Relative luminance and contrast as in the Web Content Accessibility Guidelines 2.1.
double luminance(const QColor& color) {
    const auto linear = [](double value) {
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

double contrast(const QColor& one, const QColor& other) {
    const double lighter = std::max(luminance(one), luminance(other));
    const double darker = std::min(luminance(one), luminance(other));
    return (lighter + 0.05) / (darker + 0.05);
}

TEST(HelpStyle, TextIsReadableInEveryPalette) {
    constexpr double readable = 4.5;
    for (const ColorScheme scheme : {ColorScheme::Light, ColorScheme::Dark}) {
        for (const ThemePreset preset : {ThemePreset::Graphite, ThemePreset::Teal, ThemePreset::Ink,
                                         ThemePreset::Paper, ThemePreset::Glass}) {
            const help::HelpStyle style = helpStyleFor(resolve(scheme, preset));
            for (const QColor& ground :
                 {style.background, style.sidebarBackground, style.selectionFill,
                  style.fieldBackground, style.tintedBackground}) {
                EXPECT_EQ(ground.alpha(), 255);
                EXPECT_GE(contrast(style.text, ground), readable);
                EXPECT_GE(contrast(style.secondaryText, ground), readable)
                    << ground.name().toStdString();
            }
            EXPECT_GE(contrast(style.accent, style.background), readable);
            EXPECT_GE(contrast(style.text, style.matchFill), readable);
        }
    }
}

} // namespace
} // namespace quorvantel
