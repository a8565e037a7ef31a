// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/window/star_button.h"

#include "ui/controls/focus_ring.h"
#include "ui/icon.h"
#include "ui/theme/motion.h"
#include "ui/theme/theme.h"

#include <QKeyEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <QVariantAnimation>

namespace lexivore {

namespace {

using namespace std::chrono_literals;
constexpr std::chrono::milliseconds fadingTime = 200ms;
constexpr int starSize = 16;
constexpr int clickableSize = 24;

} // namespace

StarButton::StarButton(QWidget *parent) : QAbstractButton(parent), m_fading(new QVariantAnimation(this)) {
    setObjectName("star");
    setCheckable(true);
    setFocusPolicy(Qt::NoFocus);
    setFocusShape(*this, {FocusShape::Placement::inside, 6});
    setFavorite(false);
    hide();
    connect(m_fading, &QVariantAnimation::valueChanged, this, [this](const QVariant &value) {
        m_opacity = value.toReal();
        update();
    });
    connect(m_fading, &QVariantAnimation::finished, this, [this] { setVisible(m_isRevealed); });
}

void StarButton::setFavorite(bool favorite) {
    {
        const QSignalBlocker blocker(this);
        setChecked(favorite);
    }
    setToolTip(favorite ? tr("Remove from favorites") : tr("Add to favorites"));
    setAccessibleName(tr("Favorite"));
    update();
}

void StarButton::setRevealed(bool revealed) {
    if (m_isRevealed == revealed) {
        return;
    }
    m_isRevealed = revealed;
    show();
    m_fading->stop();
    m_fading->setDuration(static_cast<int>(motionDuration(*this, fadingTime).count()));
    m_fading->setStartValue(m_opacity);
    m_fading->setEndValue(revealed ? 1.0 : 0.0);
    m_fading->start();
}

QSize StarButton::sizeHint() const { return {clickableSize, clickableSize}; }

void StarButton::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setOpacity(m_opacity);
    const QPixmap star = isFavorite()
                             ? favoriteStarPixmap(starSize, theme().star, theme().starEdge, devicePixelRatioF())
                             : symbolPixmap("star", starSize, theme().text2, devicePixelRatioF());
    painter.drawPixmap((width() - starSize) / 2, (height() - starSize) / 2, star);
}

void StarButton::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
        return;
    }
    if (event->key() == Qt::Key_Left || event->key() == Qt::Key_Escape) {
        parentWidget()->setFocus(Qt::TabFocusReason);
        return;
    }
    if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down) {
        // Back to the row, which moves on in its list.
        parentWidget()->setFocus(Qt::TabFocusReason);
        event->ignore();
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

} // namespace lexivore
