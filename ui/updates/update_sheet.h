// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "services/updates/updater.h"
#include "ui/sheets/sheet.h"

namespace lexivore {

/// Shows a found update and asks what to do with it. Exactly one of the three choices is told, after the sheet was
/// dismissed; Escape means later.
class UpdateSheet : public Sheet {
    Q_OBJECT

public:
    /// When nobody asked for it, neither Return nor a key that was meant for the text installs anything.
    UpdateSheet(const AppcastItem &item, const QString &currentVersion, Updater::Origin origin);

    void takeFocus() override;
    void confirm() override;
    void cancel() override;

signals:
    void installChosen();
    void laterChosen();
    void skipChosen();
    /// A link of the release notes.
    void linkChosen(const QUrl &address);

private:
    [[nodiscard]] QWidget *makeFooter();
    void choose(void (UpdateSheet::*choice)());

    Updater::Origin m_origin;
    bool m_isAnswered = false;
};

} // namespace lexivore
