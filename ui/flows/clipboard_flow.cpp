// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/flows/clipboard_flow.h"

#include "manager/transformation_manager.h"
#include "ui/editor/text_mime_data.h"
#include "ui/flows/memory_shortage.h"
#include "ui/sheets/alerts.h"
#include "ui/shortage_message.h"
#include "ui/window/window_state.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QTimer>

#include <chrono>

namespace lexivore {

namespace {

using namespace std::chrono_literals;
constexpr std::chrono::milliseconds confirmationTime = 1500ms;

} // namespace

ClipboardFlow::ClipboardFlow(TransformationManager &manager, WindowState &state, Alerts &alerts, QObject *parent)
    : QObject(parent), m_manager(manager), m_state(state), m_alerts(alerts) {}

void ClipboardFlow::paste() {
    const QMimeData *content = QGuiApplication::clipboard()->mimeData();
    if (content == nullptr || !content->hasText()) {
        return;
    }
    orReportShortage(m_alerts, [&] {
        const Text pasted = textOf(*content);
        if (pasted.size() > largestText) {
            m_alerts.showError(tr("The text is larger than 2 GB, the most that the editor can hold."));
        } else {
            m_manager.setCurrentText(pasted);
        }
    });
}

void ClipboardFlow::copy() {
    auto *const copied = new TextMimeData(m_manager.currentText());
    // Whoever asks for it does so in the midst of an event, which an alert waits for.
    connect(
        copied, &TextMimeData::fellShort, this, [this] { m_alerts.showError(memoryShortageMessage()); },
        Qt::QueuedConnection);
    QGuiApplication::clipboard()->setMimeData(copied);
    m_state.setShowCopyConfirmation(true);
    QTimer::singleShot(confirmationTime, this, [this] { m_state.setShowCopyConfirmation(false); });
}

void ClipboardFlow::clear() {
    if (!m_manager.currentText().empty()) {
        m_alerts.askToClearText([this] { orReportShortage(m_alerts, [this] { m_manager.clearAll(); }); });
    }
}

} // namespace lexivore
