// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/window/transformation_button.h"

#include "manager/text_conversion.h"
#include "ui/controls/menu_pointer.h"
#include "ui/icon.h"
#include "ui/theme/motion.h"
#include "ui/theme/theme.h"
#include "ui/theme/typography.h"
#include "ui/translation.h"
#include "ui/window/hover_reveal.h"
#include "ui/window/star_button.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QVariantAnimation>

#include <utility>

namespace lexivore {

namespace {

using namespace std::chrono_literals;
constexpr std::chrono::milliseconds chevronTime = 500ms;
constexpr qreal chevronTravel = 4;
constexpr int padding = 10;
constexpr int symbolSize = 20;
constexpr int iconGap = 12;
constexpr int lineGap = 2;
constexpr int chevronSize = 12;
constexpr int chevronCentre = 16; ///< From the right edge.
constexpr int starCentreAlone = 18;
constexpr int starCentreBesideChevron = 40;

QFont nameFont() { return fontFor(FontRole::callout); }
QFont descriptionFont() { return fontFor(FontRole::smallCaption); }

} // namespace

TransformationButton::TransformationButton(TransformationPointer transformation, QWidget *parent)
    : RowButton(parent), m_transformation(std::move(transformation)), m_star(new StarButton(this)),
      m_chevronAnimation(new QVariantAnimation(this)) {
    setObjectName("transformation." + toQString(m_transformation->id()));
    setText(translated(m_transformation->name()));
    setAccessibleDescription(translated(m_transformation->description()));

    m_chevronAnimation->setEasingCurve(QEasingCurve::InOutSine);
    connect(m_chevronAnimation, &QVariantAnimation::valueChanged, this, [this](const QVariant &value) {
        m_chevronOffset = value.toReal();
        update();
    });
    connect(m_chevronAnimation, &QVariantAnimation::finished, this, [this] {
        if (isHovered()) {
            moveChevron(true);
        }
    });
    connect(this, &RowButton::hoverChanged, this, &TransformationButton::moveChevron);
    connect(this, &RowButton::focusChanged, this, &TransformationButton::updateStar);

    auto *reveal = new HoverReveal(this);
    connect(reveal, &HoverReveal::revealed, this, [this] { setShowFavorite(true); });
    connect(reveal, &HoverReveal::concealed, this, [this] { setShowFavorite(false); });
    // Assistive technology toggles without a click.
    connect(m_star, &StarButton::toggled, this, &TransformationButton::favoriteToggled);
}

bool TransformationButton::isFavorite() const { return m_star->isFavorite(); }

void TransformationButton::setFavorite(bool favorite) {
    m_star->setFavorite(favorite);
    updateStar();
}

void TransformationButton::setPaused(bool paused) {
    if (std::exchange(m_isPaused, paused) != paused) {
        placeStar();
        update();
    }
}

void TransformationButton::addState(QAccessible::State &state) const {
    RowButton::addState(state);
    state.disabled = state.disabled || m_isPaused;
}

void TransformationButton::setShowFavorite(bool show) {
    m_showFavorite = show;
    updateStar();
}

void TransformationButton::updateStar() {
    m_star->setRevealed(isFavorite() || m_showFavorite || hasFocus() || m_star->hasFocus());
    placeStar();
    update();
}

void TransformationButton::placeStar() {
    const int centre = showsChevron() ? starCentreBesideChevron : starCentreAlone;
    const QSize size = m_star->sizeHint();
    m_star->setGeometry(width() - centre - size.width() / 2, (height() - size.height()) / 2, size.width(),
                        size.height());
    updateToolTip();
}

// The star and the chevron take room from the texts, so what is cut off is known only while they are there.
void TransformationButton::updateToolTip() {
    const int room = textRight() - padding - symbolSize - iconGap;
    const bool isElided = QFontMetricsF(nameFont()).horizontalAdvance(text()) > room ||
                          QFontMetricsF(descriptionFont()).horizontalAdvance(accessibleDescription()) > room;
    if (m_isPaused) {
        setToolTip(tr("The operations are paused"));
    } else {
        setToolTip(isElided ? text() + "\n" + accessibleDescription() : QString());
    }
}

void TransformationButton::moveChevron(bool hovered) {
    placeStar();
    m_chevronAnimation->stop();
    if (motionDuration(*this, chevronTime) == std::chrono::milliseconds::zero()) {
        m_chevronOffset = 0;
        return;
    }
    const bool returns = !hovered || m_chevronOffset > chevronTravel / 2;
    m_chevronAnimation->setDuration(static_cast<int>((hovered ? chevronTime : chevronTime / 2).count()));
    m_chevronAnimation->setStartValue(m_chevronOffset);
    m_chevronAnimation->setEndValue(returns ? 0.0 : chevronTravel);
    m_chevronAnimation->start();
}

QSize TransformationButton::sizeHint() const { return {240, heightFor(56, FontRole::callout, 2)}; }

QSize TransformationButton::minimumSizeHint() const { return {0, sizeHint().height()}; }

int TransformationButton::textRight() const {
    if (m_star->isRevealed()) {
        return m_star->geometry().left() - 8;
    }
    return width() - (showsChevron() ? chevronCentre + chevronSize : padding);
}

void TransformationButton::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    const Theme &colours = theme();
    if (!m_isPaused && (isDown() || isHovered())) {
        paintBackground(painter, isDown() ? colours.rowPress : colours.rowHover);
    }
    const QPixmap symbol = symbolPixmap(QAnyStringView(toQString(m_transformation->icon())), symbolSize,
                                        m_isPaused ? colours.textOff : colours.accentText, devicePixelRatioF());
    painter.drawPixmap(padding, (height() - symbolSize) / 2, symbol);

