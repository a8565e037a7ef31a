// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/controls/sheet_edges.h"

#include "ui/controls/hairline.h"
#include "ui/controls/label.h"
#include "ui/controls/symbol_chip.h"
#include "ui/theme/metrics.h"

#include <QHBoxLayout>

namespace lexivore {

namespace {

constexpr int symbolHeaderHeight = 68;
constexpr int footerHeight = 56;
constexpr int footerInset = 16;

} // namespace

SheetEdge::SheetEdge(Side side, int height, int inset) : m_row(new QHBoxLayout) {
    auto *column = new QVBoxLayout(this);
    column->setSpacing(0);
    column->setContentsMargins({});
    m_row->setContentsMargins(inset, 0, inset, 0);
    m_row->setSpacing(metrics::buttonGap);
    column->addLayout(m_row, 1);
    column->insertWidget(side == Side::above ? 1 : 0, new Hairline);
    setFixedHeight(height);
}

SheetEdge *makeSymbolHeader(const QString &symbol, const QString &title, const QString &details) {
    auto *texts = new QVBoxLayout;
    texts->setSpacing(0);
    texts->addStretch();
    auto *titleLabel = new Label(title, FontRole::headline);
    titleLabel->setObjectName(QStringLiteral("title"));
    auto *detailsLabel = new Label(details, FontRole::caption, &Theme::text2);
    detailsLabel->setObjectName(QStringLiteral("details"));
    texts->addWidget(titleLabel);
    texts->addWidget(detailsLabel);
    texts->addStretch();

    auto *header =
        new SheetEdge(SheetEdge::Side::above, heightFor(symbolHeaderHeight, FontRole::body, 2), metrics::sheetPadding);
    header->row().setSpacing(12);
    header->row().addWidget(new SymbolChip(symbol));
    header->row().addLayout(texts, 1);
    return header;
}

SheetEdge *makeButtonFooter(const QList<QWidget *> &left, const QList<QWidget *> &right) {
    auto *footer = new SheetEdge(SheetEdge::Side::below, heightFor(footerHeight, FontRole::callout), footerInset);
    // Aligned, the row takes all the height that the line leaves.
    for (QWidget *button : left) {
        footer->row().addWidget(button, 0, Qt::AlignVCenter);
    }
    footer->row().addStretch();
    for (QWidget *button : right) {
        footer->row().addWidget(button, 0, Qt::AlignVCenter);
    }
    return footer;
}

} // namespace lexivore
