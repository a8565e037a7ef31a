// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "manager/transformation_manager.h"

#include <QObject>

#include <cstddef>

namespace lexivore {

class Alerts;
class NotificationCenter;
class Sheets;
class WindowState;

/// What the user does to the operations stack.
class OperationsFlow : public QObject {
    Q_OBJECT

public:
    OperationsFlow(TransformationManager &manager, WindowState &state, NotificationCenter &center, Sheets &sheets,
                   Alerts &alerts, QObject *parent = nullptr);

    /// Pauses: the base text is shown and the stack stays, not applied. Or resumes: the stack is run again.
    /// Without operations there is nothing to leave out, and the text stays as it is.
    void togglePause();

    /// Indices are positions in the stack. The text shown while paused stays the base text.
    void toggle(std::size_t index);
    void remove(std::size_t index);
    void move(std::size_t from, std::size_t to);
    /// Asks for other parameters of the operation and runs the stack again. Does nothing for one without parameters.
    void edit(std::size_t index);

    /// Asks, then clears the stack. Does nothing when it is empty.
    void clear();

private:
    [[nodiscard]] TextAfterChange textAfterChange() const;

    TransformationManager &m_manager;
    WindowState &m_state;
    NotificationCenter &m_center;
    Sheets &m_sheets;
    Alerts &m_alerts;
};

} // namespace lexivore
