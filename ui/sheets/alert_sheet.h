// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/sheets/sheet.h"

#include <QIcon>

#include <functional>

class QCheckBox;

namespace lexivore {

/// What an alert says and what may be answered.
struct AlertContents {
    QString title;
    QString message;
    QString confirmation;       ///< The word on the confirming button.
    bool isDestructive = false; ///< Confirming loses something: there is "Cancel" too, and it has the focus.
    bool offersDontAskAgain = false;
    QIcon icon = {}; ///< Above the title, if there is one.
};

/// How an alert was answered.
struct AlertAnswer {
    bool isConfirmed = false;
    bool asksNoMore = false; ///< "Don't ask again" was on.
};

/// A message in the middle of the window, with one or two buttons.
class AlertSheet : public Sheet {
    Q_OBJECT

public:
    /// `answered` is called once, after the alert was dismissed.
    AlertSheet(const AlertContents &contents, std::function<void(AlertAnswer)> answered);

    void takeFocus() override;
    void confirm() override { answer(true); }
    void cancel() override;

private:
    QWidget *makeButtons(const AlertContents &contents);
    void answer(bool isConfirmed);

    bool m_isDestructive;
    QCheckBox *m_dontAskAgain = nullptr;
    std::function<void(AlertAnswer)> m_answered;
};

} // namespace lexivore
