// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/sheets/sheet.h"

namespace lexivore {

class Label;
class ProgressBar;

/// Says what the user waits for, with a button to wait no longer. It stays until it is dismissed.
class ProgressSheet : public Sheet {
    Q_OBJECT

public:
    /// With `totalBytes` over 0 a bar shows how many of them there are.
    explicit ProgressSheet(const QString &title, qint64 totalBytes = 0);

    void setReceived(qint64 bytes);

    void cancel() override;

signals:
    void cancelled();

private:
    qint64 m_totalBytes;
    ProgressBar *m_bar = nullptr;
    Label *m_amount = nullptr;
};

} // namespace lexivore
