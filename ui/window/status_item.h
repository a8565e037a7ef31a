// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace lexivore {

/// An icon with a short text beside it; the help says what the text is. Where there is no room it is cut off.
class StatusItem : public QWidget {
    Q_OBJECT

public:
    StatusItem(const QString &icon, const QString &help, QWidget *parent = nullptr);

    [[nodiscard]] const QString &text() const { return m_text; }
    void setText(const QString &text);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_icon;
    QString m_help;
    QString m_text;
};

} // namespace lexivore
