// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>
#include <QVariant>

class QApplication;
class QWidget;

namespace lexivore {

class FocusRingFrame;

/// Where the focus ring of a widget lies.
struct FocusShape {
    enum class Placement {
        none,    ///< The widget shows its focus itself, as fields do.
        inside,  ///< Just inside the widget's edge: rows, tool buttons.
        outside, ///< Around the widget, a small gap away: push buttons, switches, check boxes.
    };

    Placement placement = Placement::none;
    int radius = 8; ///< Of the widget's own corners, in device-independent pixels.
    /// A checked button is filled with the accent: it gets a second ring that stands out on the fill.
    bool isDoubledWhenChecked = false;
    int inset = 0; ///< How much of the widget's top, and of its bottom, is a gap to its neighbours.
};

void setFocusShape(QWidget &widget, FocusShape shape);
/// What was set; without that `outside` for buttons and sliders and `none` for everything else.
[[nodiscard]] FocusShape focusShape(const QWidget &widget);

/// The one ring that follows the keyboard focus through the program's windows. It shows when the focus got to where it
/// is by the keyboard, and hides when the mouse takes over or when nothing of the program has the focus.
class FocusRing : public QObject {
    Q_OBJECT

public:
    /// Belongs to `application`. A second call does nothing.
    static void install(QApplication &application);
    ~FocusRing() override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    explicit FocusRing(QApplication &application);
    void receive(QWidget &widget, Qt::FocusReason reason);
    void moveTo(QWidget *widget);

    QPointer<FocusRingFrame> m_frame;
    bool m_isKeyboardInUse = false;
};

} // namespace lexivore

Q_DECLARE_METATYPE(lexivore::FocusShape)
