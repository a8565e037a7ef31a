// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/sheets/parameter_input_sheet.h"

#include "manager/text_conversion.h"
#include "ui/controls/field.h"
#include "ui/controls/label.h"
#include "ui/controls/push_button.h"
#include "ui/theme/metrics.h"
#include "ui/translation.h"

#include <QVBoxLayout>

#include <utility>

namespace lexivore {

namespace {

constexpr int sheetWidth = 420;

} // namespace

ParameterInputSheet::ParameterInputSheet(TransformationPointer transformation, ParameterMap parameters,
                                         std::function<void(const ParameterMap &)> onApply,
                                         std::function<void()> onCancel)
    : Sheet(translated(transformation->name()), sheetWidth), m_transformation(std::move(transformation)),
      m_parameters(std::move(parameters)), m_onApply(std::move(onApply)), m_onCancel(std::move(onCancel)) {
    setObjectName(QStringLiteral("parameterSheet"));
    const QString description = translated(m_transformation->description());
    setAccessibleDescription(description);
    const int padding = metrics::sheetPadding;
    body().setContentsMargins(padding, padding, padding, padding);
    body().addWidget(new Label(translated(m_transformation->name()), FontRole::headline));
    body().addSpacing(2);
    body().addWidget(new Label(description, FontRole::subheadline, &Theme::text2, Label::Lines::wrapped));
    body().addSpacing(4);
    for (const TransformationParameter &parameter : m_transformation->parameters()) {
        addField(parameter);
    }
    body().addSpacing(20);
    body().addStretch();

    auto *cancelButton = new PushButton(tr("Cancel"));
    cancelButton->setObjectName(QStringLiteral("cancel"));
    auto *applyButton = new PushButton(tr("Apply"), PushButton::Kind::primary);
    applyButton->setObjectName(QStringLiteral("apply"));
    connect(cancelButton, &PushButton::clicked, this, &ParameterInputSheet::cancel);
    connect(applyButton, &PushButton::clicked, this, &ParameterInputSheet::confirm);
    body().addWidget(buttonRow({cancelButton, applyButton}));
}

void ParameterInputSheet::addField(const TransformationParameter &parameter) {
    const QString name = translated(parameter.label);
    auto *field = new Field(name);
    field->setObjectName(QStringLiteral("parameter.") + toQString(parameter.id));
    field->setPlaceholderText(translated(parameter.placeholder));
    field->setText(toQString(m_parameters[parameter.id]));
    connect(field, &Field::textChanged, this,
            [this, id = parameter.id](const QString &text) { m_parameters[id] = toUtf8(text); });
    auto *label = new Label(name, FontRole::fieldLabel, &Theme::text, Label::Lines::wrapped);
    label->setBuddy(field);
    body().addSpacing(12);
    body().addWidget(label);
    body().addSpacing(4);
    body().addWidget(field);
}

void ParameterInputSheet::takeFocus() {
    Sheet::takeFocus();
    if (auto *field = qobject_cast<Field *>(window()->focusWidget())) {
        field->selectAll();
    }
}

void ParameterInputSheet::confirm() {
    // The sheet may be gone when the action opens the next one.
    const auto apply = m_onApply;
    const ParameterMap parameters = m_parameters;
    dismiss();
    if (apply) {
        apply(parameters);
    }
}

void ParameterInputSheet::cancel() {
    const auto forget = m_onCancel;
    dismiss();
    if (forget) {
        forget();
    }
}

} // namespace lexivore
