// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace lexivore {

/// The seven bands of the Flesch Reading Ease from 0 to 100, the one that holds the score in the accent, with a mark at
/// the score.
class ReadabilityScale : public QWidget {
    Q_OBJECT

public:
    /// `score` from 0 to 100. Without a score no band is marked.
    explicit ReadabilityScale(double score, bool hasScore, QWidget *parent = nullptr);

    /// 0 for the hardest band, 6 for the easiest.
    [[nodiscard]] static int bandOf(double score);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    double m_score;
    bool m_hasScore;
};

} // namespace lexivore
