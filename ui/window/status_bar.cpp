// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/window/status_bar.h"

#include "ui/controls/tool_button.h"
#include "ui/theme/theme.h"
#include "ui/window/status_item.h"

#include <QHBoxLayout>

namespace lexivore {

namespace {

constexpr int itemGap = 16;
constexpr ToolButton::Size gearSize{28, 18};

} // namespace

StatusBar::StatusBar(QWidget *parent)
    : Surface(&Theme::chrome, parent), m_position(new StatusItem("location", tr("Current cursor position"), this)),
      m_characters(new StatusItem("character.cursor.ibeam", tr("Total characters"), this)),
      m_words(new StatusItem("character.textbox", tr("Word count"), this)),
      m_lines(new StatusItem("text.line.first.and.arrowtriangle.forward", tr("Lines of text"), this)),
      m_lineEnding(new StatusItem("return", tr("Line endings of the text"), this)) {
    setObjectName("statusBar");
    m_position->setObjectName("cursorPosition");
    m_characters->setObjectName("characterCount");
    m_words->setObjectName("wordCount");
    m_lines->setObjectName("lineCount");
    m_lineEnding->setObjectName("lineEnding");
    m_lineEnding->hide();

    auto *gear = new ToolButton("gearshape", tr("Editor settings"), gearSize, this);
    gear->setObjectName("editorSettings");
    gear->setFocusPolicy(Qt::TabFocus);
    connect(gear, &QToolButton::clicked, this, &StatusBar::settingsRequested);

    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(itemGap, 2, 6, 2);
    row->setSpacing(itemGap);
    for (StatusItem *item : {m_position, m_characters, m_words, m_lines, m_lineEnding}) {
        row->addWidget(item);
    }
    row->addStretch();
    row->addWidget(gear);
    setCursorPosition(1, 1);
    setCounts(0, 0, 1);
}

void StatusBar::setCursorPosition(std::size_t line, std::size_t column) {
    m_position->setText(tr("Ln %1, Col %2").arg(line).arg(column));
}

void StatusBar::setLineEnding(const QString &name) {
    m_lineEnding->setText(name);
    m_lineEnding->setVisible(!name.isEmpty());
}

void StatusBar::setCounts(std::size_t characters, std::size_t words, std::size_t lines) {
    m_characters->setText(QString::number(characters));
    m_words->setText(QString::number(words));
    m_lines->setText(QString::number(lines));
}

} // namespace lexivore
