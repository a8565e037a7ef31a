// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/window/status_bar.h"

#include "ui/controls/tool_button.h"
#include "ui/theme/theme.h"
#include "ui/window/status_item.h"

#include <QHBoxLayout>

namespace lexivore {

namespace {

constexpr int sideMargin = 16;
constexpr int gearMargin = 6;
constexpr int itemGap = 16;
constexpr int smallGap = 12;
constexpr int smallestGap = 6;
constexpr ToolButton::Size gearSize{28, 18};

} // namespace

StatusBar::StatusBar(QWidget *parent)
    : Surface(&Theme::chrome, parent), m_position(new StatusItem("location", tr("Current cursor position"), this)),
      m_characters(new StatusItem("character.cursor.ibeam", tr("Total characters"), this)),
      m_words(new StatusItem("character.textbox", tr("Word count"), this)),
      m_lines(new StatusItem("text.line.first.and.arrowtriangle.forward", tr("Lines of text"), this)),
      m_lineEnding(new StatusItem("return", tr("Line endings of the text"), this)),
      m_gear(new ToolButton("gearshape", tr("Editor settings"), gearSize, this)) {
    setObjectName("statusBar");
    m_position->setObjectName("cursorPosition");
    m_characters->setObjectName("characterCount");
    m_words->setObjectName("wordCount");
    m_lines->setObjectName("lineCount");
    m_lineEnding->setObjectName("lineEnding");
    m_gear->setObjectName("editorSettings");
    m_gear->setFocusPolicy(Qt::TabFocus);
    connect(m_gear, &QToolButton::clicked, this, &StatusBar::settingsRequested);

    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(sideMargin, 2, gearMargin, 2);
    for (StatusItem *item : {m_position, m_characters, m_words, m_lines, m_lineEnding}) {
        row->addWidget(item);
    }
    row->addStretch();
    row->addWidget(m_gear);
    setCursorPosition(1, 1);
    setCounts(0, 0, 1);
}

void StatusBar::setCursorPosition(std::size_t line, std::size_t column) {
    m_position->setText(tr("Ln %1, Col %2").arg(line).arg(column));
    fit();
}

void StatusBar::setLineEnding(const QString &name) {
    m_lineEnding->setText(name);
    fit();
}

void StatusBar::setCounts(std::size_t characters, std::size_t words, std::size_t lines) {
    m_characters->setText(QString::number(characters));
    m_words->setText(QString::number(words));
    m_lines->setText(QString::number(lines));
    fit();
}

void StatusBar::resizeEvent(QResizeEvent *event) {
    Surface::resizeEvent(event);
    fit();
}

void StatusBar::fit() {
    const int room = width() - sideMargin - gearMargin - m_gear->sizeHint().width();
    int items = 0;
    int wanted = 0;
    for (const StatusItem *item : {m_position, m_characters, m_words, m_lines, m_lineEnding}) {
        if (!item->text().isEmpty()) {
            ++items;
            wanted += item->sizeHint().width();
        }
    }
    int gap = itemGap;
    for (const int narrower : {smallGap, smallestGap}) {
        if (wanted + items * gap > room) {
            gap = narrower;
        }
    }
    layout()->setSpacing(gap);
    int taken = 0;
    for (StatusItem *item : {m_position, m_characters, m_words, m_lines, m_lineEnding}) {
        taken += item->sizeHint().width() + gap;
        item->setVisible(!item->text().isEmpty() && (item == m_position || taken <= room));
    }
}

} // namespace lexivore
