// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/flows/transformation_flow.h"

#include "manager/transformation_manager.h"
#include "ui/flows/memory_shortage.h"
#include "ui/sheets/alerts.h"
#include "ui/sheets/sheets.h"
#include "ui/translation.h"
#include "ui/window/window_state.h"

#include <QtGlobal>

#include <utility>

namespace lexivore {

namespace {

ParameterMap defaultValues(const TextTransformation &transformation) {
    ParameterMap values;
    for (const TransformationParameter &parameter : transformation.parameters()) {
        if (!values.emplace(parameter.id, parameter.defaultValue).second) {
            qFatal("Duplicate values for key: '%s", parameter.id.c_str());
        }
    }
    return values;
}

} // namespace

TransformationFlow::TransformationFlow(TransformationManager &manager, WindowState &state, Sheets &sheets,
                                       Alerts &alerts, QObject *parent)
    : QObject(parent), m_manager(manager), m_state(state), m_sheets(sheets), m_alerts(alerts) {}

void TransformationFlow::select(std::string_view id) {
    if (const TransformationPointer transformation = m_manager.findTransformation(id)) {
        select(transformation);
    }
}

void TransformationFlow::select(const TransformationPointer &transformation) {
    if (!m_state.operationsEnabled()) {
        return;
    }
    if (!m_state.stackOperationMode() && !m_manager.appliedOperations().empty() &&
        !orReportShortage(m_alerts, [this] { m_manager.returnToOriginalText(); })) {
        return;
    }
    if (transformation->parameters().empty()) {
        apply(*transformation, {});
    } else {
        askForParameters(transformation);
    }
}

void TransformationFlow::toggleFavorite(const std::string &id) { m_manager.toggleFavorite(id); }

void TransformationFlow::askForParameters(const TransformationPointer &transformation) {
    m_state.pendingTransformation = transformation;
    m_state.transformationParameters = defaultValues(*transformation);
    m_sheets.showParameterSheet(
        transformation, m_state.transformationParameters,
        [this](const ParameterMap &parameters) { applyPending(parameters); },
        [this] { m_state.pendingTransformation.reset(); });
}

void TransformationFlow::applyPending(const ParameterMap &parameters) {
    m_state.transformationParameters = parameters;
    if (const TransformationPointer transformation = std::exchange(m_state.pendingTransformation, nullptr)) {
        apply(*transformation, m_state.transformationParameters);
    }
}

void TransformationFlow::apply(const TextTransformation &transformation, const ParameterMap &parameters) {
    try {
        orReportShortage(m_alerts, [&] { m_manager.applyTransformation(transformation, parameters); });
    } catch (const TransformationError &error) {
        m_alerts.showError(translatedError(error.description()));
    }
}

} // namespace lexivore
