// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/controls/label.h"

#include <QEvent>
#include <QPainter>
#include <QTextLayout>

namespace lexivore {

namespace {

constexpr QChar rightToLeftEmbedding(0x202B);
constexpr QChar endOfEmbedding(0x202C);
constexpr QChar ellipsis(0x2026);
constexpr qsizetype longestToolTip = 500;
constexpr qsizetype longestUnwrapped = 200; ///< Characters that a wrapped text would like to have on one line.

/// Lays the text out in lines of at most `width` pixels, each at least `lineHeight` high.
std::unique_ptr<QTextLayout> wrapped(QString text, const QFont &font, Qt::Alignment alignment, double width,
                                     double lineHeight) {
    text.replace('\n', QChar::LineSeparator);
    auto layout = std::make_unique<QTextLayout>(text, font);
    QTextOption option(alignment);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout->setTextOption(option);
    layout->setCacheEnabled(true);
    layout->beginLayout();
    double top = 0;
    for (QTextLine line = layout->createLine(); line.isValid(); line = layout->createLine()) {
        line.setLineWidth(width);
        const double height = qMax(lineHeight, line.height());
        line.setPosition({0, top + (height - line.height()) / 2});
        top += height;
    }
    layout->endLayout();
    return layout;
}

} // namespace

QString onOneLine(QString text) {
    for (QChar &character : text) {
        const bool isBreak = character == QChar::LineSeparator || character == QChar::ParagraphSeparator;
        if (isBreak || character.category() == QChar::Other_Control) {
            character = ' ';
        }
    }
    return text;
}

QString shortened(const QString &text, qsizetype longest) {
    if (text.size() <= longest) {
        return text;
    }
    const bool wouldHalve = longest > 0 && text[longest - 1].isHighSurrogate();
    return text.left(wouldHalve ? longest - 1 : longest) + ellipsis;
}

QString plainToolTip(const QString &text) {
    if (text.isEmpty()) {
        return {};
    }
    QString shown = shortened(text, longestToolTip).toHtmlEscaped();
    shown.replace(QStringLiteral("\r\n"), QStringLiteral("\n")); // or it would be two breaks
    return QStringLiteral("<qt style=\"white-space: pre-wrap\">%1</qt>")
        .arg(shown.replace('\n', QStringLiteral("<br>")));
}

Label::Label(const QString &text, FontRole role, ThemeColour colour, Lines lines, QWidget *parent)
    : QLabel(parent), m_role(role), m_colour(colour), m_lines(lines) {
    setTextFormat(Qt::PlainText);
    setFont(fontFor(role));
    setSizePolicy(QSizePolicy::Preferred, lines == Lines::wrapped ? QSizePolicy::Minimum : QSizePolicy::Fixed);
    setText(text);
}

Label::~Label() = default;

void Label::setText(const QString &text) {
    forgetLayout();
    QLabel::setText(text);
    updateToolTip();
}

void Label::setHelp(const QString &help) {
    m_help = help;
    updateToolTip();
}

QSize Label::sizeHint() const {
    if (m_sizeHint.isValid()) {
        return m_sizeHint;
    }
    const QString longest = m_lines == Lines::wrapped ? text().left(longestUnwrapped) : text();
    m_sizeHint = QSize(QFontMetrics(font()).horizontalAdvance(onOneLine(longest)) + 1, lineHeightFor(m_role));
    return m_sizeHint;
}

QSize Label::minimumSizeHint() const { return {0, lineHeightFor(m_role)}; }

int Label::heightForWidth(int width) const {
    if (m_lines != Lines::wrapped) {
        return -1;
    }
    if (!m_lineCounts.contains(width)) {
        m_lineCounts.insert(width, layoutFor(width).lineCount());
    }
    return m_lineCounts.value(width) * lineHeightFor(m_role);
}

const QTextLayout &Label::layoutFor(int width) const {
    if (m_layout == nullptr || m_layoutWidth != width) {
        m_layout = wrapped(text(), font(), alignment(), width, lineHeightFor(m_role));
        m_layoutWidth = width;
    }
    return *m_layout;
}

void Label::forgetLayout() {
    m_layout.reset();
    m_lineCounts.clear();
    m_sizeHint = QSize();
}

QFont Label::shownFont() const {
    QFont shown = font();
    if (m_lines == Lines::shrunk) {
        constexpr double step = 0.5;
        const QString line = onOneLine(text());
        const double least = qMin(shown.pointSizeF(), fontFor(FontRole::smallCaption).pointSizeF());
        while (QFontMetricsF(shown).horizontalAdvance(line) > width() && shown.pointSizeF() - step >= least) {
            shown.setPointSizeF(shown.pointSizeF() - step);
        }
    }
    return shown;
}

bool Label::event(QEvent *event) {
    if (event->type() == QEvent::ApplicationFontChange) {
        setFont(fontFor(m_role));
        updateGeometry();
        updateToolTip();
    }
    return QLabel::event(event);
}

void Label::changeEvent(QEvent *event) {
    if (event->type() == QEvent::FontChange) {
        forgetLayout();
    }
    QLabel::changeEvent(event);
}

void Label::paintEvent(QPaintEvent *event) {
    QPainter painter(this);
    painter.setPen(theme().*m_colour);
    painter.setFont(shownFont());
    if (m_lines == Lines::wrapped) {
        layoutFor(width()).draw(&painter, {0, 0}, {}, event->rect());
        return;
    }
    QString shown = painter.fontMetrics().elidedText(onOneLine(text()), Qt::ElideRight, width());
    if (text().isRightToLeft()) {
        // In a window that runs the other way its words and the ellipsis would stand in the wrong order.
        shown = rightToLeftEmbedding + shown + endOfEmbedding;
    }
    painter.drawText(rect(), static_cast<int>(alignment()) | Qt::TextSingleLine | Qt::TextDontClip, shown);
}

void Label::resizeEvent(QResizeEvent *event) {
    QLabel::resizeEvent(event);
    updateToolTip();
}

void Label::updateToolTip() {
    const bool isCut =
        m_lines != Lines::wrapped && QFontMetricsF(shownFont()).horizontalAdvance(onOneLine(text())) > width();
    setToolTip(isCut ? plainToolTip(text()) : m_help);
    // Or assistive technology would take the tooltip for it, with its markup.
    setAccessibleDescription(isCut ? text() : m_help);
}

} // namespace lexivore
