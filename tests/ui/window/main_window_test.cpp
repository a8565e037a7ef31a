// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/ui/window/window_fixture.h"
#include "ui/icon.h"
#include "ui/theme/theme.h"
#include "ui/window/category_button.h"
#include "ui/window/status_item.h"
#include "ui/window/transformation_button.h"
#include "ui/window/transformation_list.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QTranslator>

#include <algorithm>
#include <cstdlib>
#include <tuple>

namespace lexivore {
namespace {

class MainWindow : public WindowTest {
protected:
    [[nodiscard]] QStringList listed() {
        QStringList names;
        for (const TransformationPointer &transformation : manager().transformations()) {
            const QString name = "transformation." + QString::fromStdString(transformation->id());
            if (isShown(name)) {
                names << QString::fromStdString(transformation->name());
            }
        }
        return names;
    }
    /// Whether the symbol is drawn anywhere on the widget in this size and colour, and nothing of the colour around it.
    [[nodiscard]] static bool shows(QWidget *widget, const char *symbol, int size, const QColor &colour) {
        const QImage drawn = pictureOf(widget).convertToFormat(QImage::Format_ARGB32);
        const QImage ink = symbolPixmap(symbol, size, colour, 1).toImage().convertToFormat(QImage::Format_ARGB32);
        // On a ground of its own only what covers the ground has the colour.
        const auto isSame = [&](QRgb pixel, QRgb wanted, bool hasGround) {
            return hasGround
                       ? (qAlpha(wanted) != 255 || pixel == wanted) && (qAlpha(wanted) != 0 || pixel != colour.rgba())
                       : std::abs(qAlpha(pixel) - qAlpha(wanted)) <= 2;
        };
        const auto isHere = [&](QPoint place, bool hasGround) {
            for (int y = 0; y < size; ++y) {
                for (int x = 0; x < size; ++x) {
                    if (!isSame(drawn.pixel(place + QPoint(x, y)), ink.pixel(x, y), hasGround)) {
                        return false;
                    }
                }
            }
            return true;
        };
        const bool hasGround = qAlpha(drawn.pixel(drawn.width() / 2, 1)) > 0;
        for (int y = 0; y + size <= drawn.height(); ++y) {
            for (int x = 0; x + size <= drawn.width(); ++x) {
                if (isHere({x, y}, hasGround)) {
                    return true;
                }
            }
        }
        return false;
    }
    [[nodiscard]] QString header() { return find<QLabel>("listHeader")->text(); }
    void search(const QString &text) {
        find("search")->setFocus();
        find<QLineEdit>("search")->selectAll();
        press(Qt::Key_Delete);
        type(text);
    }
};

TEST_F(MainWindow, ACategoryListsItsTransformationsInCatalogOrder) {
    click("category.Sorting");
    EXPECT_EQ(listed(), (QStringList{"Sort Lines Alphabetically", "Sort Lines (Reverse)", "Sort Lines by Length",
                                     "Shuffle Lines", "Sort Words Alphabetically", "Reverse Words in Line"}));
    EXPECT_TRUE(find<CategoryButton>("category.Sorting")->isSelected());
    EXPECT_FALSE(find<CategoryButton>("category.Case Conversion")->isSelected());
    EXPECT_EQ(header(), "Transformations");
}

TEST_F(MainWindow, WithoutACategoryTheListAsksForOne) {
    state().setSelectedCategory(std::nullopt);
    EXPECT_TRUE(listed().isEmpty());
    EXPECT_EQ(find("listEmptyState")->accessibleName(), "Select a category");
    EXPECT_TRUE(isShown("listEmptyState"));
    state().setSelectedCategory(TransformationCategory::favorites);
    EXPECT_EQ(find("listEmptyState")->accessibleName(), "No results");
    EXPECT_TRUE(isShown("listEmptyState"));
}

TEST_F(MainWindow, TheSearchLooksInNamesAndDescriptionsOfAllCategories) {
    search("whitespace");
    EXPECT_EQ(header(), "Search Results");
    EXPECT_EQ(listed(), (QStringList{"Remove Extra Whitespace", "Trim Lines"}));
    const QStringList small = listed();
    search("WHITESPACE");
    EXPECT_EQ(listed(), small);
    search("rot13");
    EXPECT_TRUE(listed().isEmpty());
    EXPECT_EQ(find("listEmptyState")->accessibleName(), "No results");
}

TEST_F(MainWindow, TheSearchIgnoresTheCaseOfEveryLetter) {
    QTranslator german;
    ASSERT_TRUE(german.load("lexivore_de", ":/translations"));
    QCoreApplication::installTranslator(&german);
    restart();
    for (const auto &[small, capital] : {std::pair("außer", "AUSSER"), std::pair("außer", "AUẞER"),
                                         std::pair("leerzeichen", "LEERZEICHEN"), std::pair("kürzen", "KÜRZEN")}) {
        find<QLineEdit>("search")->setText(small);
        const QStringList expected = listed();
        EXPECT_FALSE(expected.isEmpty()) << small;
        find<QLineEdit>("search")->setText(capital);
        EXPECT_EQ(listed(), expected) << capital;
    }
    QCoreApplication::removeTranslator(&german);
}

TEST_F(MainWindow, EscapeAndTheClearButtonEmptyTheSearch) {
    search("trim");
    press(Qt::Key_Escape);
    EXPECT_EQ(state().searchText(), "");
    search("trim");
    QAction *clear = window().findChild<QAction *>("clearSearch");
    ASSERT_TRUE(clear->isVisible());
    clear->trigger();
    EXPECT_EQ(state().searchText(), "");
    EXPECT_FALSE(clear->isVisible());
}

TEST_F(MainWindow, ReturnInTheSearchAppliesTheFirstHitAndDownEntersTheList) {
    setText(" a ");
    choose("SearchTransformations");
    EXPECT_TRUE(find("search")->hasFocus());
    type("trim lines");
    press(Qt::Key_Return);
    EXPECT_EQ(text(), "a");
    press(Qt::Key_Down);
    EXPECT_TRUE(find("transformation.trim-lines")->hasFocus());
    press(Qt::Key_Up);
    EXPECT_TRUE(find("search")->hasFocus());
}

TEST_F(MainWindow, TheStarMarksAFavoriteThatStaysWithItsCategory) {
    auto *row = find<TransformationButton>("transformation.lowercase");
    row->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Right);
    press(Qt::Key_Space);
    EXPECT_TRUE(manager().favorites().contains("lowercase"));
    EXPECT_TRUE(row->isFavorite());
    click("category.Favorites");
    EXPECT_EQ(listed(), QStringList{"lowercase"});
    EXPECT_TRUE(row->findChild<QWidget *>("star")->isVisible());
    EXPECT_TRUE(text().empty());
}

TEST_F(MainWindow, TheStarShowsAfterTheMouseHasRested) {
    auto *row = find<TransformationButton>("transformation.lowercase");
    auto *star = row->findChild<QWidget *>("star");
    QTest::mouseMove(row, row->rect().center());
    QEnterEvent enter(QPointF(5, 5), QPointF(5, 5), QPointF(5, 5));
    QCoreApplication::sendEvent(row, &enter);
    EXPECT_FALSE(star->isVisible());
    EXPECT_TRUE(QTest::qWaitFor([&] { return star->isVisible(); }, 3000));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(row, &leave);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !star->isVisible(); }, 3000));
    EXPECT_TRUE(QTest::qWaitFor([&] { return row->chevronOffset() == 0; }, 3000));
}

