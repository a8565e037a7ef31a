// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/sheets/alert_sheet.h"

#include <QObject>

#include <functional>

namespace lexivore {

/// The window's alerts. Each returns at once; the answer is called when the user has given it.
class Alerts : public QObject {
    Q_OBJECT

public:
    using Answer = std::function<void()>;

    /// Shows them over `window`, which must outlive this.
    explicit Alerts(QWidget &window, QObject *parent = nullptr);

    /// An empty message reads "An unknown error occurred".
    void showError(const QString &message);
    void askToClearText(Answer clear);
    void askToClearOperations(Answer clear);
    void askToReplaceOperations(std::function<void(bool asksNoMore)> replace, Answer cancel);
    void askToReplaceRecipe(const QString &name, Answer replace, Answer cancel);

protected:
    /// Brings up one alert. All of the above end here, so that a test can answer in the user's place.
    virtual void present(const AlertContents &contents, std::function<void(AlertAnswer)> answered);

private:
    void ask(const AlertContents &contents, std::function<void(AlertAnswer)> confirm, Answer cancel);

    QWidget &m_window;
};

} // namespace lexivore
