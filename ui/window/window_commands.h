// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <functional>

namespace lexivore {

class EditorFontFlow;
class EditorPane;
class FileFlow;
class NotificationCenter;
class RecipeFlow;
class ToolFlow;
class TransformationFlow;
class TransformationList;
class UndoFlow;
class WindowState;

/// What the window does for each notification. The only writer of a flag that has a notification of its own.
class WindowCommands : public QObject {
    Q_OBJECT

public:
    /// Who carries the commands out. All must outlive this.
    struct Flows {
        TransformationFlow &transformations;
        RecipeFlow &recipes;
        FileFlow &files;
        ToolFlow &tools;
        UndoFlow &undo;
        EditorFontFlow &font;
    };

    /// The views that commands give the keyboard to.
    struct Views {
        TransformationList &list;
        EditorPane &editor;
    };

    WindowCommands(NotificationCenter &center, WindowState &state, Flows flows, Views views, QObject *parent = nullptr);

private:
    void subscribe(const char *name, std::function<void()> handler);
    /// A post whose object is no string is ignored.
    void subscribeWithText(const char *name, std::function<void(const QString &)> handler);

    NotificationCenter &m_center;
};

} // namespace lexivore