TEST_F(MainWindow, TheHeaderFoldsTheCategories) {
    click("categoriesHeader");
    EXPECT_FALSE(state().showCategories());
    EXPECT_TRUE(QTest::qWaitFor([this] { return !isShown("categories"); }));
    click("categoriesHeader");
    EXPECT_TRUE(QTest::qWaitFor([this] { return isShown("category.Lines"); }));
}

TEST_F(MainWindow, TheSearchIsReachedByKeyFromTheEditor) {
    setText("kept");
    for (const auto &[key, modifiers] : {std::pair(Qt::Key_K, Qt::KeyboardModifiers(Qt::ControlModifier)),
                                         std::pair(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier)}) {
        focusEditor();
        press(key, modifiers);
        EXPECT_TRUE(find("search")->hasFocus());
        EXPECT_EQ(text(), "kept");
    }
}

TEST_F(MainWindow, CategoriesAreOneStopOfTheTabKey) {
    find("category.Case Conversion")->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Down);
    EXPECT_TRUE(find("category.Add & Remove")->hasFocus());
    press(Qt::Key_End);
    EXPECT_TRUE(find("category.Encoding")->hasFocus());
    press(Qt::Key_Home);
    EXPECT_TRUE(find("category.Favorites")->hasFocus());
    press(Qt::Key_Return);
    EXPECT_EQ(state().selectedCategory(), TransformationCategory::favorites);
    press(Qt::Key_Tab);
    EXPECT_TRUE(find("search")->hasFocus());
}

