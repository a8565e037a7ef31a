// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QPalette>

namespace lexivore {

/// Every colour of the program. There is one table for light and one for dark, and no colour value anywhere else.
struct Theme {
    bool isDark;

    QColor chrome;  ///< menu bar, toolbar, status bar
    QColor sidebar; ///< category sidebar
    QColor pane;    ///< transformation list, operations panel, sheets, alerts
    QColor view;    ///< editor, preview
    QColor raised;  ///< cards, menus, tooltips
    QColor field;
    QColor button;
    QColor buttonHover;
    QColor buttonPress;

    QColor border;       ///< hairlines, cards
    QColor borderStrong; ///< fields
    QColor buttonBorder;
    QColor sheetBorder;

    QColor text;
    QColor text2;   ///< secondary
    QColor text3;   ///< quiet
    QColor textOff; ///< disabled

    QColor accent; ///< fills: selection, primary button, switch, badge, drop mark
    QColor accentHover;
    QColor accentPress;
    QColor accentText; ///< icons of the list, checked tools, caret, readability level
    QColor onAccent;
    QColor onDanger;
    QColor focus;
    QColor danger;
    QColor dangerHover;
    QColor dangerPress;
    QColor selection; ///< selected text in editor and fields; the text keeps its colour

    QColor badgeOff;
    QColor switchOff;
    QColor track; ///< slider and scale
    QColor star;
    QColor starEdge;
    QColor toast;
    QColor onToast;
    QColor toastIcon;

    QColor blue;
    QColor green;
    QColor orange;
    QColor purple;
    QColor indigo;
    QColor teal;
    QColor barStart; ///< left end of the frequency bars
    QColor barEnd;
    QColor scrim; ///< behind sheets and alerts

    QColor rowHover;
    QColor rowPress;
    QColor operationRowHover;
    QColor toolHover;
    QColor toolPress;
    QColor accentWash; ///< checked tool and header chip
    QColor scrollThumb;
};

/// A colour by name, for views that keep which colour they want rather than the colour.
using ThemeColour = QColor Theme::*;

[[nodiscard]] const Theme &lightTheme();
[[nodiscard]] const Theme &darkTheme();

/// Dark when the palette's window text is lighter than its window.
[[nodiscard]] const Theme &themeFor(const QPalette &palette);

/// The theme that the application's palette asks for at this moment. Ask again at every painting; a widget is told of a
/// change by `QEvent::PaletteChange` and repainted.
[[nodiscard]] const Theme &theme();

/// The colour with its own opacity times `factor`; the product is from 0 to 1.
[[nodiscard]] QColor faded(QColor colour, double factor);

/// The theme's colours in the roles of the toolkit's palette.
[[nodiscard]] QPalette paletteOf(const Theme &theme);

} // namespace lexivore
