// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/text_transformation.h"
#include "ui/sheets/sheet.h"

#include <functional>

namespace lexivore {

/// Asks for the values of a transformation's parameters. It checks nothing: any text is passed on as it was typed.
class ParameterInputSheet : public Sheet {
    Q_OBJECT

public:
    /// The fields start with `parameters`. One of the two actions is called, once, after the sheet was dismissed.
    ParameterInputSheet(TransformationPointer transformation, ParameterMap parameters,
                        std::function<void(const ParameterMap &)> onApply, std::function<void()> onCancel);

    void takeFocus() override;
    void confirm() override;
    void cancel() override;

private:
    void addField(const TransformationParameter &parameter);

    TransformationPointer m_transformation;
    ParameterMap m_parameters;
    std::function<void(const ParameterMap &)> m_onApply;
    std::function<void()> m_onCancel;
};

} // namespace lexivore
