#include "help/HelpWindow.h"

#include "help/BundleFiles.h"
#include "help/HelpMenu.h"

#include <QAccessible>
#include <QApplication>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <QToolButton>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvantel::help {
namespace {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

HelpStyle style(int shade) {
    const QColor color(shade, shade, shade);
    return {color,   color,   color, Qt::red, Qt::red, Qt::red,
            Qt::red, Qt::red, color, color,   color,   Qt::yellow};
}

class HelpWindowTest : public ::testing::Test {
protected:
    HelpWindowTest() {
        m_files.write("topics.json", R"({"windowTitle": "My Help", "topics": [
            {"id": "a", "title": "Apples", "markdownFile": "a.md", "group": "Fruit"},
            {"id": "l", "title": "Long", "markdownFile": "l.md"},
            {"id": "p", "title": "Pears", "markdownFile": "p.md", "group": "Fruit"}]})");
        m_files.write(
            "a.md",
            "# Apples\n\nGreen. [pears](./p.md) [deep](l.md#deep) [web](https://example.org)\n");
        m_files.write(
            "l.md", "# Long\n\n[down](#deep)\n\n" + QByteArray("filler\n\n").repeated(200) +
                        "## Deep\n\nA crème brûlée.\n\n" + QByteArray("filler\n\n").repeated(200));
        m_files.write("p.md",
                      "# Pears\n\nGreen or yellow, like [others](a.md).\n\n![a pear](p.png)\n");
        QImage picture(30, 20, QImage::Format_RGB32);
        picture.fill(Qt::green);
        EXPECT_TRUE(picture.save(m_files.path() + u"/p.png"_s));
        m_menu.emplace(m_files.bundle(), u"topics"_s, style(250));
        m_menu->showHelp();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window()));
        window()->onOpenUrl = [this](const QUrl& url) { m_opened.push_back(url.toString()); };
    }

    HelpWindow* window() const { return m_menu->window(); }
    QLineEdit& field() const { return window()->browser()->sidebar().searchField(); }
    QListView& list() const { return window()->browser()->sidebar().list(); }
    TopicView& view() const { return window()->browser()->topicView(); }
    std::string topic() const { return window()->browser()->currentTopic().title.toStdString(); }

    std::vector<std::string> rows() const {
        std::vector<std::string> titles;
        for (int i = 0; i < list().model()->rowCount(); ++i) {
            titles.push_back(list().model()->index(i, 0).data().toString().toStdString());
        }
        return titles;
    }

    std::vector<std::string> marked() const {
        std::vector<std::string> words;
        for (const auto& selection : view().extraSelections()) {
            words.push_back(selection.cursor.selectedText().toStdString());
        }
        return words;
    }

    std::string selectedRow() const {
        const auto rows = list().selectionModel()->selectedIndexes();
        return rows.isEmpty() ? std::string() : rows.first().data().toString().toStdString();
    }

    void click(const QString& row, Qt::KeyboardModifiers modifiers = {}) const {
        const auto found = list().model()->match(list().model()->index(0, 0), Qt::DisplayRole, row);
        QTest::mouseClick(list().viewport(), Qt::LeftButton, modifiers,
                          list().visualRect(found.value(0)).center());
    }

    /// Clicks in the middle of a text of the topic.
    void clickText(const QString& text) const {
        QTextCursor cursor = view().document()->find(text);
        cursor.setPosition((cursor.selectionStart() + cursor.selectionEnd()) / 2);
        QTest::mouseClick(view().viewport(), Qt::LeftButton, {},
                          view().cursorRect(cursor).center());
    }

    static void press(int key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
    }

    BundleFiles m_files;
    std::optional<HelpMenu> m_menu;
    std::vector<QString> m_opened;
};

TEST_F(HelpWindowTest, ListsTheTopicsInTheirGroupsAndShowsTheFirst) {
    EXPECT_EQ(window()->windowTitle(), u"My Help"_s);
    EXPECT_TRUE(window()->isWindow());
    EXPECT_THAT(rows(), ElementsAre("Fruit", "Apples", "Pears", "Long"));
    EXPECT_EQ(topic(), "Apples");
    EXPECT_EQ(selectedRow(), "Apples");
    EXPECT_TRUE(view().toPlainText().startsWith(u"Apples\nGreen."_s));
    click(u"Fruit"_s);
    EXPECT_EQ(topic(), "Apples");
    click(u"Pears"_s);
    EXPECT_EQ(topic(), "Pears");
}

