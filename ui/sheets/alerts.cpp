// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/sheets/alerts.h"

#include "ui/sheets/sheet_layer.h"

#include <utility>

namespace lexivore {

Alerts::Alerts(QWidget &window, QObject *parent) : QObject(parent), m_window(window) {}

void Alerts::showError(const QString &message) {
    present({.title = tr("Error"),
             .message = message.isEmpty() ? tr("An unknown error occurred") : message,
             .confirmation = tr("OK")},
            {});
}

void Alerts::askToClearText(Answer clear) {
    ask({.title = tr("Clear Text"),
         .message = tr("Are you sure you want to clear all text?"),
         .confirmation = tr("Clear"),
         .isDestructive = true},
        [clear = std::move(clear)](AlertAnswer) { clear(); }, {});
}

void Alerts::askToClearOperations(Answer clear) {
    ask({.title = tr("Clear Operations"),
         .message = tr("Are you sure you want to clear all operations?"),
         .confirmation = tr("Clear"),
         .isDestructive = true},
        [clear = std::move(clear)](AlertAnswer) { clear(); }, {});
}

void Alerts::askToReplaceOperations(std::function<void(bool asksNoMore)> replace, Answer cancel) {
    ask(
        {.title = tr("Replace Operations"),
         .message = tr("This will replace all current operations with the recipe. Continue?"),
         .confirmation = tr("Replace"),
         .isDestructive = true,
         .offersDontAskAgain = true},
        [replace = std::move(replace)](AlertAnswer answer) { replace(answer.asksNoMore); }, std::move(cancel));
}

void Alerts::askToReplaceRecipe(const QString &name, Answer replace, Answer cancel) {
    ask(
        {.title = tr("Replace Recipe"),
         .message = tr("A recipe with the name '%1' already exists. Do you want to replace it?").arg(name),
         .confirmation = tr("Replace"),
         .isDestructive = true},
        [replace = std::move(replace)](AlertAnswer) { replace(); }, std::move(cancel));
}

void Alerts::ask(const AlertContents &contents, std::function<void(AlertAnswer)> confirm, Answer cancel) {
    present(contents, [confirm = std::move(confirm), cancel = std::move(cancel)](AlertAnswer answer) {
        if (answer.isConfirmed) {
            confirm(answer);
        } else if (cancel) {
            cancel();
        }
    });
}

void Alerts::present(const AlertContents &contents, std::function<void(AlertAnswer)> answered) {
    SheetLayer::show(m_window, new AlertSheet(contents, std::move(answered)));
}

} // namespace lexivore
