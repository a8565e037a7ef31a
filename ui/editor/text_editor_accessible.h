// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/editor/text_editor.h"

#include <QAccessible>
#include <QAccessibleWidget>

#include <cstddef>

namespace lexivore {

/// The editor as assistive technology sees it: an editable text of several lines. Offsets are UTF-16 code units.
/// Nothing but `text` itself costs the size of the text.
class TextEditorAccessible : public QAccessibleWidget,
                             public QAccessibleTextInterface,
                             public QAccessibleEditableTextInterface {
public:
    explicit TextEditorAccessible(TextEditor *editor);

    /// Makes editors accessible from now on. Further calls do nothing.
    static void install();
    /// Tells assistive technology, if there is any, of a change of the text, and where caret and selection are.
    static void announceChange(TextEditor &editor, std::size_t offset, const Text &removed, const Text &inserted);
    static void announceSelection(TextEditor &editor);

    void *interface_cast(QAccessible::InterfaceType type) override;
    [[nodiscard]] QAccessible::State state() const override;
    [[nodiscard]] QString text(QAccessible::Text what) const override;

    void selection(int selectionIndex, int *startOffset, int *endOffset) const override;
    [[nodiscard]] int selectionCount() const override;
    void addSelection(int startOffset, int endOffset) override;
    void removeSelection(int selectionIndex) override;
    void setSelection(int selectionIndex, int startOffset, int endOffset) override;
    [[nodiscard]] int cursorPosition() const override;
    void setCursorPosition(int position) override;
    [[nodiscard]] QString text(int startOffset, int endOffset) const override;
    QString textBeforeOffset(int offset, QAccessible::TextBoundaryType boundaryType, int *startOffset,
                             int *endOffset) const override;
    QString textAfterOffset(int offset, QAccessible::TextBoundaryType boundaryType, int *startOffset,
                            int *endOffset) const override;
    QString textAtOffset(int offset, QAccessible::TextBoundaryType boundaryType, int *startOffset,
                         int *endOffset) const override;
    [[nodiscard]] int characterCount() const override;
    [[nodiscard]] QRect characterRect(int offset) const override;
    [[nodiscard]] int offsetAtPoint(const QPoint &point) const override;
    void scrollToSubstring(int startIndex, int endIndex) override;
    QString attributes(int offset, int *startOffset, int *endOffset) const override;

    void deleteText(int startOffset, int endOffset) override;
    void insertText(int offset, const QString &text) override;
    void replaceText(int startOffset, int endOffset, const QString &text) override;

private:
    [[nodiscard]] TextEditor &editor() const;
    [[nodiscard]] TextDocument &document() const { return editor().document(); }
    [[nodiscard]] std::size_t byteAt(int unit) const;
    [[nodiscard]] int unitAt(std::size_t byte) const;
    [[nodiscard]] TextDocument::Range rangeAround(std::size_t offset, QAccessible::TextBoundaryType type) const;
    QString report(TextDocument::Range range, int *startOffset, int *endOffset) const;
};

} // namespace lexivore
