// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>

namespace lexivore {

/// A text field that takes text of any length. It keeps its looks while a sheet lies over it.
class Field : public QLineEdit {
    Q_OBJECT

public:
    /// `name` is what assistive technology reads before the content.
    explicit Field(const QString &name, QWidget *parent = nullptr);

protected:
    void changeEvent(QEvent *event) override;

private:
    void colourText();
};

} // namespace lexivore
