// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace lexivore {

/// The heights that a toolbar can have.
enum class ToolbarSizeMode {
    regular, ///< Buttons of 32 px with 20 px icons.
    small,   ///< Buttons of 28 px with 16 px icons.
};

/// A view that takes no space. On the next turn of the event loop it sets the toolbar of its window to `sizeMode` and
/// to icons without text.
class ToolbarSizeConfigurator : public QWidget {
    Q_OBJECT

public:
    explicit ToolbarSizeConfigurator(ToolbarSizeMode sizeMode, QWidget *parent = nullptr);

    [[nodiscard]] ToolbarSizeMode sizeMode() const { return m_sizeMode; }

private:
    void configure();

    ToolbarSizeMode m_sizeMode;
};

} // namespace lexivore
