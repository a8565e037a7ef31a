// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/theme/menu_drawing.h"

#include "ui/theme/drawing.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"
#include "ui/theme/typography.h"

#include <QPainter>
#include <QStyleOption>
#include <QWidget>

namespace lexivore::menu {

namespace {

constexpr int padding = 10;
constexpr int checkColumn = 22;
constexpr int iconColumn = 28;
constexpr int arrowColumn = 20;
constexpr int barPadding = 9;
constexpr int chevronSize = 12;

bool isSeparator(const QStyleOptionMenuItem &item) {
    return item.menuItemType == QStyleOptionMenuItem::Separator && item.text.isEmpty();
}

bool isCaption(const QStyleOptionMenuItem &item) {
    return item.menuItemType == QStyleOptionMenuItem::Separator && !item.text.isEmpty();
}

QString labelOf(const QStyleOptionMenuItem &item) { return item.text.section('\t', 0, 0); }

int columnsBeforeLabel(const QStyleOptionMenuItem &item) {
    return (item.menuHasCheckableItems ? checkColumn : 0) + (item.maxIconWidth > 0 ? iconColumn : 0);
}

void drawCheck(QPainter &painter, const QStyleOptionMenuItem &item, const QRect &area, const QColor &colour) {
    if (item.checked) {
        const QRect column(area.x() + padding - 4, area.y(), checkColumn, area.height());
        drawSymbol(painter, QStyle::visualRect(item.direction, area, column), u"checkmark", 14, colour);
    }
}

void drawCaption(QPainter &painter, const QStyleOptionMenuItem &item) {
    painter.setFont(fontFor(FontRole::sectionTitle));
    painter.setPen(theme().text2);
    painter.drawText(item.rect.adjusted(padding, 0, -padding, 0), Qt::AlignVCenter | Qt::TextSingleLine,
                     item.text.section('\t', 0, 0));
}

} // namespace

QSize itemSize(const QStyleOptionMenuItem &item) {
    if (isSeparator(item)) {
        return {1, 9}; // an item without width is left out
    }
    const QFontMetrics letters(isCaption(item) ? fontFor(FontRole::sectionTitle) : item.font);
    const int width = letters.size(Qt::TextShowMnemonic | Qt::TextSingleLine, labelOf(item)).width();
    const int extra = isCaption(item) ? 0 : columnsBeforeLabel(item) + arrowColumn;
    return {width + 2 * padding + extra, heightFor(metrics::smallControlHeight, FontRole::body)};
}

void drawItem(QPainter &painter, const QStyleOptionMenuItem &item) {
    const Theme &colours = theme();
    painter.save();
    if (isSeparator(item)) {
        fillHairline(painter, QRect(item.rect.x(), item.rect.center().y(), item.rect.width(), 1), colours.border);
    } else if (isCaption(item)) {
        drawCaption(painter, item);
    } else {
        const bool isEnabled = item.state.testFlag(QStyle::State_Enabled);
        const bool isMarked = isEnabled && item.state.testFlag(QStyle::State_Selected);
        if (isMarked) {
            fillRounded(painter, item.rect, metrics::menuItemRadius, colours.accent);
        }
        const QColor colour = isMarked ? colours.onAccent : isEnabled ? colours.text : colours.textOff;
        drawCheck(painter, item, item.rect, colour);
        if (item.maxIconWidth > 0 && !item.icon.isNull()) {
            const int left = item.rect.x() + padding + (item.menuHasCheckableItems ? checkColumn : 0);
            const QRect place(left, item.rect.center().y() - 8, 18, 18);
            item.icon.paint(&painter, QStyle::visualRect(item.direction, item.rect, place), Qt::AlignCenter,
                            isEnabled ? QIcon::Normal : QIcon::Disabled);
        }
        painter.setFont(item.font);
        painter.setPen(colour);
        const QRect text = item.rect.adjusted(padding + columnsBeforeLabel(item), 0, -padding, 0);
        painter.drawText(QStyle::visualRect(item.direction, item.rect, text),
                         Qt::AlignVCenter | Qt::AlignLeading | Qt::TextHideMnemonic | Qt::TextSingleLine,
                         labelOf(item));
        if (const QString shortcut = item.text.section('\t', 1); !shortcut.isEmpty()) {
            painter.setPen(isMarked ? colours.onAccent : isEnabled ? colours.text2 : colours.textOff);
            painter.drawText(QStyle::visualRect(item.direction, item.rect, text),
                             Qt::AlignVCenter | Qt::AlignTrailing | Qt::TextSingleLine, shortcut);
        }
        if (item.menuItemType == QStyleOptionMenuItem::SubMenu) {
            const QRect place(item.rect.right() - arrowColumn, item.rect.y(), arrowColumn, item.rect.height());
            drawSymbol(painter, QStyle::visualRect(item.direction, item.rect, place), u"chevron.right", chevronSize,
                       colour);
        }
    }
    painter.restore();
}

void drawScroller(QPainter &painter, const QStyleOption &end) {
    painter.save();
    painter.fillRect(end.rect, theme().raised);
    if (!end.state.testFlag(QStyle::State_DownArrow)) {
        // Upside down, where it stands.
        painter.translate(0, end.rect.top() + end.rect.bottom() + 1);
        painter.scale(1, -1);
    }
    drawSymbol(painter, end.rect, u"chevron.down", chevronSize, theme().text2);
    painter.restore();
}

QSize barItemSize(const QSize &textSize) {
    return {textSize.width() + 2 * barPadding, heightFor(metrics::smallControlHeight, FontRole::body)};
}

void drawBarItem(QPainter &painter, const QStyleOptionMenuItem &item, const QWidget *menuBar) {
    const Theme &colours = theme();
    painter.save();
    painter.fillRect(item.rect, colours.chrome);
    const bool isOff = menuBar != nullptr && menuBar->isEnabled() && !item.state.testFlag(QStyle::State_Enabled);
    if (item.state.testFlag(QStyle::State_Selected) && item.state.testFlag(QStyle::State_Enabled)) {
        const bool isOpen = item.state.testFlag(QStyle::State_Sunken);
        fillRounded(painter, item.rect.adjusted(1, 2, -1, -2), metrics::menuItemRadius,
                    isOpen ? colours.toolPress : colours.toolHover);
    }
    painter.setPen(isOff ? colours.textOff : colours.text);
    // The letters to press show once the keyboard is in the menu bar.
    const auto mnemonic = menuBar != nullptr && menuBar->hasFocus() ? Qt::TextShowMnemonic : Qt::TextHideMnemonic;
    painter.drawText(item.rect, Qt::AlignCenter | mnemonic | Qt::TextSingleLine, item.text);
    painter.restore();
}

} // namespace lexivore::menu
