// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/results/tool_view.h"

#include "manager/text_conversion.h"
#include "tools/text_tool.h"
#include "ui/controls/push_button.h"
#include "ui/controls/sheet_edges.h"
#include "ui/translation.h"

#include <QClipboard>
#include <QGuiApplication>

#include <utility>

namespace lexivore {

ToolView::ToolView(const TextTool &tool, Text text, const QSize &size)
    : Sheet(translated(tool.name()), size.width()), m_text(std::move(text)) {
    setObjectName(QStringLiteral("toolResult.") + toQString(tool.id()));
    setAccessibleDescription(translated(tool.description()));
    setLeastHeight(size.height());
    addAboveBody(makeSymbolHeader(toQString(tool.icon()), translated(tool.name()), translated(tool.description())));
    addBelowBody(makeFooter());
}

QWidget *ToolView::makeFooter() {
    auto *copyButton = new PushButton(tr("Copy"));
    copyButton->setObjectName(QStringLiteral("copy"));
    copyButton->setSymbol(QStringLiteral("doc.on.doc"));
    auto *doneButton = new PushButton(tr("Done"), PushButton::Kind::primary);
    doneButton->setObjectName(QStringLiteral("done"));
    connect(copyButton, &PushButton::clicked, this, &ToolView::copyReport);
    connect(doneButton, &PushButton::clicked, this, &ToolView::dismiss);
    return makeButtonFooter({copyButton}, {doneButton});
}

void ToolView::takeFocus() { findChild<PushButton *>(QStringLiteral("done"))->setFocus(Qt::OtherFocusReason); }

void ToolView::copyReport() const { QGuiApplication::clipboard()->setText(toQString(report())); }

bool ToolView::event(QEvent *event) {
    // Comes once, just before the first showing: what is added now is laid out when the view is first painted.
    if (event->type() == QEvent::Polish && !m_hasAppeared) {
        m_hasAppeared = true;
        appear();
    }
    return Sheet::event(event);
}

} // namespace lexivore
