// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace lexivore {

/// What a list shows instead of rows: a text, and an icon above it when it has one. Its centre lies a little above the
/// middle of `column`, the widget that it stands in.
class EmptyState : public QWidget {
    Q_OBJECT

public:
    explicit EmptyState(QWidget *column, QWidget *parent = nullptr);

    /// An empty icon name is no icon.
    void show(const QString &icon, const QString &text);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QWidget *m_column;
    QString m_icon;
    QString m_text;
};

} // namespace lexivore
