// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/results/readability_view.h"

#include "tools/number_text.h"
#include "ui/controls/accessible_role.h"
#include "ui/controls/label.h"
#include "ui/results/card.h"
#include "ui/results/footnote.h"
#include "ui/results/readability_scale.h"
#include "ui/theme/metrics.h"
#include "ui/translation.h"

#include <QHBoxLayout>

namespace lexivore {

namespace {

constexpr QSize viewSize(500, 450);
constexpr int gap = 12;
constexpr int countCardHeight = 68;

} // namespace

ReadabilityView::ReadabilityView(const TextTool &tool, const Text &text) : ToolView(tool, text, viewSize) {}

void ReadabilityView::appear() {
    m_result = readability(text().view());
    body().setContentsMargins(metrics::sheetPadding, metrics::sheetPadding, metrics::sheetPadding,
                              metrics::sheetPadding);
    auto *counts = new QHBoxLayout;
    counts->setSpacing(gap);
    counts->addWidget(makeCount(tr("Words:"), m_result.words), 1);
    counts->addWidget(makeCount(tr("Sentences:"), m_result.sentences), 1);
    counts->addWidget(makeCount(tr("Syllables:"), m_result.syllables), 1);
    body().addWidget(makeScoreCard());
    body().addSpacing(gap);
    body().addLayout(counts);
    body().addSpacing(gap);
    body().addStretch();
    body().addWidget(makeFootnote(tr("Higher scores indicate easier readability")));
}

QWidget *ReadabilityView::makeScoreCard() const {
    const QString score = QString::fromStdString(oneDecimalText(m_result.score));
    const QString level = translated(m_result.level);
    const QString grade = translated(m_result.gradeLevel);
    auto *card = new Card;
    setAccessibleRole(*card, QAccessible::Grouping);
    card->setAccessibleName(tr("Flesch Reading Ease"));
    card->setAccessibleDescription(level.isEmpty() ? score : score + QStringLiteral(", ") + level);

    auto *left = new QVBoxLayout;
    left->setSpacing(4);
    left->addWidget(new Label(score, FontRole::score));
    left->addWidget(new Label(tr("Flesch Reading Ease"), FontRole::caption, &Theme::text2));

    auto *gradeRow = new QHBoxLayout;
    gradeRow->setSpacing(4);
    gradeRow->addStretch();
    gradeRow->addWidget(new Label(tr("Grade Level:"), FontRole::caption, &Theme::text2));
    if (!grade.isEmpty()) {
        gradeRow->addWidget(new Label(grade, FontRole::captionMedium));
    }
    auto *levelLabel = new Label(level, FontRole::smallCardValue, &Theme::accentText);
    levelLabel->setAlignment(Qt::AlignTrailing | Qt::AlignVCenter);
    auto *right = new QVBoxLayout;
    right->setSpacing(4);
    right->addStretch();
    right->addWidget(levelLabel);
    right->addLayout(gradeRow);

    auto *top = new QHBoxLayout;
    top->addLayout(left);
    top->addStretch();
    top->addLayout(right);
    auto *column = new QVBoxLayout(card);
    const int padding = metrics::sheetPadding + metrics::line;
    column->setContentsMargins(padding, padding, padding, padding);
    column->setSpacing(metrics::sheetPadding);
    column->addLayout(top);
    column->addWidget(new ReadabilityScale(m_result.score, m_result.words > 0));
    return card;
}

QWidget *ReadabilityView::makeCount(const QString &title, std::int64_t count) const {
    auto *card = new Card;
    setAccessibleRole(*card, QAccessible::Grouping);
    card->setAccessibleName(title);
    card->setAccessibleDescription(QString::number(count));
    auto *column = new QVBoxLayout(card);
    column->setContentsMargins(15, 0, 15, 0);
    column->setSpacing(0);
    column->addStretch();
    column->addWidget(new Label(title, FontRole::caption, &Theme::text2));
    column->addWidget(new Label(QString::number(count), FontRole::smallCardValue));
    column->addStretch();
    card->setFixedHeight(heightFor(countCardHeight, FontRole::smallCardValue, 2));
    return card;
}

} // namespace lexivore
