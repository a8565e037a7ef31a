// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/controls/label.h"

#include <QEvent>
#include <QPainter>
#include <QTextLayout>

namespace lexivore {

namespace {

constexpr qsizetype longestToolTip = 500;
constexpr double unlimitedWidth = 1'000'000;

/// Text in lines of at most `width` pixels.
class WrappedText {
public:
    WrappedText(QString text, const QFont &font, Qt::Alignment alignment, double width, double lineHeight) {
        text.replace('\n', QChar::LineSeparator);
        m_layout.setText(text);
        m_layout.setFont(font);
        QTextOption option(alignment);
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        m_layout.setTextOption(option);
        m_layout.beginLayout();
        for (QTextLine line = m_layout.createLine(); line.isValid(); line = m_layout.createLine()) {
            line.setLineWidth(width);
            const double height = qMax(lineHeight, line.height());
            line.setPosition({0, m_height + (height - line.height()) / 2});
            m_height += height;
        }
        m_layout.endLayout();
    }

    [[nodiscard]] double height() const { return m_height; }
    [[nodiscard]] double width() const { return m_layout.maximumWidth(); }
    void draw(QPainter &painter) const { m_layout.draw(&painter, {0, 0}); }

private:
    QTextLayout m_layout;
    double m_height = 0;
};

} // namespace

QString onOneLine(QString text) {
    for (QChar &character : text) {
        const bool isBreak = character == QChar::LineSeparator || character == QChar::ParagraphSeparator;
        if (isBreak || character.category() == QChar::Other_Control)
            character = ' ';
    }
    return text;
}

QString plainToolTip(const QString &text) {
    if (text.isEmpty())
        return {};
    QString shown = text.left(longestToolTip);
    if (!shown.isEmpty() && shown.back().isHighSurrogate())
        shown.chop(1);
    if (text.size() > shown.size())
        shown += QChar(0x2026);
    return QStringLiteral("<qt>%1</qt>").arg(shown.toHtmlEscaped().replace('\n', QStringLiteral("<br>")));
}

Label::Label(const QString &text, FontRole role, ThemeColour colour, Lines lines, QWidget *parent)
    : QLabel(parent), m_role(role), m_colour(colour), m_lines(lines) {
    setTextFormat(Qt::PlainText);
    setFont(fontFor(role));
    setSizePolicy(QSizePolicy::Preferred, lines == Lines::one ? QSizePolicy::Fixed : QSizePolicy::Minimum);
    setText(text);
}

void Label::setText(const QString &text) {
    QLabel::setText(text);
    updateToolTip();
}

QSize Label::sizeHint() const {
    if (m_lines == Lines::wrapped) {
        const WrappedText whole(text(), font(), alignment(), unlimitedWidth, lineHeightFor(m_role));
        return {qCeil(whole.width()), qCeil(whole.height())};
    }
    return {QFontMetrics(font()).horizontalAdvance(onOneLine(text())) + 1, lineHeightFor(m_role)};
}

QSize Label::minimumSizeHint() const { return {0, lineHeightFor(m_role)}; }

int Label::heightForWidth(int width) const {
    if (m_lines == Lines::one)
        return -1;
    return qCeil(WrappedText(text(), font(), alignment(), width, lineHeightFor(m_role)).height());
}

bool Label::event(QEvent *event) {
    if (event->type() == QEvent::ApplicationFontChange) {
        setFont(fontFor(m_role));
        updateGeometry();
        updateToolTip();
    }
    return QLabel::event(event);
}

void Label::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setPen(theme().*m_colour);
    painter.setFont(font());
    if (m_lines == Lines::wrapped) {
        WrappedText(text(), font(), alignment(), width(), lineHeightFor(m_role)).draw(painter);
        return;
    }
    const QString shown = QFontMetrics(font()).elidedText(onOneLine(text()), Qt::ElideRight, width());
    painter.drawText(rect(), static_cast<int>(alignment()) | Qt::TextSingleLine | Qt::TextDontClip, shown);
}

void Label::resizeEvent(QResizeEvent *event) {
    QLabel::resizeEvent(event);
    updateToolTip();
}

void Label::updateToolTip() {
    const bool isCut = m_lines == Lines::one && sizeHint().width() > width() + 1;
    setToolTip(isCut ? plainToolTip(text()) : QString());
}

} // namespace lexivore
