// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/results/reading_time_view.h"

#include "ui/controls/accessible_role.h"
#include "ui/controls/label.h"
#include "ui/controls/symbol.h"
#include "ui/results/card.h"
#include "ui/results/footnote.h"
#include "ui/theme/metrics.h"

#include <QHBoxLayout>

namespace lexivore {

namespace {

constexpr QSize viewSize(500, 400);
constexpr int gap = 12;
constexpr int durationCardHeight = 136;
constexpr int wordCardHeight = 44;
constexpr int symbolSize = 18;

QWidget *makeDurationCard(const QString &title, const char *icon, ThemeColour colour, ReadingDuration duration,
                          const QString &speed) {
    const QString value = QString::fromStdString(formattedDuration(duration));
    auto *card = new Card;
    setAccessibleRole(*card, QAccessible::Grouping);
    card->setAccessibleName(title);
    card->setAccessibleDescription(value + QChar::Space + speed);
    auto *column = new QVBoxLayout(card);
    column->setContentsMargins(metrics::sheetPadding, 0, metrics::sheetPadding, 0);
    column->setSpacing(0);
    auto *heading = new QHBoxLayout;
    heading->setSpacing(8);
    heading->addWidget(new Symbol(QLatin1String(icon), symbolSize, colour));
    heading->addWidget(new Label(title, FontRole::callout), 1);
    column->addSpacing(17);
    column->addLayout(heading);
    column->addSpacing(12);
    column->addWidget(new Label(value, FontRole::duration, &Theme::text, Label::Lines::shrunk));
    column->addSpacing(4);
    column->addWidget(new Label(speed, FontRole::caption, &Theme::text2));
    column->addStretch();
    column->addSpacing(17);
    card->setMinimumHeight(durationCardHeight);
    return card;
}

QWidget *makeWordCard(std::int64_t words) {
    auto *card = new Card;
    setAccessibleRole(*card, QAccessible::Grouping);
    card->setAccessibleName(ReadingTimeView::tr("%1 words").arg(words));
    auto *row = new QHBoxLayout(card);
    row->setContentsMargins({});
    row->setSpacing(6);
    auto *number = new Label(QString::number(words), FontRole::callout);
    QFont strong = number->font();
    strong.setWeight(QFont::DemiBold);
    number->setFont(strong);
    row->addStretch();
    row->addWidget(number);
    row->addWidget(new Label(ReadingTimeView::tr("words"), FontRole::body, &Theme::text2));
    row->addStretch();
    card->setFixedHeight(heightFor(wordCardHeight, FontRole::body));
    return card;
}

} // namespace

ReadingTimeView::ReadingTimeView(const TextTool &tool, const Text &text) : ToolView(tool, text, viewSize) {}

void ReadingTimeView::appear() {
    m_result = readingTime(text().view());
    body().setContentsMargins(metrics::sheetPadding, metrics::sheetPadding, metrics::sheetPadding,
                              metrics::sheetPadding);
    auto *cards = new QHBoxLayout;
    cards->setSpacing(gap);
    cards->addWidget(
        makeDurationCard(tr("Reading Time"), "book.fill", &Theme::blue, m_result.readingTime, tr("(~200 words/min)")),
        1);
    cards->addWidget(makeDurationCard(tr("Speaking Time"), "mic.fill", &Theme::orange, m_result.speakingTime,
                                      tr("(~150 words/min)")),
                     1);
    body().addLayout(cards);
    body().addSpacing(gap);
    body().addWidget(makeWordCard(m_result.wordCount));
    body().addSpacing(gap);
    body().addStretch();
    body().addWidget(makeFootnote(tr("Based on average reading speed")));
}

} // namespace lexivore
