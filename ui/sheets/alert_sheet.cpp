// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/sheets/alert_sheet.h"

#include "ui/controls/accessible_role.h"
#include "ui/controls/focus_ring.h"
#include "ui/controls/label.h"
#include "ui/controls/push_button.h"
#include "ui/theme/metrics.h"

#include <QCheckBox>
#include <QHBoxLayout>

#include <utility>

namespace lexivore {

namespace {

constexpr int sheetWidth = 360;
constexpr int topPadding = 24;
constexpr int greatestHeight = 400;
constexpr int iconSize = 64;

Label *centred(const QString &text, FontRole role, ThemeColour colour) {
    auto *label = new Label(text, role, colour, Label::Lines::wrapped);
    label->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    return label;
}

} // namespace

AlertSheet::AlertSheet(const AlertContents &contents, std::function<void(AlertAnswer)> answered)
    : Sheet(contents.title, sheetWidth), m_isDestructive(contents.isDestructive), m_answered(std::move(answered)) {
    setObjectName(QStringLiteral("alert"));
    setAccessibleRole(*this, QAccessible::AlertMessage);
    setAccessibleDescription(contents.message);
    setGreatestHeight(heightFor(greatestHeight, FontRole::subheadline, 16));
    auto *message = centred(contents.message, FontRole::subheadline, &Theme::text2);
    message->setObjectName(QStringLiteral("message"));

    const int padding = metrics::sheetPadding;
    body().setContentsMargins(padding, topPadding, padding, 0);
    if (!contents.icon.isNull()) {
        auto *picture = new QLabel;
        picture->setPixmap(contents.icon.pixmap(QSize(iconSize, iconSize), devicePixelRatioF()));
        body().addWidget(picture, 0, Qt::AlignHCenter);
        body().addSpacing(12);
    }
    body().addWidget(centred(contents.title, FontRole::alertTitle, &Theme::text));
    body().addSpacing(8);
    body().addWidget(message);
    body().addStretch();
    addBelowBody(makeButtons(contents));
}

QWidget *AlertSheet::makeButtons(const AlertContents &contents) {
    auto *footer = new QWidget;
    auto *column = new QVBoxLayout(footer);
    const int padding = metrics::sheetPadding;
    column->setContentsMargins(padding, contents.offersDontAskAgain ? 16 : padding, padding, padding);
    column->setSpacing(padding);
    if (contents.offersDontAskAgain) {
        m_dontAskAgain = new QCheckBox(tr("Don't ask again"));
        m_dontAskAgain->setObjectName(QStringLiteral("dontAskAgain"));
        setFocusShape(*m_dontAskAgain, {FocusShape::Placement::outside, 5});
        column->addWidget(m_dontAskAgain, 0, Qt::AlignHCenter);
    }
    auto *row = new QHBoxLayout;
    row->setSpacing(metrics::buttonGap);
    if (contents.isDestructive) {
        auto *cancelButton = new PushButton(tr("Cancel"));
        cancelButton->setObjectName(QStringLiteral("cancel"));
        connect(cancelButton, &PushButton::clicked, this, [this] { answer(false); });
        row->addWidget(cancelButton, 1);
    }
    const auto kind = contents.isDestructive ? PushButton::Kind::destructive : PushButton::Kind::primary;
    auto *confirmButton = new PushButton(contents.confirmation, kind);
    confirmButton->setObjectName(QStringLiteral("confirm"));
    connect(confirmButton, &PushButton::clicked, this, [this] { answer(true); });
    row->addWidget(confirmButton, 1);
    column->addLayout(row);
    return footer;
}

void AlertSheet::takeFocus() {
    const auto *name = m_isDestructive ? "cancel" : "confirm";
    // Return presses what has the focus: before a loss the ring shows at once what that is.
    const Qt::FocusReason reason = m_isDestructive ? Qt::TabFocusReason : Qt::OtherFocusReason;
    findChild<PushButton *>(QLatin1String(name))->setFocus(reason);
}

void AlertSheet::cancel() {
    // A message that cannot be declined is merely acknowledged.
    answer(!m_isDestructive);
}

void AlertSheet::answer(bool isConfirmed) {
    const auto answered = std::exchange(m_answered, nullptr);
    const bool asksNoMore = m_dontAskAgain != nullptr && m_dontAskAgain->isChecked();
    dismiss();
    if (answered) {
        answered({isConfirmed, asksNoMore});
    }
}

} // namespace lexivore
