// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/sheets/sheet.h"

#include <functional>

class QSlider;

namespace lexivore {

class FontPreview;
class Label;

/// Sets the font size of the editor, with a live preview.
class EditorSettingsSheet : public Sheet {
    Q_OBJECT

public:
    static constexpr int leastFontSize = 9; ///< points
    static constexpr int greatestFontSize = 24;

    /// The slider shows a size outside its range clamped; the size stays what it is until the slider moves. `onChange`
    /// gets every size that the slider passes, in points.
    EditorSettingsSheet(double fontSize, std::function<void(double)> onChange);

    void confirm() override { dismiss(); }

private:
    QWidget *makeSizeRow(double fontSize);
    void setFontSize(int points);

    QSlider *m_slider = nullptr;
    Label *m_value = nullptr;
    FontPreview *m_preview = nullptr;
    std::function<void(double)> m_onChange;
};

} // namespace lexivore
