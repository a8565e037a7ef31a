// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/window/row_button.h"

namespace lexivore {

/// A caption with a disclosure chevron at the right.
class SectionHeader : public RowButton {
    Q_OBJECT

public:
    explicit SectionHeader(const QString &title, QWidget *parent = nullptr);

    /// 0: folded, the chevron points to the right. 1: unfolded, it has made a quarter turn.
    void setDisclosure(qreal disclosure);
    [[nodiscard]] qreal disclosure() const { return m_disclosure; }

    [[nodiscard]] bool isListItem() const override { return false; }
    void addState(QAccessible::State &state) const override;
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    qreal m_disclosure = 1;
};

} // namespace lexivore