TEST_F(HelpWindowTest, SearchNarrowsMarksAndScrolls) {
    QTest::keyClicks(&field(), u"GREEN"_s);
    EXPECT_THAT(rows(), ElementsAre("Fruit", "Apples", "Pears"));
    EXPECT_EQ(topic(), "Apples");
    EXPECT_THAT(marked(), ElementsAre("Green"));

    field().setText(u"creme brul"_s);
    EXPECT_THAT(rows(), ElementsAre("Long"));
    EXPECT_EQ(topic(), "Long");
    EXPECT_EQ(selectedRow(), "Long");
    EXPECT_THAT(marked(), ElementsAre("crème", "brûl"));
    EXPECT_EQ(view().extraSelections().first().format.background().color(), QColor(Qt::yellow));
    const QVariant snippet = list().model()->index(0, 0).data(Qt::AccessibleDescriptionRole);
    EXPECT_EQ(snippet.toString().count(u"crème brûlée"_s), 1);
    const QRect place = view().cursorRect(view().extraSelections().first().cursor);
    EXPECT_TRUE(view().viewport()->rect().contains(place));

    press(Qt::Key_Escape);
    EXPECT_THAT(rows(), ElementsAre("Fruit", "Apples", "Pears", "Long"));
    EXPECT_EQ(topic(), "Long");
    EXPECT_THAT(marked(), IsEmpty());
}

TEST_F(HelpWindowTest, SearchThatFindsNothingSaysSoAndKeepsTheTopic) {
    QTest::keyClicks(&field(), u"green"_s);
    EXPECT_THAT(marked(), ElementsAre("Green"));
    QTest::keyClicks(&field(), u" zebra"_s);
    EXPECT_FALSE(list().isVisible());
    const auto labels = window()->findChildren<QLabel*>();
    EXPECT_TRUE(std::ranges::any_of(labels, [](const QLabel* label) {
        return label->isVisible() && label->text() == u"No topic matches “green zebra”."_s;
    }));
    EXPECT_EQ(topic(), "Apples");
    EXPECT_THAT(marked(), IsEmpty());
    field().clear();
    EXPECT_TRUE(list().isVisible());
    EXPECT_EQ(selectedRow(), "Apples");
}

TEST_F(HelpWindowTest, TheListAndTheTextStayTogether) {
    field().setText(u"yellow"_s);
    clickText(u"others"_s);
    EXPECT_EQ(topic(), "Apples");
    EXPECT_EQ(selectedRow(), "");
    const QPointer<QTextDocument> apples = view().document();
    click(u"Pears"_s);
    EXPECT_TRUE(apples.isNull()) << "no document outlives its showing";
    EXPECT_EQ(topic(), "Pears");
    click(u"Pears"_s, Qt::ControlModifier);
    EXPECT_EQ(selectedRow(), "Pears");
}

TEST_F(HelpWindowTest, LinksOpenTopicsAndNothingButTheWebElsewhere) {
    clickText(u"pears"_s);
    EXPECT_EQ(topic(), "Pears");
    click(u"Apples"_s);
    clickText(u"deep"_s);
    EXPECT_EQ(topic(), "Long");
    EXPECT_GT(view().verticalScrollBar()->value(), 1000);
    EXPECT_THAT(m_opened, IsEmpty());
    click(u"Apples"_s);
    clickText(u"web"_s);
    EXPECT_THAT(m_opened, ElementsAre(u"https://example.org"_s));
    m_opened.clear();
    for (const char* const link : {"file:///etc/hostname", "javascript:x", "//host/p.md", "none.md",
                                   "../p.md", "ftp://example.org"}) {
        Q_EMIT view().anchorClicked(QUrl(QString::fromUtf8(link)));
        EXPECT_EQ(topic(), "Apples") << link;
        EXPECT_THAT(m_opened, IsEmpty()) << link;
    }
}

