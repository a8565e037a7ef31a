// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QCheckBox>

namespace lexivore {

/// An on-off switch. To the keyboard and to assistive technology it is a check box.
class Switch : public QCheckBox {
    Q_OBJECT

public:
    /// `name` is read out; nothing is written on the switch itself.
    explicit Switch(const QString &name, QWidget *parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    [[nodiscard]] bool hitButton(const QPoint &position) const override;
    void paintEvent(QPaintEvent *event) override;
};

} // namespace lexivore
