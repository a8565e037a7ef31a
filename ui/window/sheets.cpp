// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/window/sheets.h"

#include "ui/text_conversion.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QInputDialog>
#include <QLineEdit>

#include <utility>
#include <vector>

namespace lexivore {

Sheets::Sheets(QWidget &window, QObject *parent) : QObject(parent), m_window(window) {}

void Sheets::showParameterSheet(const TransformationPointer &transformation, const ParameterMap &values,
                                std::function<void(const ParameterMap &)> apply, std::function<void()> cancel) {
    auto *sheet = new QDialog(&m_window);
    sheet->setObjectName("parameterSheet");
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    sheet->setWindowTitle(toQString(transformation->name()));
    auto *form = new QFormLayout(sheet);
    std::vector<std::pair<std::string, QLineEdit *>> fields;
    for (const TransformationParameter &parameter : transformation->parameters()) {
        const auto value = values.find(parameter.id);
        auto *field = new QLineEdit(value == values.end() ? QString() : toQString(value->second), sheet);
        field->setObjectName("parameter." + toQString(parameter.id));
        field->setPlaceholderText(toQString(parameter.placeholder));
        form->addRow(toQString(parameter.label), field);
        fields.emplace_back(parameter.id, field);
    }
    auto *buttons = new QDialogButtonBox(sheet);
    buttons->addButton(tr("Cancel"), QDialogButtonBox::RejectRole);
    buttons->addButton(tr("Apply"), QDialogButtonBox::AcceptRole);
    form->addRow(buttons);
    connect(buttons, &QDialogButtonBox::accepted, sheet, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, sheet, &QDialog::reject);
    connect(sheet, &QDialog::rejected, this, std::move(cancel));
    connect(sheet, &QDialog::accepted, this, [fields = std::move(fields), apply = std::move(apply)] {
        ParameterMap edited;
        for (const auto &[id, field] : fields) {
            edited[id] = toUtf8(field->text());
        }
        apply(edited);
    });
    sheet->open();
}

void Sheets::showRecipeSaveSheet(const QString &name, std::function<void(const QString &)> save) {
    auto *sheet = new QInputDialog(&m_window);
    sheet->setObjectName("recipeSaveSheet");
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    sheet->setWindowTitle(tr("Save Recipe"));
    sheet->setLabelText(tr("Recipe Name"));
    sheet->setTextValue(name);
    connect(sheet, &QInputDialog::textValueSelected, this, std::move(save));
    sheet->open();
}

void Sheets::setRecipeName(const QString &name) {
    if (auto *sheet = m_window.findChild<QInputDialog *>("recipeSaveSheet")) {
        sheet->setTextValue(name);
    }
}

void Sheets::closeRecipeSaveSheet() {
    if (auto *sheet = m_window.findChild<QInputDialog *>("recipeSaveSheet")) {
        sheet->close();
    }
}

void Sheets::showManageRecipesSheet(TransformationManager &) {}
void Sheets::showEditorSettings(double, std::function<void(double)>) {}
void Sheets::showToolResult(const TextTool &, const Text &) {}

} // namespace lexivore
