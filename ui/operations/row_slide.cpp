// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/operations/row_slide.h"

#include "ui/controls/scrolling_pointer.h"
#include "ui/theme/motion.h"

#include <QLayout>
#include <QVariantAnimation>

namespace lexivore {

namespace {

using namespace std::chrono_literals;
constexpr std::chrono::milliseconds slidingTime = 200ms;

} // namespace

RowSlide::RowSlide(QWidget &column) : QObject(&column), m_column(column), m_animation(new QVariantAnimation(this)) {
    m_animation->setStartValue(1.0);
    m_animation->setEndValue(0.0);
    m_animation->setEasingCurve(QEasingCurve::InOutSine);
    connect(m_animation, &QVariantAnimation::valueChanged, this,
            [this](const QVariant &remaining) { moveRows(remaining.toDouble()); });
    connect(m_animation, &QVariantAnimation::finished, this, &RowSlide::finish);
}

void RowSlide::slide(const std::vector<Start> &starts) {
    finish();
    for (const Start &start : starts) {
        if (start.offset != 0) {
            m_ways.push_back({start.row, start.row->y(), start.offset});
        }
    }
    moveRows(1);
    m_animation->setDuration(static_cast<int>(motionDuration(m_column, slidingTime).count()));
    m_animation->start();
}

void RowSlide::finish() {
    if (m_ways.empty()) {
        return;
    }
    m_animation->stop();
    moveRows(0);
    m_ways.clear();
    pointAgain(m_column);
    // Meanwhile the column may have become wider or a row higher.
    m_column.layout()->update();
}

void RowSlide::moveRows(double remaining) {
    for (const Way &way : m_ways) {
        if (way.row) {
            way.row->move(way.row->x(), way.place + qRound(way.offset * remaining));
        }
    }
}

} // namespace lexivore
