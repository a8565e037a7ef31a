// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/window/alerts.h"

#include <QCheckBox>
#include <QMessageBox>
#include <QPushButton>

#include <utility>

namespace lexivore {

namespace {

QMessageBox *makeAlert(QWidget &window, const QString &title, const QString &message) {
    auto *alert = new QMessageBox(QMessageBox::NoIcon, title, message, QMessageBox::NoButton, &window);
    alert->setObjectName("alert");
    alert->setAttribute(Qt::WA_DeleteOnClose);
    alert->setTextFormat(Qt::PlainText);
    return alert;
}

/// A question whose answer "Cancel" is where the keyboard is at first.
QMessageBox *makeQuestion(QWidget &window, const QString &title, const QString &message, const QString &confirmation,
                          Alerts::Answer confirm, Alerts::Answer cancel) {
    QMessageBox *alert = makeAlert(window, title, message);
    QPushButton *cancelButton = alert->addButton(Alerts::tr("Cancel"), QMessageBox::RejectRole);
    QPushButton *confirmButton = alert->addButton(confirmation, QMessageBox::DestructiveRole);
    alert->setDefaultButton(cancelButton);
    alert->setEscapeButton(cancelButton);
    QObject::connect(
        alert, &QMessageBox::buttonClicked, alert,
        [confirmButton, confirm = std::move(confirm), cancel = std::move(cancel)](QAbstractButton *pressed) {
            const Alerts::Answer &answer = pressed == confirmButton ? confirm : cancel;
            if (answer) {
                answer();
            }
        });
    return alert;
}

} // namespace

Alerts::Alerts(QWidget &window, QObject *parent) : QObject(parent), m_window(window) {}

void Alerts::showError(const QString &message) {
    QMessageBox *alert =
        makeAlert(m_window, tr("Error"), message.isEmpty() ? tr("An unknown error occurred") : message);
    alert->addButton(tr("OK"), QMessageBox::AcceptRole);
    alert->open();
}

void Alerts::askToClearText(Answer clear) {
    makeQuestion(m_window, tr("Clear Text"), tr("Are you sure you want to clear all text?"), tr("Clear"),
                 std::move(clear), {})
        ->open();
}

void Alerts::askToClearOperations(Answer clear) {
    makeQuestion(m_window, tr("Clear Operations"), tr("Are you sure you want to clear all operations?"), tr("Clear"),
                 std::move(clear), {})
        ->open();
}

void Alerts::askToReplaceOperations(std::function<void(bool asksNoMore)> replace, Answer cancel) {
    auto *asksNoMore = new QCheckBox(tr("Don't ask again"));
    QMessageBox *alert = makeQuestion(
        m_window, tr("Replace Operations"), tr("This will replace all current operations with the recipe. Continue?"),
        tr("Replace"), [replace = std::move(replace), asksNoMore] { replace(asksNoMore->isChecked()); },
        std::move(cancel));
    alert->setCheckBox(asksNoMore);
    alert->open();
}

void Alerts::askToReplaceRecipe(const QString &name, Answer replace, Answer cancel) {
    makeQuestion(m_window, tr("Replace Recipe"),
                 tr("A recipe with the name '%1' already exists. Do you want to replace it?").arg(name), tr("Replace"),
                 std::move(replace), std::move(cancel))
        ->open();
}

} // namespace lexivore
