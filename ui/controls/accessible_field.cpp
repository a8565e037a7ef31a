// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/controls/accessible_field.h"

#include <QAccessibleWidget>
#include <QLineEdit>
#include <QTextBoundaryFinder>
#include <QTextLayout>

#include <algorithm>
#include <cmath>
#include <optional>

namespace lexivore {

namespace {

/// How the toolkit finds words and sentences; the other pieces of a text it finds well.
std::optional<QTextBoundaryFinder::BoundaryType> finderOf(QAccessible::TextBoundaryType type) {
    switch (type) {
    case QAccessible::WordBoundary:
        return QTextBoundaryFinder::Word;
    case QAccessible::SentenceBoundary:
        return QTextBoundaryFinder::Sentence;
    default:
        return std::nullopt;
    }
}

/// Offsets are UTF-16 code units.
class AccessibleField final : public QAccessibleWidget,
                              public QAccessibleTextInterface,
                              public QAccessibleEditableTextInterface {
public:
    explicit AccessibleField(QLineEdit *field) : QAccessibleWidget(field, QAccessible::EditableText) {}

    void *interface_cast(QAccessible::InterfaceType type) override {
        switch (type) {
        case QAccessible::TextInterface:
            return static_cast<QAccessibleTextInterface *>(this);
        case QAccessible::EditableTextInterface:
            return static_cast<QAccessibleEditableTextInterface *>(this);
        default:
            return QAccessibleWidget::interface_cast(type);
        }
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.editable = !field().isReadOnly();
        state.readOnly = field().isReadOnly();
        state.selectableText = true;
        return state;
    }

    QString text(QAccessible::Text what) const override {
        if (what == QAccessible::Value) {
            return field().displayText();
        }
        const QString own = QAccessibleWidget::text(what);
        return own.isEmpty() && what == QAccessible::Description ? field().placeholderText() : own;
    }

    void setText(QAccessible::Text what, const QString &text) override {
        if (what == QAccessible::Value) {
            replaceText(0, characterCount(), text);
        } else {
            QAccessibleWidget::setText(what, text);
        }
    }

    void selection(int index, int *start, int *end) const override {
        const bool exists = index == 0 && field().hasSelectedText();
        *start = exists ? field().selectionStart() : 0;
        *end = exists ? field().selectionEnd() : 0;
    }
    int selectionCount() const override { return field().hasSelectedText() ? 1 : 0; }
    void addSelection(int start, int end) override { setSelection(0, start, end); }
    void removeSelection(int index) override {
        if (index == 0) {
            field().deselect();
        }
    }
    void setSelection(int index, int start, int end) override {
        if (index == 0) {
            field().setSelection(start, end - start);
        }
    }

    int cursorPosition() const override { return field().cursorPosition(); }
    void setCursorPosition(int position) override { field().setCursorPosition(position); }

    QString text(int start, int end) const override { return field().displayText().mid(start, end - start); }
    int characterCount() const override { return static_cast<int>(field().displayText().size()); }

    QString textAtOffset(int offset, QAccessible::TextBoundaryType type, int *start, int *end) const override {
        const auto kind = finderOf(type);
        const QString whole = field().displayText();
        if (!kind || offset < 0 || offset > whole.size()) {
            return QAccessibleTextInterface::textAtOffset(offset, type, start, end);
        }
        QTextBoundaryFinder finder(*kind, whole);
        constexpr auto edges = QTextBoundaryFinder::StartOfItem | QTextBoundaryFinder::EndOfItem;
        const auto isBetween = [&] {
            return finder.position() > 0 && finder.position() < whole.size() && !(finder.boundaryReasons() & edges);
        };
        finder.setPosition(offset);
        while (isBetween()) {
            finder.toPreviousBoundary();
        }
        *start = static_cast<int>(std::max<qsizetype>(finder.position(), 0));
        finder.setPosition(offset);
        do {
            finder.toNextBoundary();
        } while (isBetween());
        *end = static_cast<int>(finder.position() < 0 ? whole.size() : finder.position());
        return whole.mid(*start, *end - *start);
    }

    QRect characterRect(int offset) const override {
        if (offset < 0 || offset > characterCount()) {
            return {};
        }
        QTextLayout layout(field().displayText(), field().font());
        layout.beginLayout();
        const QTextLine line = layout.createLine();
        layout.endLayout();
        // The field scrolls, and its caret scrolls along.
        const QRect caret = field().inputMethodQuery(Qt::ImCursorRectangle).toRect();
        const qreal origin = caret.center().x() - line.cursorToX(field().cursorPosition());
        const qreal left = line.cursorToX(offset);
        const qreal right = line.cursorToX(std::min(offset + 1, characterCount()));
        const QRect rect(qRound(origin + std::min(left, right)), caret.top(),
                         std::max(1, qRound(std::abs(right - left))), caret.height());
        return {field().mapToGlobal(rect.topLeft()), rect.size()};
    }

    int offsetAtPoint(const QPoint &point) const override {
        const QPoint local = field().mapFromGlobal(point);
        return field().rect().contains(local) ? field().cursorPositionAt(local) : -1;
    }

    void scrollToSubstring(int start, int end) override {
        field().setCursorPosition(end);
        field().setCursorPosition(start);
    }

    QString attributes(int, int *start, int *end) const override {
        *start = 0;
        *end = characterCount();
        return {};
    }

    void deleteText(int start, int end) override { replaceText(start, end, {}); }
    void insertText(int offset, const QString &text) override { replaceText(offset, offset, text); }
    void replaceText(int start, int end, const QString &text) override {
        if (!field().isReadOnly()) {
            field().setSelection(start, end - start);
            field().insert(text);
        }
    }

private:
    QLineEdit &field() const { return *static_cast<QLineEdit *>(widget()); }
};

QAccessibleInterface *makeInterface(const QString &, QObject *object) {
    auto *field = qobject_cast<QLineEdit *>(object);
    return field != nullptr ? new AccessibleField(field) : nullptr;
}

} // namespace

void installAccessibleFields() { QAccessible::installFactory(makeInterface); }

} // namespace lexivore
