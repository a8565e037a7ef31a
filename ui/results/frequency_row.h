// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace lexivore {

/// A character, a bar for its share of the largest count, and its count.
class FrequencyRow : public QWidget {
    Q_OBJECT

public:
    /// `greatest` is the largest count of the list.
    FrequencyRow(const QString &character, qint64 count, qint64 greatest, QWidget *parent = nullptr);

    /// A sign where the character itself leaves no ink, and only the start of a very long one.
    [[nodiscard]] const QString &shownCharacter() const { return m_character; }
    /// In device-independent pixels: 0 when nothing was counted.
    [[nodiscard]] double barWidth() const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    /// The column of the character and the place for the count: 100 pixels, more for very many digits.
    [[nodiscard]] int widthBesideBar() const;
    /// That place of a row that runs from left to right, where it lies in this one.
    [[nodiscard]] QRectF mirrored(QRectF place) const;

    QString m_character;
    qint64 m_count;
    qint64 m_greatest;
};

} // namespace lexivore
