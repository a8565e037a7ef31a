// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QSplitter>

#include <vector>

namespace lexivore {

/// The columns of the window, side by side with a line between each two. One of them takes what the window gains.
///
/// In a window that is too narrow for the minimum widths of the columns that are shown, all of them go on shrinking,
/// the one that takes the space first, rather than being cut off at the window's edge.
class WindowColumns : public QSplitter {
    Q_OBJECT

public:
    explicit WindowColumns(QWidget *parent = nullptr);

    /// Device-independent pixels for letters of 10 points. A column whose `minimumSizeHint` is wider is as wide as
    /// that.
    struct Width {
        int initial;
        int minimum;
        int least; ///< In a narrow window.
    };
    enum class Space { keepsItsWidth, takesTheRest };

    /// The next column to the right.
    void add(QWidget *column, Width width, Space space = Space::keepsItsWidth);
    /// Gives every column its initial width. Call it when all are there.
    void resetWidths();

    /// What each column is to be wide, from left to right, where there is room: what it was given or the user made it,
    /// even while it is hidden or the window is too narrow for it. Of the one that takes the rest, what it has.
    [[nodiscard]] QList<int> widths();
    /// As many as there are columns.
    void setWidths(const QList<int> &widths);

protected:
    bool event(QEvent *event) override;

private:
    struct Column {
        QWidget *widget;
        Width width;
        Space space;
    };

    void setMinima();
    [[nodiscard]] bool isTheRest(int index) const;
    /// Takes over what the user has changed since the widths were last shared out.
    void noticeChanges();
    /// Gives every column its width. Where there is no room the one that takes the rest gives way first, then those
    /// beside it, each down to its minimum.
    void shareOut();
    [[nodiscard]] std::vector<int> minimaWithin(int room) const;
    /// `width` for the letters in use.
    [[nodiscard]] static int widthOf(const Column &column, int width);

    std::vector<Column> m_columns;
    QList<int> m_widths;
    QList<int> m_sharedOut; ///< The sizes that they got last; empty until there was something to share.
};

} // namespace lexivore
