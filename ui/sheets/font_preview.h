// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

namespace lexivore {

/// A sample of the editor's font on the editor's ground.
class FontPreview : public QLabel {
    Q_OBJECT

public:
    explicit FontPreview(const QString &sample, QWidget *parent = nullptr);

    void setFontSize(double points);

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace lexivore
