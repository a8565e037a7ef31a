// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "tests/ui/drawn.h"
#include "tests/ui/still_style.h"
#include "tests/ui/window/window_fixture.h"
#include "ui/operations/draggable_operation_item.h"
#include "ui/theme/drawing.h"
#include "ui/theme/theme.h"
#include "ui/theme/typography.h"
#include "ui/window/star_button.h"
#include "ui/window/transformation_button.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QVariantAnimation>

namespace lexivore {
namespace {

using test::drawnSymbol;
using test::drawnText;
using test::placeOf;

constexpr int nowhere = -1;

/// What the pieces of the window draw: each text in its size, weight and colour at its place, each symbol beside it.
class Drawing : public WindowTest {
public:
    Drawing() {
        QFont letters = QApplication::font();
        letters.setPointSizeF(10); // those that the design has its measures for
        QApplication::setFont(letters);
        restart();
    }
    ~Drawing() override { QApplication::setFont(m_fontBefore); }

protected:
    [[nodiscard]] static int leftOf(const QImage &part, QWidget *widget) {
        return placeOf(part, pictureOf(widget)).value_or(QPoint(nowhere, nowhere)).x();
    }
    [[nodiscard]] static int leftOf(const QString &text, FontRole role, const QColor &colour, QWidget *widget) {
        return leftOf(drawnText(text, fontFor(role), colour), widget);
    }
    [[nodiscard]] static bool isDrawn(const char *symbol, int size, const QColor &colour, QWidget *widget) {
        return placeOf(drawnSymbol(symbol, size, colour), pictureOf(widget)).has_value();
    }
    static void enter(QWidget *widget) {
        QEnterEvent event(QPointF(5, 5), QPointF(5, 5), QPointF(5, 5));
        QApplication::sendEvent(widget, &event);
    }
    /// The corner of a rounded shape of radius 8.
    [[nodiscard]] static QImage corner(const QColor &fill) {
        QImage drawn(8, 8, QImage::Format_ARGB32_Premultiplied);
        drawn.fill(Qt::transparent);
        QPainter painter(&drawn);
        fillRounded(painter, QRectF(0, 0, 40, 40), 8, fill);
        return drawn;
    }
    /// How long the widget's own animation takes, in milliseconds.
    [[nodiscard]] static int durationOf(const QWidget *widget) { return animationOf(widget)->duration(); }
    [[nodiscard]] static const QVariantAnimation *animationOf(const QWidget *widget) {
        return widget->findChild<QVariantAnimation *>(QString(), Qt::FindDirectChildrenOnly);
    }
    static void expectEaseInOut(const QEasingCurve &curve) {
        EXPECT_LT(curve.valueForProgress(0.25), 0.2);
        EXPECT_NEAR(curve.valueForProgress(0.5), 0.5, 0.01);
        EXPECT_GT(curve.valueForProgress(0.75), 0.8);
    }

private:
    QFont m_fontBefore = QApplication::font();
};

TEST_F(Drawing, ACategoryShowsItsNameBehindItsIcon) {
    QWidget *row = find("category.Lines");
    EXPECT_EQ(leftOf("Lines", FontRole::body, theme().text, row), 12 + 20 + 10);
    const int icon = leftOf(drawnSymbol("text.justify", 18, theme().text2), row);
    EXPECT_EQ(icon, 12 + (20 - 18) / 2) << "in the middle of its frame";
    click("category.Lines");
    EXPECT_EQ(leftOf(drawnText("Lines", fontFor(FontRole::callout), theme().onAccent, theme().accent), row),
              12 + 20 + 10);
    EXPECT_EQ(leftOf("Categories", FontRole::sectionTitle, theme().text2, find("categoriesHeader")), 12);
}

TEST_F(Drawing, ATransformationShowsItsNameOverItsDescription) {
    auto *row = find<TransformationButton>("transformation.lowercase");
    EXPECT_EQ(leftOf(drawnSymbol("textformat.size.smaller", 20, theme().accentText), row), 10);
    const auto name = placeOf(drawnText("lowercase", fontFor(FontRole::callout), theme().text), pictureOf(row));
    const auto description = placeOf(
        drawnText("Convert all text to lowercase", fontFor(FontRole::smallCaption), theme().text2), pictureOf(row));
    ASSERT_TRUE(name && description);
    EXPECT_EQ(name->x(), 10 + 20 + 12);
    EXPECT_EQ(description->x(), name->x());
    EXPECT_GT(description->y(), name->y());
}

TEST_F(Drawing, TheChevronAndTheStarOfNoFavoriteAreQuiet) {
    StillStyle still;
    auto *row = find<TransformationButton>("transformation.lowercase");
    row->setStyle(&still);
    const int place = row->width() - 16 - 6;
    EXPECT_NE(leftOf(drawnSymbol("chevron.right", 12, theme().text2), row), place);
    enter(row);
    const QColor tint = pictureOf(row).pixelColor(row->width() / 2, 2);
    QImage chevron = drawnSymbol("chevron.right", 12, theme().text2);
    QPainter painter(&chevron);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOver);
    painter.fillRect(chevron.rect(), tint);
    painter.end();
    EXPECT_EQ(leftOf(chevron, row), place);
    auto *star = row->findChild<StarButton *>("star");
    star->setRevealed(true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return isDrawn("star", 16, theme().text2, star); }));
    row->setStyle(nullptr);
}

