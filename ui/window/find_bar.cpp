// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/window/find_bar.h"

#include "manager/text_conversion.h"
#include "ui/controls/field.h"
#include "ui/controls/label.h"
#include "ui/controls/tool_button.h"
#include "ui/editor/text_editor.h"
#include "ui/editor/text_search.h"
#include "ui/theme/typography.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QTimer>

#include <algorithm>
#include <chrono>

namespace lexivore {

namespace {

using namespace std::chrono_literals;
constexpr std::chrono::milliseconds recountAfter = 200ms;
constexpr std::size_t countedAtOnce = std::size_t{1} << 20; ///< Bytes of a text in which that is not felt.
constexpr int leastRoomToType = 48;
constexpr std::size_t longestSelection = 200; ///< Bytes of a selection that is worth looking for.

} // namespace

FindBar::FindBar(TextEditor &editor, QWidget *parent)
    : Surface(&Theme::chrome, parent), m_editor(editor), m_field(new Field(tr("Find in text"), this)),
      m_count(new Label({}, FontRole::caption, &Theme::text2, Label::Lines::one, this)), m_recount(new QTimer(this)) {
    setObjectName("findBar");
    m_field->setObjectName("find");
    m_field->setPlaceholderText(tr("Find in text..."));
    m_field->setMinimumWidth(widthFor(leastRoomToType)); // the count is cut off rather
    m_field->installEventFilter(this);
    m_count->setObjectName("matchCount");
    auto *previous = new ToolButton("arrow.up.to.line", tr("Previous match"), ToolButton::row, this);
    auto *next = new ToolButton("arrow.down.to.line", tr("Next match"), ToolButton::row, this);
    auto *done = new ToolButton("xmark.circle", tr("Close"), ToolButton::row, this);
    previous->setObjectName("findPrevious");
    next->setObjectName("findNext");
    done->setObjectName("closeFind");
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(16, 6, 10, 6);
    row->setSpacing(8);
    row->addWidget(m_field, 1);
    row->addWidget(m_count);
    auto *buttons = new QHBoxLayout;
    buttons->setSpacing(2);
    for (ToolButton *button : {previous, next, done}) {
        button->setFocusPolicy(Qt::TabFocus);
        buttons->addWidget(button);
    }
    row->addLayout(buttons);
    connect(previous, &ToolButton::clicked, this, &FindBar::findPrevious);
    connect(next, &ToolButton::clicked, this, &FindBar::findNext);
    connect(done, &ToolButton::clicked, this, &FindBar::close);
    connect(m_field, &Field::textChanged, this, &FindBar::countSoon);
    // Counting walks the whole text, so in a large one it waits for a pause in typing or in going from match to match.
    m_recount->setSingleShot(true);
    m_recount->setInterval(recountAfter);
    connect(m_recount, &QTimer::timeout, this, &FindBar::showCount);
    connect(&m_editor, &TextEditor::countsChanged, m_recount, [this] {
        if (isVisible()) {
            m_recount->start();
        }
    });
    hide();
}

void FindBar::open() {
    const TextDocument &document = m_editor.document();
    if (document.hasSelection() && document.selectionEnd() - document.selectionStart() <= longestSelection) {
        const QString selected = toQString(document.selectedText().view());
        if (selected == onOneLine(selected)) {
            m_field->setText(selected);
        }
    }
    show();
    m_field->setFocus(Qt::ShortcutFocusReason);
    m_field->selectAll();
    countSoon();
}

void FindBar::close() {
    hide();
    m_recount->stop();
    m_editor.setFocus(Qt::OtherFocusReason);
}

void FindBar::findNext() { find(true); }

void FindBar::findPrevious() { find(false); }

std::string FindBar::needle() const { return toUtf8(m_field->text()); }

void FindBar::find(bool forward) {
    if (needle().empty()) {
        open();
        return;
    }
    static_cast<void>(forward ? m_editor.findNext(needle()) : m_editor.findPrevious(needle()));
    if (isVisible()) {
        countSoon();
    }
}

void FindBar::countSoon() {
    if (m_editor.text().size() <= countedAtOnce) {
        showCount();
        return;
    }
    m_count->setText({}); // which counted the matches of something else, or told the place of another one
    m_recount->start();
}

void FindBar::showCount() {
    m_recount->stop();
    m_count->setVisible(!needle().empty());
    if (needle().empty()) {
        return;
    }
    const std::size_t count = countMatches(m_editor.text(), needle());
    if (const std::size_t selected = selectedMatch(); selected > 0) {
        m_count->setText(tr("%1 of %2").arg(std::min(selected, count)).arg(count));
        return;
    }
    m_count->setText(count == 0 ? tr("No matches") : count == 1 ? tr("1 match") : tr("%1 matches").arg(count));
}

std::size_t FindBar::selectedMatch() const {
    const TextDocument &document = m_editor.document();
    if (!document.hasSelection()) {
        return 0;
    }
    const Text &text = m_editor.text();
    const std::size_t begin = document.selectionStart();
    const std::size_t end = document.selectionEnd();
    const auto match = findForward(text.slice(0, end), needle(), begin);
    // The characters that the match lies in are selected whole.
    if (!match || document.boundaryAt(match->offset) != begin ||
        document.boundaryAt(match->offset + match->length, TextDocument::Side::behind) != end) {
        return 0;
    }
    return countMatches(text.slice(0, begin), needle()) + 1;
}

bool FindBar::eventFilter(QObject *watched, QEvent *event) {
    if (watched == m_field && event->type() == QEvent::KeyPress) {
        const auto *key = static_cast<QKeyEvent *>(event);
        if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
            find((key->modifiers() & Qt::ShiftModifier) == 0);
            return true;
        }
    }
    return Surface::eventFilter(watched, event);
}

/// What neither the field nor a button takes.
void FindBar::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Escape) {
        close();
        return;
    }
    Surface::keyPressEvent(event);
}

} // namespace lexivore
