// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QProgressBar>

namespace lexivore {

/// A thin bar that fills up. `name` is what assistive technology reads before the value.
class ProgressBar : public QProgressBar {
    Q_OBJECT

public:
    explicit ProgressBar(const QString &name, QWidget *parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace lexivore
