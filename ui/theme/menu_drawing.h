// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>

class QPainter;
class QStyleOption;
class QStyleOptionMenuItem;
class QWidget;

/// The look of menus and of the menu bar.
namespace lexivore::menu {

inline constexpr int margin = 4; ///< between the menu's border and its items
inline constexpr int scrollerHeight = 20;

[[nodiscard]] QSize itemSize(const QStyleOptionMenuItem &item);
void drawItem(QPainter &painter, const QStyleOptionMenuItem &item);
/// The end of a menu that goes on beyond it.
void drawScroller(QPainter &painter, const QStyleOption &end);

/// `textSize` is the size of the item's text.
[[nodiscard]] QSize barItemSize(const QSize &textSize);
void drawBarItem(QPainter &painter, const QStyleOptionMenuItem &item, const QWidget *menuBar);

} // namespace lexivore::menu
