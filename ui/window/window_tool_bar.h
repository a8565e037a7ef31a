// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QToolBar>

namespace lexivore {

class ToolButton;
class TransformationManager;
class WindowState;

/// The toolbar: what acts on the text at the left, what acts on the operations at the right.
class WindowToolBar : public QToolBar {
    Q_OBJECT

public:
    WindowToolBar(TransformationManager &manager, WindowState &state, QWidget *parent = nullptr);

signals:
    void pasteRequested();
    void copyRequested();
    void clearTextRequested();
    void recipeSelected(const QString &id);
    void saveRecipeRequested();
    void clearOperationsRequested();
    void operationsPanelToggled();

protected:
    bool event(QEvent *event) override;

private:
    void placeButtons();
    void addEnd();
    ToolButton *addButton(const QString &name, const QString &icon, const QString &help);
    void place(ToolButton &button, const QString &name);
    void addTextGroup();
    void addOperationsGroup(TransformationManager &manager);
    void showPanelState();

    WindowState &m_state;
    QAction *m_showOperations = nullptr;
    ToolButton *m_panelToggle = nullptr;
};

} // namespace lexivore
