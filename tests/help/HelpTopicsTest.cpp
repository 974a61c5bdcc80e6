#include "help/HelpContent.h"
#include "markdown/MarkdownRenderer.h"
#include "settings/HelpStyle.h"

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

/// The formats of all runs of characters in a topic.
std::vector<QTextCharFormat> formats(const help::HelpTopic& topic) {
    std::vector<QTextCharFormat> result;
    const auto text = document(topic);
    for (QTextBlock block = text->begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            result.push_back(it.fragment().charFormat());
        }
    }
    return result;
}

bool leadsToATopic(const QUrl& link) {
    for (const help::HelpTopic& topic : content().topics) {
        if (topic.markdownFile == link.path()) {
            return !link.hasFragment() ||
                   std::ranges::any_of(formats(topic), [&](const QTextCharFormat& format) {
                       return format.anchorNames().contains(link.fragment());
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

TEST(HelpTopics, LinkToTopicsThatExist) {
    int links = 0;
    for (const help::HelpTopic& topic : content().topics) {
        for (const QTextCharFormat& format : formats(topic)) {
            if (!format.anchorHref().isEmpty()) {
                ++links;
                EXPECT_TRUE(leadsToATopic(QUrl(format.anchorHref())))
                    << format.anchorHref().toStdString();
            }
        }
    }
    EXPECT_GT(links, 5);
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
