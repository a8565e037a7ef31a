// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/sheets/editor_settings_sheet.h"

#include "ui/controls/focus_ring.h"
#include "ui/controls/label.h"
#include "ui/controls/push_button.h"
#include "ui/sheets/font_preview.h"
#include "ui/theme/metrics.h"

#include <QHBoxLayout>
#include <QSlider>

#include <utility>

namespace lexivore {

namespace {

constexpr int sheetWidth = 420;
constexpr int labelWidth = 100;
constexpr int valueWidth = 30;

/// The font as it is if its digits have one width, else the monospaced one in that size.
QFont fontWithEvenDigits(const QFont &font) {
    const QFontMetricsF letters(font);
    for (char digit = '1'; digit <= '9'; ++digit) {
        if (letters.horizontalAdvance(QLatin1Char(digit)) != letters.horizontalAdvance(QLatin1Char('0'))) {
            return monospacedFont(font.pointSizeF());
        }
    }
    return font;
}

} // namespace

EditorSettingsSheet::EditorSettingsSheet(double fontSize, std::function<void(double)> onChange)
    : Sheet(tr("Editor Settings"), sheetWidth), m_onChange(std::move(onChange)) {
    setObjectName(QStringLiteral("editorSettingsSheet"));
    auto *doneButton = new PushButton(tr("Done"), PushButton::Kind::primary);
    doneButton->setObjectName(QStringLiteral("done"));
    m_preview = new FontPreview(tr("The quick brown fox jumps over the lazy dog"));
    m_preview->setObjectName(QStringLiteral("preview"));
    m_preview->setFontSize(fontSize);

    const int padding = metrics::sheetPadding;
    body().setContentsMargins(padding, padding, padding, padding);
    body().addWidget(new Label(tr("Editor Settings"), FontRole::headline));
    body().addSpacing(16);
    body().addWidget(makeSizeRow(fontSize));
    body().addSpacing(12);
    body().addWidget(new Label(tr("Preview"), FontRole::fieldLabel));
    body().addSpacing(4);
    body().addWidget(m_preview);
    body().addSpacing(20);
    body().addStretch();
    body().addWidget(buttonRow({doneButton}));
    connect(doneButton, &PushButton::clicked, this, &EditorSettingsSheet::dismiss);
    connect(m_slider, &QSlider::valueChanged, this, &EditorSettingsSheet::setFontSize);
}

QWidget *EditorSettingsSheet::makeSizeRow(double fontSize) {
    auto *label = new Label(tr("Font Size:"), FontRole::body);
    label->setFixedWidth(qMax(labelWidth, label->sizeHint().width() + 8));

    m_slider = new QSlider(Qt::Horizontal);
    m_slider->setObjectName(QStringLiteral("fontSize"));
    m_slider->setAccessibleName(tr("Font Size"));
    m_slider->setRange(leastFontSize, greatestFontSize);
    m_slider->setSingleStep(1);
    m_slider->setPageStep(1);
    const int points = static_cast<int>(qBound(-999.0, fontSize, 999.0));
    m_slider->setValue(qBound(leastFontSize, points, greatestFontSize));
    setFocusShape(*m_slider, {FocusShape::Placement::outside, 9});

    m_value = new Label(QString::number(points), FontRole::body);
    m_value->setObjectName(QStringLiteral("fontSizeValue"));
    m_value->setFont(fontWithEvenDigits(m_value->font()));
    m_value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    const int widest = QFontMetrics(m_value->font()).horizontalAdvance(QString::number(greatestFontSize)) + 1;
    m_value->setFixedWidth(qMax(valueWidth - 8, qMax(widest, m_value->sizeHint().width())));

    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(label);
    layout->addWidget(m_slider, 1);
    layout->addSpacing(8);
    layout->addWidget(m_value);
    row->setMinimumHeight(heightFor(metrics::controlHeight, FontRole::body));
    return row;
}

void EditorSettingsSheet::setFontSize(int points) {
    m_value->setText(QString::number(points));
    m_preview->setFontSize(points);
    if (m_onChange) {
        m_onChange(points);
    }
}

} // namespace lexivore
