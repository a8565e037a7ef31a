// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/theme/theme.h"
#include "ui/theme/typography.h"

#include <QHash>
#include <QLabel>

#include <memory>

class QTextLayout;

namespace lexivore {

/// Plain text in one of the theme's colours and font roles; it follows changes of both.
///
/// Whatever the text holds, it stays within its place: on one line it is cut off with an ellipsis and shows whole in
/// the tooltip, and wrapped it breaks anywhere if it must. Line breaks show as spaces on one line.
class Label : public QLabel {
    Q_OBJECT

public:
    /// On one line `shrunk` takes smaller letters before it cuts anything off.
    enum class Lines { one, shrunk, wrapped };

    Label(const QString &text, FontRole role, ThemeColour colour = &Theme::text, Lines lines = Lines::one,
          QWidget *parent = nullptr);
    ~Label() override;

    void setText(const QString &text);
    /// What the tooltip reads while nothing is cut off.
    void setHelp(const QString &help);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] bool hasHeightForWidth() const override { return m_lines == Lines::wrapped; }
    [[nodiscard]] int heightForWidth(int width) const override;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void updateToolTip();
    void forgetLayout();
    [[nodiscard]] QFont shownFont() const;
    /// The wrapped text, laid out for the width; kept, since a long text takes milliseconds.
    [[nodiscard]] const QTextLayout &layoutFor(int width) const;

    FontRole m_role;
    ThemeColour m_colour;
    Lines m_lines;
    QString m_help;
    mutable std::unique_ptr<QTextLayout> m_layout;
    mutable int m_layoutWidth = -1;
    mutable QHash<int, int> m_lineCounts; ///< By width; layouts ask for several in turn.
    mutable QSize m_sizeHint;
};

/// Text on one line: what would break the line or draw as a box becomes a space.
[[nodiscard]] QString onOneLine(QString text);

/// At most `longest` UTF-16 units of the text and an ellipsis for the rest; no surrogate pair is halved.
[[nodiscard]] QString shortened(const QString &text, qsizetype longest);

/// A tooltip that reads exactly `text`, never taken for markup, cut off after some 500 characters, wrapped.
[[nodiscard]] QString plainToolTip(const QString &text);

} // namespace lexivore
