// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/results/tool_view.h"

#include "tools/text_tool.h"
#include "ui/controls/hairline.h"
#include "ui/controls/label.h"
#include "ui/controls/push_button.h"
#include "ui/results/symbol_chip.h"
#include "ui/text_conversion.h"
#include "ui/theme/metrics.h"
#include "ui/translation.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>

#include <utility>

namespace lexivore {

namespace {

constexpr int headerHeight = 68;
constexpr int footerHeight = 56;
constexpr int footerInset = 16;

} // namespace

ToolView::ToolView(const TextTool &tool, Text text, const QSize &size)
    : Sheet(translated(tool.name()), size.width()), m_text(std::move(text)) {
    setObjectName(QStringLiteral("toolResult.") + toQString(tool.id()));
    setAccessibleDescription(translated(tool.description()));
    setLeastHeight(size.height());
    addAboveBody(makeHeader(tool));
    addBelowBody(makeFooter());
}

QWidget *ToolView::makeHeader(const TextTool &tool) {
    auto *header = new QWidget;
    auto *column = new QVBoxLayout(header);
    column->setSpacing(0);
    column->setContentsMargins({});
    auto *row = new QHBoxLayout;
    row->setContentsMargins(metrics::sheetPadding, 0, metrics::sheetPadding, 0);
    row->setSpacing(12);
    auto *texts = new QVBoxLayout;
    texts->setSpacing(0);
    texts->addStretch();
    texts->addWidget(new Label(translated(tool.name()), FontRole::headline));
    texts->addWidget(new Label(translated(tool.description()), FontRole::caption, &Theme::text2));
    texts->addStretch();
    row->addWidget(new SymbolChip(toQString(tool.icon())));
    row->addLayout(texts, 1);
    column->addLayout(row, 1);
    column->addWidget(new Hairline);
    header->setFixedHeight(heightFor(headerHeight, FontRole::body, 2));
    return header;
}

QWidget *ToolView::makeFooter() {
    auto *copyButton = new PushButton(tr("Copy"));
    copyButton->setObjectName(QStringLiteral("copy"));
    copyButton->setSymbol(QStringLiteral("doc.on.doc"));
    auto *doneButton = new PushButton(tr("Done"), PushButton::Kind::primary);
    doneButton->setObjectName(QStringLiteral("done"));
    connect(copyButton, &PushButton::clicked, this, &ToolView::copyReport);
    connect(doneButton, &PushButton::clicked, this, &ToolView::dismiss);

    auto *footer = new QWidget;
    auto *column = new QVBoxLayout(footer);
    column->setSpacing(0);
    column->setContentsMargins({});
    auto *row = new QHBoxLayout;
    row->setContentsMargins(footerInset, 0, footerInset, 0);
    // Aligned, the row takes all the height that the line leaves.
    row->addWidget(copyButton, 0, Qt::AlignVCenter);
    row->addStretch();
    row->addWidget(doneButton, 0, Qt::AlignVCenter);
    column->addWidget(new Hairline);
    column->addLayout(row, 1);
    footer->setFixedHeight(heightFor(footerHeight, FontRole::callout));
    return footer;
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
