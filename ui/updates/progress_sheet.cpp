// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/updates/progress_sheet.h"

#include "ui/controls/label.h"
#include "ui/controls/progress_bar.h"
#include "ui/controls/push_button.h"
#include "ui/theme/metrics.h"
#include "ui/updates/size_text.h"

#include <QVBoxLayout>

namespace lexivore {

namespace {

constexpr int sheetWidth = 360;
constexpr int barSteps = 100;

} // namespace

ProgressSheet::ProgressSheet(const QString &title, qint64 totalBytes)
    : Sheet(title, sheetWidth), m_totalBytes(totalBytes) {
    setObjectName(QStringLiteral("progressSheet"));
    auto *cancelButton = new PushButton(tr("Cancel"));
    cancelButton->setObjectName(QStringLiteral("cancel"));
    connect(cancelButton, &PushButton::clicked, this, &ProgressSheet::cancel);

    const int padding = metrics::sheetPadding;
    body().setContentsMargins(padding, padding, padding, padding);
    auto *titleLabel = new Label(title, FontRole::headline);
    titleLabel->setObjectName(QStringLiteral("title"));
    body().addWidget(titleLabel);
    if (totalBytes > 0) {
        m_bar = new ProgressBar(title);
        m_bar->setObjectName(QStringLiteral("progress"));
        m_bar->setRange(0, barSteps);
        m_amount = new Label({}, FontRole::caption, &Theme::text2);
        m_amount->setObjectName(QStringLiteral("amount"));
        body().addSpacing(12);
        body().addWidget(m_bar);
        body().addSpacing(8);
        body().addWidget(m_amount);
        setReceived(0);
    }
    body().addSpacing(20);
    body().addStretch();
    body().addWidget(buttonRow({cancelButton}));
}

void ProgressSheet::setReceived(qint64 bytes) {
    if (m_bar == nullptr) {
        return;
    }
    m_bar->setValue(static_cast<int>(bytes * barSteps / m_totalBytes));
    m_amount->setText(tr("%1 of %2").arg(sizeText(bytes), sizeText(m_totalBytes)));
}

void ProgressSheet::cancel() {
    dismiss();
    emit cancelled();
}

} // namespace lexivore
