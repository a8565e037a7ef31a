// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

namespace lexivore::metrics {

// Device-independent pixels.

inline constexpr int sheetRadius = 12;
inline constexpr int cardRadius = 10;
inline constexpr int radius = 8; ///< rows, buttons, fields and tools
inline constexpr int smallButtonRadius = 7;
inline constexpr int menuItemRadius = 6;
inline constexpr int barRadius = 4;

inline constexpr int line = 1;
inline constexpr int focusLine = 2;
inline constexpr int caretWidth = 2;
inline constexpr int focusGap = 2; ///< between a button and the ring around it

inline constexpr int controlHeight = 32;
inline constexpr int smallControlHeight = 28;
inline constexpr int leastButtonWidth = 84;
inline constexpr int buttonGap = 8;
inline constexpr int sheetPadding = 20;
inline constexpr int scrollBarThickness = 6;
inline constexpr int scrollBarInset = 3;

} // namespace lexivore::metrics
