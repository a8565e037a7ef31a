// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/results/statistics_result_view.h"

#include "ui/controls/hairline.h"
#include "ui/controls/label.h"
#include "ui/results/average_row.h"
#include "ui/results/compact_stat_card.h"
#include "ui/theme/metrics.h"

#include <QGridLayout>
#include <QVBoxLayout>

namespace lexivore {

namespace {

constexpr QSize viewSize(500, 450);
constexpr int gap = 12;
constexpr int columns = 3;

} // namespace

StatisticsResultView::StatisticsResultView(const TextTool &tool, const Text &text, const TextStatistics &stats)
    : ToolView(tool, text, viewSize), m_stats(stats) {}

void StatisticsResultView::appear() {
    // Little is kept free below, so that fonts with taller lines fit into the fixed height too.
    body().setContentsMargins(metrics::sheetPadding, 16, metrics::sheetPadding, 8);
    body().addWidget(makeCards());
    body().addSpacing(16);
    body().addWidget(new Label(tr("Averages"), FontRole::sectionTitle, &Theme::text2));
    body().addSpacing(4);
    body().addWidget(makeAverages());
    body().addStretch();
}

QWidget *StatisticsResultView::makeCards() const {
    const auto number = [](std::int64_t count) { return QString::number(count); };
    auto *cards = new QWidget;
    auto *grid = new QGridLayout(cards);
    grid->setContentsMargins({});
    grid->setSpacing(gap);
    int place = 0;
    const auto add = [&](const QString &title, std::int64_t value, const char *icon, ThemeColour colour) {
        grid->addWidget(new CompactStatCard(title, number(value), QLatin1String(icon), colour), place / columns,
                        place % columns);
        grid->setColumnStretch(place % columns, 1);
        ++place;
    };
    // clang-format off
    add(tr("Characters"), m_stats.characters,         "textformat.abc",        &Theme::blue);
    add(tr("Words"),      m_stats.words,              "character.book.closed", &Theme::green);
    add(tr("Lines"),      m_stats.lines,              "list.bullet",           &Theme::orange);
    add(tr("No Spaces"),  m_stats.charactersNoSpaces, "space",                 &Theme::purple);
    add(tr("Sentences"),  m_stats.sentences,          "text.quote",            &Theme::indigo);
    add(tr("Paragraphs"), m_stats.paragraphs,         "doc.text",              &Theme::teal);
    // clang-format on
    return cards;
}

QWidget *StatisticsResultView::makeAverages() const {
    auto *card = new Card;
    auto *column = new QVBoxLayout(card);
    column->setContentsMargins(metrics::line, metrics::line, metrics::line, metrics::line);
    column->setSpacing(0);
    const auto add = [&](const QString &label, const std::string &value) {
        if (column->count() > 0) {
            column->addWidget(new Hairline);
        }
        column->addWidget(new AverageRow(label, QString::fromStdString(value)));
    };
    add(tr("Chars per word"), charactersPerWord(m_stats));
    add(tr("Words per line"), wordsPerLine(m_stats));
    add(tr("Words per sentence"), wordsPerSentence(m_stats));
    return card;
}

} // namespace lexivore
