// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/text.h"
#include "ui/sheets/sheet.h"

#include <string>

namespace lexivore {

class TextTool;

/// The frame of every tool's result: the tool's symbol, name and description above, "Copy" and "Done" below.
/// It shows one text as it was when the tool was opened.
class ToolView : public Sheet {
    Q_OBJECT

public:
    /// `size` in device-independent pixels. It is higher only when larger letters need it.
    ToolView(const TextTool &tool, Text text, const QSize &size);

    void takeFocus() override;
    void confirm() override { dismiss(); }

    /// What "Copy" puts on the clipboard.
    [[nodiscard]] virtual std::string report() const = 0;

protected:
    /// Computes and shows the result. Called once, when the view first appears.
    virtual void appear() = 0;
    [[nodiscard]] const Text &text() const { return m_text; }

    bool event(QEvent *event) override;

private:
    [[nodiscard]] QWidget *makeFooter();
    void copyReport() const;

    Text m_text;
    bool m_hasAppeared = false;
};

} // namespace lexivore