TEST_F(Drawing, AnOperationShowsHandleNumberNameParametersAndTheButtonToRemoveIt) {
    useStackMode();
    setText("abc");
    manager().applyTransformation(*manager().findTransformation("add-prefix"), {{"prefix", "> "}});
    QCoreApplication::processEvents();
    QWidget *row = find("operation.0");
    const int textLeft = 8 + 12 + 8 + 20 + 8;
    EXPECT_EQ(leftOf(drawnSymbol("line.3.horizontal", 12, theme().text2), row), 8);
    const QImage number = drawnText("1", fontFor(FontRole::badge), theme().onAccent, theme().accent);
    EXPECT_NEAR(leftOf(number, row) + number.width() / 2.0, 8 + 12 + 8 + 10, 1);
    const QImage name = drawnText("Add Prefix", fontFor(FontRole::captionMedium), theme().text);
    const QImage parameter = drawnText("prefix: > ", fontFor(FontRole::smallCaption), theme().text3);
    const auto namePlace = placeOf(name, pictureOf(row));
    const auto parameterPlace = placeOf(parameter, pictureOf(row));
    ASSERT_TRUE(namePlace && parameterPlace);
    EXPECT_EQ(namePlace->x(), textLeft);
    EXPECT_EQ(parameterPlace->x(), textLeft);
    EXPECT_GT(parameterPlace->y(), namePlace->y());
    EXPECT_TRUE(isDrawn("xmark.circle.fill", 14, theme().text2, row->findChild<QWidget *>("remove")));
}

TEST_F(Drawing, ADisabledOperationIsStruckThroughInTheColoursOfItsTexts) {
    useStackMode();
    setText("abc");
    manager().applyTransformation(*manager().findTransformation("add-prefix"), {{"prefix", "x"}});
    manager().toggleOperation(0);
    QCoreApplication::processEvents();
    const QImage row = pictureOf(find("operation.0"));
    const auto expectColour = [](const QColor &drawn, const QColor &expected) {
        EXPECT_NEAR(drawn.red(), expected.red(), 3);
        EXPECT_NEAR(drawn.green(), expected.green(), 3);
        EXPECT_NEAR(drawn.blue(), expected.blue(), 3);
    };
    const int nameBottom = 2 + 8 + 20;
    expectColour(test::inkOf(row.copy(56, 0, 60, nameBottom)), theme().text2);
    expectColour(test::inkOf(row.copy(56, nameBottom, 60, row.height() - nameBottom)), theme().text3);
}

TEST_F(Drawing, TheTextsAroundTheListsHaveTheirSizes) {
    useStackMode();
    QCoreApplication::processEvents();
    const auto isDrawnIn = [this](const char *widget, const QString &text, FontRole role, const QColor &colour,
                                  const QColor &ground = Qt::transparent) {
        return leftOf(drawnText(text, fontFor(role), colour, ground), find(widget)) != nowhere;
    };
    EXPECT_TRUE(isDrawnIn("listHeader", "Transformations", FontRole::sectionTitle, theme().text2));
    EXPECT_TRUE(isDrawnIn("operationsTitle", "Operations", FontRole::headline, theme().text));
    EXPECT_TRUE(isDrawnIn("modeName", "Multiple", FontRole::captionMedium, theme().text));
    EXPECT_TRUE(isDrawnIn("cursorPosition", "Ln 1, Col 1", FontRole::caption, theme().text2));
    EXPECT_TRUE(isDrawn("location", 14, theme().text2, find("cursorPosition")));
    StillStyle still;
    find("copyToast")->setStyle(&still);
    click("copy");
    EXPECT_TRUE(isDrawnIn("copyToast", "Copied to clipboard", FontRole::callout, theme().onToast, theme().toast));
    find("copyToast")->setStyle(nullptr);
    EXPECT_EQ(window().windowTitle(), "Lexivore");
}

TEST_F(Drawing, RowsAreRounded) {
    useStackMode();
    setText("abc");
    center().post(notification::applyTransformation, QString("uppercase"));
    QCoreApplication::processEvents();
    for (const char *name : {"category.Lines", "transformation.lowercase"}) {
        enter(find(name));
        EXPECT_EQ(placeOf(corner(theme().rowHover), pictureOf(find(name))), QPoint(0, 0)) << name;
    }
    enter(find("operation.0"));
    EXPECT_EQ(placeOf(corner(theme().operationRowHover), pictureOf(find("operation.0"))), QPoint(0, 2));
}

TEST_F(Drawing, EachMovementTakesItsTime) {
    click("categoriesHeader");
    EXPECT_EQ(durationOf(find("sidebar")), 200);
    expectEaseInOut(animationOf(find("sidebar"))->easingCurve());
    auto *row = find<TransformationButton>("transformation.lowercase");
    enter(row);
    EXPECT_EQ(durationOf(row), 500);
    expectEaseInOut(animationOf(row)->easingCurve());
    row->findChild<StarButton *>("star")->setRevealed(true);
    EXPECT_EQ(durationOf(row->findChild<StarButton *>("star")), 200);
    setText("abc");
    click("copy");
    EXPECT_EQ(durationOf(find("copyToast")), 200);

    useStackMode();
    for (const char *id : {"uppercase", "lowercase"}) {
        center().post(notification::applyTransformation, QString(id));
    }
    QCoreApplication::processEvents();
    auto *first = find<DraggableOperationItem>("operation.0");
    state().setDraggedOperation(first->operation());
    EXPECT_TRUE(find<DraggableOperationItem>("operation.1")->performDrop());
    EXPECT_EQ(find("operations")->findChild<QVariantAnimation *>()->duration(), 200);
}

} // namespace
} // namespace lexivore
