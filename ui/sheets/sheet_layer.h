// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QWidget>

namespace lexivore {

class Sheet;

/// A scrim over the whole of a window, menu bar included, with one sheet in the middle. Everything beneath is disabled
/// until the sheet is dismissed; the focus then goes back to where it was. A layer over another one disables that; when
/// the lower one ends first, the upper one gives back in its place.
class SheetLayer : public QWidget {
    Q_OBJECT

public:
    /// Shows the sheet over `window` and takes it over. The layer deletes itself and the sheet.
    static void show(QWidget &window, Sheet *sheet);

    /// Whether any layer lies over the window.
    [[nodiscard]] static bool isOver(const QWidget &window);

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    SheetLayer(QWidget &window, Sheet *sheet);
    void disableBeneath();
    void place();
    void close();
    /// The layer that has disabled this one, if any.
    [[nodiscard]] SheetLayer *layerAbove() const;

    Sheet *m_sheet;
    QPointer<QWidget> m_focusBefore;
    QList<QPointer<QWidget>> m_disabled;
    bool m_isClosing = false;
};

} // namespace lexivore
