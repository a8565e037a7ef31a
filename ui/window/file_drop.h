// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QMimeData;
class QWidget;

namespace lexivore {

/// Lets a file be dropped on a widget. Drags that carry no local files stay the widget's own, and so do the addresses
/// of places elsewhere, which are text.
class FileDrop : public QObject {
    Q_OBJECT

public:
    /// Watches `widget`, which accepts drops, and belongs to it.
    explicit FileDrop(QWidget *widget);

signals:
    /// One file or folder, by its path.
    void dropped(const QString &path);
    /// Nothing was taken, with a sentence for the user that says why.
    void refused(const QString &message);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void take(const QMimeData &data);
};

} // namespace lexivore