TEST_F(HelpWindowTest, BackAndForwardGoWhereTheReaderWas) {
    const auto goTo = [this](Qt::Key arrow) {
        press(arrow, Qt::AltModifier);
        return topic();
    };
    click(u"Long"_s);
    view().verticalScrollBar()->setValue(700);
    click(u"Pears"_s);
    EXPECT_EQ(goTo(Qt::Key_Left), "Long");
    EXPECT_EQ(view().verticalScrollBar()->value(), 700);
    EXPECT_EQ(selectedRow(), "Long");
    view().verticalScrollBar()->setValue(900);
    EXPECT_EQ(goTo(Qt::Key_Left), "Apples");
    EXPECT_EQ(goTo(Qt::Key_Left), "Apples");
    EXPECT_EQ(goTo(Qt::Key_Right), "Long");
    EXPECT_EQ(view().verticalScrollBar()->value(), 900);
    EXPECT_EQ(goTo(Qt::Key_Right), "Pears");

    // A topic that a search showed has been visited once the reader leaves it.
    field().setText(u"brûlée"_s);
    EXPECT_EQ(goTo(Qt::Key_Left), "Pears");
    field().setText(u"brûlé"_s);
    field().clear();
    click(u"Apples"_s);
    EXPECT_EQ(goTo(Qt::Key_Left), "Long");
    EXPECT_EQ(goTo(Qt::Key_Left), "Pears");

    // Links lead to places within a topic, too.
    click(u"Long"_s);
    clickText(u"down"_s);
    const int deep = view().verticalScrollBar()->value();
    EXPECT_GT(deep, 1000);
    EXPECT_EQ(goTo(Qt::Key_Left), "Long");
    EXPECT_EQ(view().verticalScrollBar()->value(), 0);
    EXPECT_EQ(goTo(Qt::Key_Right), "Long");
    EXPECT_EQ(view().verticalScrollBar()->value(), deep);
}

TEST_F(HelpWindowTest, ArrowsInTheSearchFieldMoveFromTopicToTopic) {
    const std::pair<Qt::Key, const char*> steps[] = {
        {Qt::Key_Down, "Pears"}, {Qt::Key_Down, "Long"}, {Qt::Key_Down, "Long"},
        {Qt::Key_Up, "Pears"},   {Qt::Key_Up, "Apples"}, {Qt::Key_Up, "Apples"}};
    for (const auto& [key, expected] : steps) {
        press(key);
        EXPECT_EQ(topic(), expected);
    }
    EXPECT_TRUE(field().hasFocus());
    press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(window()->isVisible());
}

TEST_F(HelpWindowTest, KeysLeadFromTheSearchToALinkAndButtonsBackAndForward) {
    const auto click = [this](const QString& name) {
        const auto buttons = window()->findChildren<QToolButton*>();
        const auto button = std::ranges::find(buttons, name, &QWidget::accessibleName);
        QTest::mouseClick(*button, Qt::LeftButton);
        return topic();
    };
    QTest::keyClicks(&field(), u"yellow"_s);
    press(Qt::Key_Return);
    press(Qt::Key_Tab);
    press(Qt::Key_Return);
    EXPECT_EQ(topic(), "Apples");
    EXPECT_EQ(click(u"Back"_s), "Pears");
    EXPECT_EQ(click(u"Forward"_s), "Apples");
    EXPECT_EQ(click(u"Back"_s), "Pears");
    EXPECT_FALSE(field().hasFocus());
    press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(field().hasFocus());
}

TEST_F(HelpWindowTest, TextGrowsAndShrinksAndFollowsTheSystem) {
    const auto size = [this] {
        return view().document()->lastBlock().begin().fragment().charFormat().font().pointSizeF();
    };
    const double normal = size();
    press(Qt::Key_Plus, Qt::ControlModifier);
    press(Qt::Key_Equal, Qt::ControlModifier);
    EXPECT_NEAR(size(), normal * 1.21, 0.01);
    press(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_NEAR(size(), normal * 1.1, 0.01);
    press(Qt::Key_0, Qt::ControlModifier);
    EXPECT_NEAR(size(), normal, 0.01);

    const QFont before = QApplication::font();
    QFont larger = before;
    larger.setPointSizeF(normal * 2);
    QApplication::setFont(larger);
    QCoreApplication::processEvents();
    EXPECT_NEAR(size(), normal * 2, 0.01);
    QApplication::setFont(before);
}

TEST_F(HelpWindowTest, ANewStyleLeavesReadingAlone) {
    click(u"Long"_s);
    view().verticalScrollBar()->setValue(2345);
    QTextCursor selection(view().document());
    selection.setPosition(3);
    selection.setPosition(20, QTextCursor::KeepAnchor);
    view().setTextCursor(selection);
    view().verticalScrollBar()->setValue(2345);
    const QString selected = view().textCursor().selectedText();

    m_menu->setStyle(style(20));

    EXPECT_EQ(view().verticalScrollBar()->value(), 2345);
    EXPECT_EQ(view().textCursor().selectedText(), selected);
    EXPECT_EQ(window()->grab().toImage().pixelColor(window()->width() - 30, 30),
              QColor(20, 20, 20));
    for (QWidget* const owner : {static_cast<QWidget*>(&field()), view().viewport()}) {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, owner->mapToGlobal(QPoint()));
        QApplication::sendEvent(owner, &event);
        QWidget* const menu = QApplication::activePopupWidget();
        ASSERT_NE(menu, nullptr);
        EXPECT_EQ(menu->grab().toImage().pixelColor(menu->width() - 8, 8).lightness() / 8, 20 / 8);
        menu->close();
    }
}

