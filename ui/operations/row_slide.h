// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <vector>

class QVariantAnimation;

namespace lexivore {

/// Lets rows slide to the places that their layout has given them.
class RowSlide : public QObject {
    Q_OBJECT

public:
    /// For rows that stand in `column`.
    explicit RowSlide(QWidget &column);

    /// A row and how many pixels above (negative) or below its place it starts.
    struct Start {
        QPointer<QWidget> row;
        int offset;
    };
    /// The rows stand in their places already. What slid before is finished first.
    void slide(const std::vector<Start> &starts);
    /// Puts every row into its place at once.
    void finish();

private:
    struct Way {
        QPointer<QWidget> row;
        int place;
        int offset;
    };

    void moveRows(double remaining);

    QWidget &m_column;
    QVariantAnimation *m_animation;
    std::vector<Way> m_ways;
};

} // namespace lexivore
