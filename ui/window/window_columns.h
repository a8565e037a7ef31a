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

protected:
    bool event(QEvent *event) override;

private:
    struct Column {
        QWidget *widget;
        Width width;
        Space space;
    };

    void setMinima();
    [[nodiscard]] std::vector<int> minimaWithin(int room) const;
    /// `width` for the letters in use.
    [[nodiscard]] static int widthOf(const Column &column, int width);

    std::vector<Column> m_columns;
};

} // namespace lexivore
