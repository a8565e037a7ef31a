// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/window/file_drop.h"

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

#include <algorithm>

namespace lexivore {

namespace {

bool holdsLocalFiles(const QMimeData &data) {
    const QList<QUrl> urls = data.urls();
    return std::any_of(urls.begin(), urls.end(), [](const QUrl &url) { return url.isLocalFile(); });
}

} // namespace

FileDrop::FileDrop(QWidget *widget) : QObject(widget) { widget->installEventFilter(this); }

bool FileDrop::eventFilter(QObject *watched, QEvent *event) {
    const bool isDrop = event->type() == QEvent::Drop;
    if (!isDrop && event->type() != QEvent::DragEnter && event->type() != QEvent::DragMove) {
        return QObject::eventFilter(watched, event);
    }
    auto *drag = static_cast<QDropEvent *>(event);
    if (!holdsLocalFiles(*drag->mimeData())) {
        return false;
    }
    // The file stays where it is, whatever the other program proposes. One that can only be moved would not.
    if ((drag->possibleActions() & (Qt::CopyAction | Qt::LinkAction)) == 0) {
        drag->ignore();
        return true;
    }
    drag->setDropAction((drag->possibleActions() & Qt::CopyAction) != 0 ? Qt::CopyAction : Qt::LinkAction);
    drag->accept();
    if (isDrop) {
        take(*drag->mimeData());
    }
    return true;
}

void FileDrop::take(const QMimeData &data) {
    if (data.urls().size() == 1) {
        emit dropped(data.urls().front().toLocalFile());
    } else {
        emit refused(tr("Drop one file at a time."));
    }
}

} // namespace lexivore
