// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/window/copy_toast.h"

#include "ui/controls/accessible_role.h"
#include "ui/icon.h"
#include "ui/theme/motion.h"
#include "ui/theme/theme.h"
#include "ui/theme/typography.h"
#include "ui/window/window_state.h"

#include <QAccessible>
#include <QEvent>
#include <QPainter>
#include <QVariantAnimation>

#include <algorithm>

namespace lexivore {

namespace {

using namespace std::chrono_literals;
constexpr std::chrono::milliseconds fadingTime = 200ms;
constexpr int pillHeight = 40;
constexpr int padding = 15;
constexpr int iconSize = 18;
constexpr int gap = 8;
constexpr int fromTheBottom = 16;

} // namespace

CopyToast::CopyToast(WindowState &state, QWidget &editor, QWidget *window)
    : QWidget(window), m_state(state), m_editor(editor), m_fading(new QVariantAnimation(this)),
      m_text(tr("Copied to clipboard")) {
    setObjectName("copyToast");
    setAccessibleRole(*this, QAccessible::Notification); // of which screen readers tell when it shows
    setAccessibleName(m_text);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    hide();
    connect(m_fading, &QVariantAnimation::valueChanged, this, [this](const QVariant &value) {
        m_opacity = value.toReal();
        update();
    });
    connect(m_fading, &QVariantAnimation::finished, this, [this] { setVisible(m_state.showCopyConfirmation()); });
    connect(&m_state, &WindowState::showCopyConfirmationChanged, this, &CopyToast::fade);
    // The editor moves with what it stands in.
    for (QWidget *moving = &m_editor; moving != nullptr; moving = moving->parentWidget()) {
        moving->installEventFilter(this);
    }
}

void CopyToast::fade() {
    if (m_state.showCopyConfirmation()) {
        place();
        show();
        raise();
    }
    m_fading->stop();
    m_fading->setDuration(static_cast<int>(motionDuration(*this, fadingTime).count()));
    m_fading->setStartValue(m_opacity);
    m_fading->setEndValue(m_state.showCopyConfirmation() ? 1.0 : 0.0);
    m_fading->start();
}

void CopyToast::place() {
    const QFontMetrics metrics(fontFor(FontRole::callout));
    const QSize size(2 * padding + iconSize + gap + metrics.horizontalAdvance(m_text),
                     heightFor(pillHeight, FontRole::callout));
    const QRect editor(m_editor.mapTo(parentWidget(), QPoint()), m_editor.size());
    const int left = editor.x() + (editor.width() - size.width()) / 2;
    setGeometry(std::max(0, std::min(left, parentWidget()->width() - size.width())),
                editor.y() + editor.height() - fromTheBottom - size.height(), size.width(), size.height());
}

bool CopyToast::eventFilter(QObject *watched, QEvent *event) {
    if ((event->type() == QEvent::Resize || event->type() == QEvent::Move) && isVisible()) {
        place();
    }
    return QWidget::eventFilter(watched, event);
}

void CopyToast::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(m_opacity);
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme().toast);
    painter.drawRoundedRect(rect(), height() / 2.0, height() / 2.0);
    painter.drawPixmap(padding, (height() - iconSize) / 2,
                       symbolPixmap("checkmark.circle.fill", iconSize, theme().toastIcon, devicePixelRatioF()));
    painter.setFont(fontFor(FontRole::callout));
    painter.setPen(theme().onToast);
    painter.drawText(rect().adjusted(padding + iconSize + gap, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, m_text);
}

} // namespace lexivore
