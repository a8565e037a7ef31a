// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/sheets/parameter_input_sheet.h"

#include "engine/catalog.h"
#include "tests/ui/sheets/sheet_fixture.h"

#include <optional>

namespace lexivore {
namespace {

class ParameterInputSheetTest : public SheetTest {
protected:
    TransformationPointer transformation(std::string_view id) const { return findTransformation(catalog, id); }

    ParameterInputSheet *open(std::string_view id) {
        ParameterMap values;
        for (const TransformationParameter &parameter : transformation(id)->parameters()) {
            values[parameter.id] = parameter.defaultValue;
        }
        return show(new ParameterInputSheet(
            transformation(id), values, [this](const ParameterMap &map) { applied = map; }, [this] { ++cancelled; }));
    }

    QList<Field *> fields() const { return window.findChild<Sheet *>()->findChildren<Field *>(); }

    const Catalog catalog = makeCatalog();
    std::optional<ParameterMap> applied;
    int cancelled = 0;
};

TEST_F(ParameterInputSheetTest, ShowsNameDescriptionAndEveryParameterInOrder) {
    for (const TransformationPointer &entry : catalog) {
        if (entry->parameters().empty()) {
            continue;
        }
        SCOPED_TRACE(entry->id());
        ParameterInputSheet *sheet = open(entry->id());
        EXPECT_EQ(sheet->width(), 420);
        QStringList expected = {QString::fromStdString(entry->name()), QString::fromStdString(entry->description())};
        int index = 0;
        ASSERT_EQ(fields().size(), qsizetype(entry->parameters().size()));
        for (const TransformationParameter &parameter : entry->parameters()) {
            expected << QString::fromStdString(parameter.label);
            const Field *field = fields().at(index++);
            EXPECT_EQ(field->text(), QString::fromStdString(parameter.defaultValue));
            EXPECT_EQ(field->placeholderText(), QString::fromStdString(parameter.placeholder));
            EXPECT_EQ(field->accessibleName(), QString::fromStdString(parameter.label));
        }
        EXPECT_EQ(labelsIn(*sheet), expected);
        for (int next = 1; next < fields().size(); ++next) {
            EXPECT_GT(fields().at(next)->mapTo(sheet, QPoint()).y(), fields().at(next - 1)->mapTo(sheet, QPoint()).y());
        }
        sheet->cancel();
        settle();
    }
}

TEST_F(ParameterInputSheetTest, StartsInTheFirstFieldWithItsTextSelected) {
    open("wrap-lines");
    EXPECT_EQ(QApplication::focusWidget(), fields().first());
    EXPECT_FALSE(fields().first()->text().isEmpty());
    EXPECT_EQ(fields().first()->selectedText(), fields().first()->text());
}

TEST_F(ParameterInputSheetTest, ApplyPassesOnTheEditedMapAndCloses) {
    open("replace-regex");
    type("a(b)");
    press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), fields().at(1));
    type("$1");
    click(find("apply"));
    EXPECT_FALSE(isOpen());
    ASSERT_TRUE(applied);
    const auto parameters = transformation("replace-regex")->parameters();
    EXPECT_EQ(*applied, (ParameterMap{{parameters[0].id, "a(b)"}, {parameters[1].id, "$1"}}));
    EXPECT_EQ(cancelled, 0);
}

TEST_F(ParameterInputSheetTest, ReturnAppliesAndEscapeCancels) {
    open("wrap-lines");
    type("17");
    press(Qt::Key_Return);
    EXPECT_FALSE(isOpen());
    ASSERT_TRUE(applied);
    EXPECT_EQ(applied->begin()->second, "17");
    applied.reset();

    open("wrap-lines");
    press(Qt::Key_Escape);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(cancelled, 1);
    EXPECT_FALSE(applied);

    open("wrap-lines");
    click(find("cancel"));
    EXPECT_EQ(cancelled, 2);
    EXPECT_FALSE(isOpen());
}

TEST_F(ParameterInputSheetTest, ChecksNothingAndPassesAnyTextOn) {
    const QStringList wild = {QString(),      "not a number",
                              "-5",           QString(40'000, 'x'),
                              "a\nb\r\nc\td", QString::fromUtf8("\u05E9\u05DC\u05D5\u05DD \U0001F469\u200D\U0001F467")};
    for (const QString &text : wild) {
        ParameterInputSheet *sheet = open("wrap-lines");
        fields().first()->setText(text);
        settle();
        EXPECT_EQ(sheet->width(), 420);
        EXPECT_TRUE(sheet->rect().contains(QRect(find("apply")->mapTo(sheet, QPoint()), find("apply")->size())));
        press(Qt::Key_Return);
        ASSERT_TRUE(applied);
        EXPECT_EQ(applied->begin()->second, text.toStdString());
    }
}

TEST_F(ParameterInputSheetTest, TheActionMayOpenTheNextSheet) {
    show(new ParameterInputSheet(transformation("wrap-lines"), {},
                                 [this](const ParameterMap &) { open("replace-regex"); }, {}));
    press(Qt::Key_Return);
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(fields().size(), 2);
}

} // namespace
} // namespace lexivore
