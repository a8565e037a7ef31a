// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/flows/operations_flow.h"

#include "manager/transformation_manager.h"
#include "ui/flows/memory_shortage.h"
#include "ui/sheets/alerts.h"
#include "ui/sheets/sheets.h"
#include "ui/shell/notification_center.h"
#include "ui/window/window_state.h"

namespace lexivore {

OperationsFlow::OperationsFlow(TransformationManager &manager, WindowState &state, NotificationCenter &center,
                               Sheets &sheets, Alerts &alerts, QObject *parent)
    : QObject(parent), m_manager(manager), m_state(state), m_center(center), m_sheets(sheets), m_alerts(alerts) {}

void OperationsFlow::togglePause() {
    const bool pauses = m_state.operationsEnabled();
    if (m_manager.appliedOperations().empty()) {
        m_state.setOperationsEnabled(!pauses);
        return;
    }
    orReportShortage(m_alerts, [&] {
        if (pauses) {
            m_state.setOperationsEnabled(false);
            m_manager.setCurrentText(m_manager.originalText());
        } else {
            m_manager.reapplyOperations();
            m_state.setOperationsEnabled(true);
        }
    });
}

void OperationsFlow::toggle(std::size_t index) {
    orReportShortage(m_alerts, [&] { m_manager.toggleOperation(index, textAfterChange()); });
    m_center.post(notification::refreshOperations);
}

void OperationsFlow::remove(std::size_t index) {
    orReportShortage(m_alerts, [&] { m_manager.removeOperation(index, textAfterChange()); });
}

void OperationsFlow::move(std::size_t from, std::size_t to) {
    orReportShortage(m_alerts, [&] { m_manager.moveOperation(from, to, textAfterChange()); });
}

void OperationsFlow::edit(std::size_t index) {
    if (index >= m_manager.appliedOperations().size()) {
        return;
    }
    const AppliedOperation &operation = m_manager.appliedOperations()[index];
    const TransformationPointer transformation = m_manager.findTransformation(operation.transformation);
    if (!transformation || transformation->parameters().empty()) {
        return;
    }
    m_sheets.showParameterSheet(
        transformation, operation.parameters,
        [this, index](const ParameterMap &parameters) {
            orReportShortage(m_alerts,
                             [&] { m_manager.editOperationParameters(index, parameters, textAfterChange()); });
        },
        [] {});
}

void OperationsFlow::clear() {
    if (!m_manager.appliedOperations().empty()) {
        m_alerts.askToClearOperations([this] { orReportShortage(m_alerts, [this] { m_manager.clearOperations(); }); });
    }
}

TextAfterChange OperationsFlow::textAfterChange() const {
    return m_state.operationsEnabled() ? TextAfterChange::result : TextAfterChange::original;
}

} // namespace lexivore
