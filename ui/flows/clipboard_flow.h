// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace lexivore {

class Alerts;
class TransformationManager;
class WindowState;

/// The toolbar's text group: paste, copy and clear the whole text.
class ClipboardFlow : public QObject {
    Q_OBJECT

public:
    ClipboardFlow(TransformationManager &manager, WindowState &state, Alerts &alerts, QObject *parent = nullptr);

    /// The clipboard's text becomes the current text. A clipboard without text changes nothing.
    void paste();
    /// Puts the current text on the clipboard and shows the confirmation for 1.5 s. Each copy hides it 1.5 s after
    /// itself, so a second copy does not prolong the first one's display.
    void copy();
    /// Asks, then clears text, operations and history. Does nothing when there is no text.
    void clear();

private:
    TransformationManager &m_manager;
    WindowState &m_state;
    Alerts &m_alerts;
};

} // namespace lexivore