TEST_F(MainWindow, APageTakesTheFocusAlong) {
    find<QLineEdit>("search")->setText("e");
    find("search")->setFocus();
    QCoreApplication::processEvents(); // until the rows have their places
    press(Qt::Key_Down);
    const QWidget *first = QApplication::focusWidget();
    press(Qt::Key_PageDown);
    const QWidget *second = QApplication::focusWidget();
    EXPECT_GT(second->y(), first->y() + 2 * first->height());
    EXPECT_EQ(second->visibleRegion().boundingRect(), second->rect());
    press(Qt::Key_PageDown);
    EXPECT_EQ(QApplication::focusWidget()->y(), 2 * second->y() - first->y());
    press(Qt::Key_PageUp);
    EXPECT_EQ(QApplication::focusWidget(), second);
    press(Qt::Key_PageUp);
    EXPECT_EQ(QApplication::focusWidget(), first);
    press(Qt::Key_PageUp);
    EXPECT_EQ(QApplication::focusWidget(), first);
    press(Qt::Key_End);
    const QWidget *last = QApplication::focusWidget();
    EXPECT_EQ(last->visibleRegion().boundingRect(), last->rect());
    press(Qt::Key_PageDown);
    EXPECT_EQ(QApplication::focusWidget(), last);
}

TEST_F(MainWindow, TabFollowsTheLayout) {
    setText("x");
    useStackMode();
    click("transformation.uppercase");
    click("transformation.lowercase");
    find("paste")->setFocus(Qt::TabFocusReason);
    QStringList visited;
    for (int i = 0; i < 40 && visited.indexOf("paste") != 0; ++i) {
        const bool isEditor = QApplication::focusWidget() == find("editor");
        press(Qt::Key_Tab, isEditor ? Qt::ControlModifier : Qt::NoModifier);
        visited.prepend(QApplication::focusWidget()->objectName());
    }
    std::reverse(visited.begin(), visited.end());
    EXPECT_EQ(visited.join(' ').toStdString(),
              "copy clearText recipes saveRecipe clearOperations toggleOperations categoriesHeader "
              "category.Case Conversion search transformation.uppercase editor editorSettings modeSwitch pause "
              "operation.0 paste");
}

TEST_F(MainWindow, TabStaysInTheEditorAndCtrlTabLeavesIt) {
    focusEditor();
    press(Qt::Key_Tab);
    EXPECT_EQ(text(), "\t");
    press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_FALSE(find("editor")->hasFocus());
    focusEditor();
    press(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_FALSE(find("editor")->hasFocus());
}

TEST_F(MainWindow, TheStatusBarCountsTheTextAndFollowsTheCaret) {
    setText("one two\nthree \xF0\x9F\x91\xA8\xE2\x80\x8D\xF0\x9F\x91\xA9\xE2\x80\x8D\xF0\x9F\x91\xA7\n");
    EXPECT_EQ(find<StatusItem>("characterCount")->text(), "16");
    EXPECT_EQ(find<StatusItem>("wordCount")->text(), "4");
    EXPECT_EQ(find<StatusItem>("lineCount")->text(), "3");
    focusEditor();
    press(Qt::Key_Down);
    press(Qt::Key_End);
    EXPECT_EQ(find<StatusItem>("cursorPosition")->text(), "Ln 2, Col 8");
    const std::pair<const char *, const char *> helps[] = {{"cursorPosition", "Current cursor position"},
                                                           {"characterCount", "Total characters"},
                                                           {"wordCount", "Word count"},
                                                           {"lineCount", "Lines of text"},
                                                           {"editorSettings", "Editor settings"}};
    for (const auto &[name, help] : helps) {
        EXPECT_EQ(find(name)->toolTip(), help);
    }
}

TEST_F(MainWindow, CopyShowsTheConfirmationFor15Seconds) {
    setText("a\r\nb");
    click("copy");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "a\r\nb");
    EXPECT_TRUE(isShown("copyToast"));
    EXPECT_TRUE(QTest::qWaitFor([this] { return !isShown("copyToast"); }, 3000));
}

