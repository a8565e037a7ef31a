// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "services/updates/appcast.h"

#include <QTextBrowser>

namespace lexivore {

/// Shows the release notes of an update. It loads nothing; a link that is chosen is only told.
class ReleaseNotesView : public QTextBrowser {
    Q_OBJECT

public:
    explicit ReleaseNotesView(const AppcastItem &item, QWidget *parent = nullptr);

    [[nodiscard]] bool isEmpty() const { return document()->isEmpty(); }

signals:
    /// The user wants to see an https address.
    void linkChosen(const QUrl &address);

protected:
    QVariant loadResource(int type, const QUrl &name) override;
    bool event(QEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void write();

    AppcastItem m_item;
};

} // namespace lexivore
