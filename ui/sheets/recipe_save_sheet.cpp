// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/sheets/recipe_save_sheet.h"

#include "ui/controls/field.h"
#include "ui/controls/label.h"
#include "ui/controls/push_button.h"
#include "ui/theme/metrics.h"

#include <QVBoxLayout>

#include <utility>

namespace lexivore {

namespace {

constexpr int sheetWidth = 300;

} // namespace

RecipeSaveSheet::RecipeSaveSheet(const QString &recipeName, std::function<void(const QString &)> onSave)
    : Sheet(tr("Save Recipe"), sheetWidth), m_recipeName(new Field(tr("Recipe Name"))),
      m_saveButton(new PushButton(tr("Save"), PushButton::Kind::primary)), m_onSave(std::move(onSave)) {
    setObjectName(QStringLiteral("recipeSaveSheet"));
    m_recipeName->setObjectName(QStringLiteral("recipeName"));
    m_recipeName->setPlaceholderText(tr("Recipe Name"));
    m_saveButton->setObjectName(QStringLiteral("save"));
    auto *cancelButton = new PushButton(tr("Cancel"));
    cancelButton->setObjectName(QStringLiteral("cancel"));

    const int padding = metrics::sheetPadding;
    body().setContentsMargins(padding, padding, padding, padding);
    body().addWidget(new Label(tr("Save Recipe"), FontRole::headline));
    body().addSpacing(12);
    body().addWidget(m_recipeName);
    body().addSpacing(20);
    body().addStretch();
    body().addWidget(buttonRow({cancelButton, m_saveButton}));

    connect(m_recipeName, &Field::textChanged, this, &RecipeSaveSheet::updateSaveButton);
    connect(m_recipeName, &Field::textChanged, this, &RecipeSaveSheet::recipeNameChanged);
    connect(cancelButton, &PushButton::clicked, this, &RecipeSaveSheet::cancel);
    connect(m_saveButton, &PushButton::clicked, this, &RecipeSaveSheet::confirm);
    setRecipeName(recipeName);
    updateSaveButton();
}

void RecipeSaveSheet::setRecipeName(const QString &name) { m_recipeName->setText(name); }

void RecipeSaveSheet::takeFocus() {
    m_recipeName->setFocus(Qt::TabFocusReason);
    m_recipeName->selectAll();
}

void RecipeSaveSheet::confirm() {
    if (!m_recipeName->text().isEmpty() && m_onSave) {
        m_onSave(m_recipeName->text());
    }
}

void RecipeSaveSheet::updateSaveButton() { m_saveButton->setEnabled(!m_recipeName->text().isEmpty()); }

} // namespace lexivore