TEST_F(MainWindow, PastingWithoutTextOnTheClipboardChangesNothing) {
    setText("kept");
    auto *picture = new QMimeData;
    picture->setData("image/png", "x");
    QGuiApplication::clipboard()->setMimeData(picture);
    click("paste");
    EXPECT_EQ(text(), "kept");
}

TEST_F(MainWindow, ClearingTheTextAsksUnlessThereIsNone) {
    click("clearText");
    EXPECT_FALSE(isShown("alert"));
    setText("x");
    click("clearText");
    click("cancel");
    ASSERT_TRUE(QTest::qWaitFor([this] { return !isShown("alert"); }));
    EXPECT_EQ(text(), "x");
    click("clearText");
    click("confirm");
    EXPECT_TRUE(QTest::qWaitFor([this] { return text().empty(); }));
}

TEST_F(MainWindow, ParametersAreAskedForAndAnErrorIsShown) {
    setText("a b");
    center().post(notification::applyTransformation, QString("wrap-lines"));
    auto *width = find<QLineEdit>("parameter.width");
    ASSERT_NE(width, nullptr);
    width->setText("abc");
    click("apply");
    ASSERT_TRUE(QTest::qWaitFor([this] { return isShown("alert"); }));
    EXPECT_EQ(find<QLabel>("message")->text(), "Invalid input: Width must be a positive number");
    click("confirm");
    EXPECT_EQ(text(), "a b");
    EXPECT_TRUE(manager().appliedOperations().empty());
}

TEST_F(MainWindow, CancellingTheParametersForgetsTheTransformation) {
    setText("a b");
    center().post(notification::applyTransformation, QString("wrap-lines"));
    click("cancel");
    ASSERT_TRUE(QTest::qWaitFor([this] { return !isShown("parameterSheet"); }));
    EXPECT_EQ(state().pendingTransformation, nullptr);
    EXPECT_EQ(text(), "a b");
}

TEST_F(MainWindow, ApplyingToNoTextIsAnError) {
    click("transformation.uppercase");
    ASSERT_TRUE(isShown("alert"));
    EXPECT_EQ(find<QLabel>("message")->text(), "Invalid input: Text is empty");
}

TEST_F(MainWindow, ReturnInASearchThatIsEmptyOrFindsNothingAppliesNothing) {
    setText("kept");
    choose("SearchTransformations");
    press(Qt::Key_Return);
    EXPECT_EQ(text(), "kept");
    type("rot13");
    press(Qt::Key_Return);
    EXPECT_EQ(text(), "kept");
}

TEST_F(MainWindow, AToolShowsItsResult) {
    setText("one two");
    choose("RunTool.statistics");
    EXPECT_TRUE(isShown("toolResult.statistics"));
    click("done");
    EXPECT_TRUE(QTest::qWaitFor([this] { return !isShown("toolResult.statistics"); }));
    EXPECT_EQ(text(), "one two");
}