    const QFontMetrics name(nameFont());
    const QFontMetrics description(descriptionFont());
    const int left = padding + symbolSize + iconGap;
    const int width = textRight() - left;
    const int top = (height() - name.height() - lineGap - description.height()) / 2;
    painter.setFont(nameFont());
    painter.setPen(m_isPaused ? colours.textOff : colours.text);
    painter.drawText(left, top + name.ascent(), name.elidedText(text(), Qt::ElideRight, width));
    painter.setFont(descriptionFont());
    painter.setPen(m_isPaused ? colours.textOff : colours.text2);
    painter.drawText(left, top + name.height() + lineGap + description.ascent(),
                     description.elidedText(accessibleDescription(), Qt::ElideRight, width));

    if (showsChevron()) {
        const QPixmap chevron = symbolPixmap("chevron.right", chevronSize, colours.text2, devicePixelRatioF());
        painter.drawPixmap(QPointF(this->width() - chevronCentre - chevronSize / 2.0 + m_chevronOffset,
                                   (height() - chevronSize) / 2.0),
                           chevron);
    }
}

void TransformationButton::resizeEvent(QResizeEvent *event) {
    RowButton::resizeEvent(event);
    placeStar();
}

void TransformationButton::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Right) {
        m_star->setFocus(Qt::TabFocusReason);
        return;
    }
    RowButton::keyPressEvent(event);
}

void TransformationButton::contextMenuEvent(QContextMenuEvent *event) {
    auto *menu = new QMenu(this);
    menu->setObjectName("transformationMenu");
    menu->setAttribute(Qt::WA_DeleteOnClose);
    leaveWhenClosedElsewhere(*menu, *this);
    connect(menu->addAction(m_star->toolTip()), &QAction::triggered, this, &TransformationButton::favoriteToggled);
    menu->popup(event->reason() == QContextMenuEvent::Mouse
                    ? event->globalPos()
                    : mapToGlobal(QPoint(padding + symbolSize + iconGap, height() / 2)));
}

} // namespace lexivore