/// Everything without a name below an object that a reader should name, such as a button.
QStringList nameless(QAccessibleInterface& object) {
    QStringList found;
    for (int i = 0; i < object.childCount(); ++i) {
        QAccessibleInterface& child = *object.child(i);
        static const QSet named{QAccessible::Button, QAccessible::EditableText, QAccessible::List,
                                QAccessible::ListItem, QAccessible::Graphic};
        if (named.contains(child.role()) && child.text(QAccessible::Name).isEmpty()) {
            found << QDebug::toString(child.role());
        }
        found << nameless(child);
    }
    return found;
}

TEST_F(HelpWindowTest, ReadersMeetAFrameAndNamesForAllThatIsInIt) {
    const auto accessible = [](QObject& object) {
        return QAccessible::queryAccessibleInterface(&object);
    };
    EXPECT_EQ(accessible(*window())->role(), QAccessible::Window);
    EXPECT_EQ(nameless(*accessible(*window())).join(u' ').toStdString(), "");

    EXPECT_EQ(accessible(view())->textInterface()->text(0, 6), u"Apples"_s);
    QAccessibleInterface& page = *accessible(*view().viewport());
    EXPECT_EQ(page.childCount(), 0);
    click(u"Pears"_s);
    ASSERT_EQ(page.childCount(), 1);
    QAccessibleInterface& picture = *page.child(0);
    EXPECT_EQ(picture.role(), QAccessible::Graphic);
    EXPECT_EQ(picture.text(QAccessible::Name), u"a pear"_s);
    EXPECT_EQ(picture.rect().size(), QSize(30, 20));
    EXPECT_EQ(page.childAt(picture.rect().center().x(), picture.rect().center().y()), &picture);
    EXPECT_EQ(page.indexOfChild(&picture), 0);
}

TEST_F(HelpWindowTest, TheMenuKeepsItsWindow) {
    click(u"Long"_s);
    view().verticalScrollBar()->setValue(700);
    HelpWindow* const first = window();
    first->close();
    EXPECT_TRUE(view().document()->isEmpty());
    QCoreApplication::processEvents();
    EXPECT_EQ(first->windowHandle(), nullptr);
    m_menu->setStyle(style(20));
    m_menu->showHelp();
    EXPECT_EQ(window(), first);
    EXPECT_TRUE(QTest::qWaitForWindowActive(first));
    EXPECT_EQ(topic(), "Long");
    EXPECT_EQ(view().verticalScrollBar()->value(), 700);
    EXPECT_FALSE(view().document()->isEmpty());
}

TEST(HelpWindowWithoutContent, SaysSo) {
    const BundleFiles files;
    files.write("empty.json", R"({"windowTitle": "T", "topics": []})");
    for (const char* const name : {"missing", "empty"}) {
        HelpMenu menu(files.bundle(), QString::fromUtf8(name), style(250));
        menu.showHelp();
        const auto* const label = menu.window()->findChild<QLabel*>();
        ASSERT_NE(label, nullptr);
        EXPECT_EQ(label->text(), u"This app hasn't provided any help content yet."_s);
        EXPECT_TRUE(label->isVisible());
        EXPECT_EQ(menu.window()->browser(), nullptr);
        menu.setStyle(style(20));
    }
}

} // namespace
} // namespace quorvantel::help
