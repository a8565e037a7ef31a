// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>

class QWidget;

namespace lexivore {

/// Asks the user for a file. The answer comes later and only if the user gives one.
class FilePanels {
public:
    using Answer = std::function<void(const QString &path)>;

    virtual ~FilePanels() = default;

    /// One existing text file.
    virtual void askForFileToOpen(Answer answer) = 0;
    /// A place to save the text, proposed as "text.txt".
    virtual void askForFileToSave(Answer answer) = 0;
    /// One existing file of recipes.
    virtual void askForRecipesToImport(Answer answer) = 0;
    /// A place for a file of recipes, with a name to start from.
    virtual void askForRecipesToExport(const QString &proposedName, Answer answer) = 0;
};

/// The toolkit's own file dialogs, over `window`.
class FileDialogs final : public FilePanels {
public:
    explicit FileDialogs(QWidget &window) : m_window(window) {}

    void askForFileToOpen(Answer answer) override;
    void askForFileToSave(Answer answer) override;
    void askForRecipesToImport(Answer answer) override;
    void askForRecipesToExport(const QString &proposedName, Answer answer) override;

private:
    QWidget &m_window;
};

} // namespace lexivore
