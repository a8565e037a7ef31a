// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QScrollArea;
class QVBoxLayout;

namespace lexivore {

class PushButton;

/// What lies on a `SheetLayer`: an opaque rounded frame with an optional header, a body that scrolls when there is no
/// room for it, and an optional footer.
///
/// Return confirms, or presses the button that has the focus; Escape cancels. Subclasses say what both mean.
class Sheet : public QWidget {
    Q_OBJECT

public:
    /// `title` is its accessible name. `width` in device-independent pixels, the border included; it grows
    /// for very large letters.
    Sheet(const QString &title, int width, QWidget *parent = nullptr);

    /// The size that it wants where at most `available` is free.
    [[nodiscard]] QSize sizeWithin(const QSize &available) const;
    /// Gives the focus to where the user starts.
    virtual void takeFocus();

    virtual void confirm() {}
    virtual void cancel() { dismiss(); }
    /// Asks the layer to take it away. The sheet is deleted once control returns to the event loop.
    void dismiss();

signals:
    void dismissed();
    /// What it wants to be as large as has changed.
    void sizeChanged();

protected:
    [[nodiscard]] QVBoxLayout &body() const { return *m_body; }
    [[nodiscard]] QScrollArea &scrollArea() const { return *m_scrollArea; }
    /// Adds a part that does not scroll, at the end of what is above the body or below it.
    void addAboveBody(QWidget *part);
    void addBelowBody(QWidget *part);
    void setLeastHeight(int height) { m_leastHeight = height; }
    void setGreatestHeight(int height) { m_greatestHeight = height; }
    /// A row of buttons at the right, the confirming one last.
    [[nodiscard]] static QWidget *buttonRow(const QList<PushButton *> &buttons);

    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    [[nodiscard]] int naturalHeight(int width) const;
    void watch(QWidget &part);
    bool scroll(int key);

    int m_width;
    int m_leastHeight = 0;
    int m_greatestHeight = QWIDGETSIZE_MAX;
    QVBoxLayout *m_parts;
    QScrollArea *m_scrollArea;
    QVBoxLayout *m_body;
    QList<QWidget *> m_fixedParts; ///< What stands above and below the body and does not scroll.
};

} // namespace lexivore
