// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/editor/text_document.h"

#include <QPlainTextEdit>

#include <cstddef>
#include <string_view>

namespace lexivore {

/// The toolkit's editor around an exact text: what it cannot show as it is (carriage returns, U+2029) it shows as
/// another sign of the same length, while the text keeps its own. Offsets are in bytes.
class PlainEditor : public QPlainTextEdit {
    Q_OBJECT

public:
    explicit PlainEditor(QWidget *parent = nullptr);

    [[nodiscard]] const Text &text() const { return m_model.text(); }
    void setText(const Text &text);
    void setCaret(std::size_t offset);
    [[nodiscard]] const TextDocument &model() const { return m_model; }

signals:
    /// The user replaced `removed` bytes at `offset`.
    void edited(std::size_t offset, std::size_t removed, std::string_view inserted);
    /// From 1; the column counts characters.
    void caretMoved(std::size_t line, std::size_t column);
    void countsChanged();

private:
    void takeChange(int position, int removed, int added);
    void announceCaret();

    TextDocument m_model;
    QString m_units; ///< The text in UTF-16, unit by unit what is shown but for the signs.
    bool m_isShowing = false;
};

} // namespace lexivore
