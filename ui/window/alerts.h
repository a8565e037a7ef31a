// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

#include <functional>

class QWidget;

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

private:
    QWidget &m_window;
};

} // namespace lexivore
