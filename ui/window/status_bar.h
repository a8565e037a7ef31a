// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/window/surface.h"

#include <cstddef>

namespace lexivore {

class StatusItem;
class ToolButton;

/// Under the editor: where the caret is, what the text counts, and the way to the editor's settings.
/// What does not fit any more in a narrow window is left out, from the right.
class StatusBar : public Surface {
    Q_OBJECT

public:
    explicit StatusBar(QWidget *parent = nullptr);

    /// From 1; the column counts characters.
    void setCursorPosition(std::size_t line, std::size_t column);
    /// Shows nothing for an empty name.
    void setLineEnding(const QString &name);
    void setCounts(std::size_t characters, std::size_t words, std::size_t lines);

signals:
    void settingsRequested();

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void fit();

    StatusItem *m_position;
    StatusItem *m_characters;
    StatusItem *m_words;
    StatusItem *m_lines;
    StatusItem *m_lineEnding;
    ToolButton *m_gear;
};

} // namespace lexivore
