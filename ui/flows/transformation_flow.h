// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/text_transformation.h"

#include <QObject>

#include <string_view>

namespace lexivore {

class Alerts;
class Sheets;
class TransformationManager;
class WindowState;

/// From the choice of a transformation to the changed text.
class TransformationFlow : public QObject {
    Q_OBJECT

public:
    TransformationFlow(TransformationManager &manager, WindowState &state, Sheets &sheets, Alerts &alerts,
                       QObject *parent = nullptr);

    /// Applies the transformation, or asks for its parameters first. In single mode it starts again from the base text.
    /// Does nothing while the operations are paused.
    void select(const TransformationPointer &transformation);
    /// As above for a catalog id; an unknown one is ignored.
    void select(std::string_view id);

    /// Marks or unmarks a favorite.
    void toggleFavorite(const std::string &id);

private:
    void askForParameters(const TransformationPointer &transformation);
    void applyPending(const ParameterMap &parameters);
    void apply(const TextTransformation &transformation, const ParameterMap &parameters);

    TransformationManager &m_manager;
    WindowState &m_state;
    Sheets &m_sheets;
    Alerts &m_alerts;
};

} // namespace lexivore
