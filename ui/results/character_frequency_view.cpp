// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/results/character_frequency_view.h"

#include "ui/controls/accessible_role.h"
#include "ui/controls/label.h"
#include "ui/results/frequency_row.h"
#include "ui/theme/metrics.h"
#include "ui/translation.h"

#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

namespace lexivore {

namespace {

constexpr QSize viewSize(500, 500);

} // namespace

CharacterFrequencyView::CharacterFrequencyView(const TextTool &tool, const Text &text)
    : ToolView(tool, text, viewSize) {
    // The list scrolls within the sheet's own height, and the rows keep their width whether it has to or not.
    setGreatestHeight(heightFor(viewSize.height(), FontRole::body, 12));
    scrollArea().setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    auto *caption = new QWidget;
    auto *column = new QVBoxLayout(caption);
    column->setContentsMargins(metrics::sheetPadding, 12, metrics::sheetPadding, 8);
    auto *words = new Label(tr("Showing top 20 characters"), FontRole::caption, &Theme::text2);
    words->setObjectName(QStringLiteral("caption"));
    column->addWidget(words);
    addAboveBody(caption);
}

void CharacterFrequencyView::appear() {
    m_frequencies = characterFrequencies(text().view());
    const int scrollBar = scrollArea().verticalScrollBar()->sizeHint().width();
    body().setContentsMargins(metrics::sheetPadding, 0, metrics::sheetPadding - scrollBar, 4);

    auto *list = new QWidget;
    setAccessibleRole(*list, QAccessible::List);
    list->setAccessibleName(tr("Showing top 20 characters"));
    auto *rows = new QVBoxLayout(list);
    rows->setContentsMargins({});
    rows->setSpacing(0);
    const std::int64_t greatest = m_frequencies.empty() ? 0 : m_frequencies.front().count;
    const std::size_t shown = std::min(shownFrequencyCount, m_frequencies.size());
    for (std::size_t index = 0; index < shown; ++index) {
        const CharacterFrequency &entry = m_frequencies[index];
        rows->addWidget(new FrequencyRow(translated(displayedCharacter(entry)), entry.count, greatest));
    }
    body().addWidget(list);
    body().addStretch();
}

} // namespace lexivore