TEST_F(MainWindow, AToolReportsOnTheWholeCurrentTextEachTimeItIsOpened) {
    const auto words = [this] {
        choose("RunTool.reading-time");
        QTest::mouseClick(find("toolResult.reading-time")->findChild<QWidget *>("copy"), Qt::LeftButton);
        click("done");
        return QGuiApplication::clipboard()->text().section('\n', 2, 2);
    };
    setText("one two three");
    manager().applyTransformation(*manager().findTransformation("remove-all-spaces"), {});
    EXPECT_EQ(text(), "onetwothree");
    EXPECT_EQ(words(), "Word Count: 1"); // of the result, not of the text that it was made from
    setText("one two three four");
    focusEditor();
    press(Qt::Key_Home, Qt::ControlModifier);
    press(Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(words(), "Word Count: 4"); // not of the selection alone
}

TEST_F(MainWindow, TheSizeAndTheColumnsAreRemembered) {
    window().resize(1100, 700);
    EXPECT_TRUE(QTest::qWaitFor([this] { return preferences.contains(preference::windowSize); }));
    restart();
    EXPECT_EQ(window().size(), QSize(1100, 700));
}

TEST_F(MainWindow, TheSizeInWhichTheWindowOpensIsNotRemembered) {
    restart();
    EXPECT_FALSE(preferences.contains(preference::windowSize));
}

TEST_F(MainWindow, EachThingHasItsIcon) {
    setText("x");
    state().setSelectedCategory(std::nullopt);
    const Theme &colours = theme();
    const std::tuple<const char *, const char *, int, QColor> icons[] = {
        {"paste", "doc.on.clipboard", 20, colours.text2},
        {"copy", "doc.on.doc", 20, colours.text2},
        {"clearText", "trash", 20, colours.text2},
        {"recipes", "book.closed", 20, colours.text2},
        {"saveRecipe", "bookmark", 20, colours.text2},
        {"clearOperations", "xmark.circle", 20, colours.text2},
        {"toggleOperations", "sidebar.right", 20, colours.accentText},
        {"category.Favorites", "star.fill", 18, colours.text2},
        {"listEmptyState", "questionmark.circle", 40, colours.text3},
        {"cursorPosition", "location", 14, colours.text2},
        {"characterCount", "character.cursor.ibeam", 14, colours.text2},
        {"wordCount", "character.textbox", 14, colours.text2},
        {"lineCount", "text.line.first.and.arrowtriangle.forward", 14, colours.text2},
        {"editorSettings", "gearshape", 18, colours.text2},
    };
    for (const auto &[name, symbol, size, colour] : icons) {
        EXPECT_TRUE(shows(find(name), symbol, size, colour)) << name;
        EXPECT_FALSE(shows(find(name), "shuffle", size, colour)) << name;
    }
    center().post(notification::toggleOperations);
    EXPECT_TRUE(shows(find("toggleOperations"), "sidebar.right", 20, colours.text2));
    click("copy");
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return shows(find("copyToast"), "checkmark.circle.fill", 18, colours.toastIcon); }, 1400));
    const auto isIcon = [](const QAction *action, const char *symbol) {
        return action->icon().pixmap(16, 16).toImage() ==
               symbolIcon(symbol, theme().text2, theme().text2).pixmap(16, 16).toImage();
    };
    EXPECT_TRUE(isIcon(find("search")->actions().constFirst(), "magnifyingglass"));
    EXPECT_TRUE(isIcon(window().findChild<QAction *>("clearSearch"), "xmark.circle.fill"));
}

TEST_F(MainWindow, TheKeyboardIsInTheEditorWhenTheWindowAppears) { EXPECT_TRUE(find("editor")->hasFocus()); }

TEST_F(MainWindow, TheSizeOfAMaximizedWindowIsNotRemembered) {
    window().resize(1100, 700);
    const auto isRemembered = [this] {
        return preferences.value(preference::windowSize).toList() == QVariantList{1100, 700};
    };
    ASSERT_TRUE(QTest::qWaitFor(isRemembered));
    window().showMaximized();
    QCoreApplication::processEvents();
    ASSERT_NE(window().size(), QSize(1100, 700));
    restart();
    EXPECT_TRUE(isRemembered());
}

TEST_F(MainWindow, TheListTellsAssistiveTechnologyWhatIsShown) {
    click("category.Sorting");
    QAccessibleInterface *list = QAccessible::queryAccessibleInterface(find("transformations"));
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->role(), QAccessible::List);
    EXPECT_EQ(list->childCount(), 6);
    QAccessibleInterface *row = list->child(1);
    EXPECT_EQ(row->role(), QAccessible::ListItem);
    EXPECT_EQ(row->text(QAccessible::Name), "Sort Lines (Reverse)");
    EXPECT_EQ(list->indexOfChild(row), 1);
    QAccessibleInterface *category = QAccessible::queryAccessibleInterface(find("category.Sorting"));
    EXPECT_TRUE(category->state().selected);
}

} // namespace
} // namespace lexivore
