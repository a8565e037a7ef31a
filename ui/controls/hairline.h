// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace lexivore {

/// A line one pixel thick in the border colour, as wide, or as high, as there is room.
class Hairline : public QWidget {
    Q_OBJECT

public:
    explicit Hairline(Qt::Orientation orientation = Qt::Horizontal, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace lexivore
