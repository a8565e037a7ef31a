// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/updates/release_notes_view.h"

#include "ui/controls/focus_ring.h"
#include "ui/theme/drawing.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"
#include "ui/theme/typography.h"
#include "ui/updates/release_notes.h"

#include <QEvent>
#include <QPainter>

namespace lexivore {

namespace {

constexpr int padding = 8;

} // namespace

ReleaseNotesView::ReleaseNotesView(const AppcastItem &item, QWidget *parent) : QTextBrowser(parent), m_item(item) {
    setAccessibleName(tr("Release notes"));
    setOpenLinks(false);
    setUndoRedoEnabled(false);
    setTabChangesFocus(true);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setFont(fontFor(FontRole::subheadline));
    viewport()->setAutoFillBackground(false);
    setViewportMargins(metrics::line, metrics::line, metrics::line, metrics::line);
    document()->setDocumentMargin(padding);
    setFocusShape(*this, {FocusShape::Placement::inside});
    write();
    connect(this, &QTextBrowser::anchorClicked, this, &ReleaseNotesView::linkChosen);
}

QVariant ReleaseNotesView::loadResource(int, const QUrl &) { return {}; }

void ReleaseNotesView::write() {
    document()->clear();
    writeReleaseNotes(*document(), m_item);
    moveCursor(QTextCursor::Start);
}

void ReleaseNotesView::changeEvent(QEvent *event) {
    QTextBrowser::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        write();
    }
}

bool ReleaseNotesView::event(QEvent *event) {
    // The ground of the whole view; what `paintEvent` is called for is the part of it that scrolls.
    if (event->type() == QEvent::Paint) {
        QPainter painter(this);
        lexivore::drawFrame(painter, rect(), metrics::radius, theme().view, theme().border);
        return true;
    }
    return QTextBrowser::event(event);
}

} // namespace lexivore
