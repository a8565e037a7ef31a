// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/window/surface.h"

#include <cstddef>
#include <string>

class QTimer;

namespace lexivore {

class Field;
class Label;
class TextEditor;

/// Finds text in the editor: a field, how many matches there are, the next and the previous one. Ignores case.
class FindBar : public Surface {
    Q_OBJECT

public:
    /// Hidden until it is opened.
    explicit FindBar(TextEditor &editor, QWidget *parent = nullptr);

    /// Shows it with the editor's selection, if that is on one line, and gives it the keyboard.
    void open();
    void findNext();
    void findPrevious();
    /// Hides it and gives the keyboard back to the editor.
    void close();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void find(bool forward);
    void showCount();
    void countSoon();
    /// Which match the editor's selection is, from 1; 0 when it is none.
    [[nodiscard]] std::size_t selectedMatch() const;
    [[nodiscard]] std::string needle() const;

    TextEditor &m_editor;
    Field *m_field;
    Label *m_count;
    QTimer *m_recount;
};

} // namespace lexivore
