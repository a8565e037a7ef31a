// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

class QString;
class QWidget;

namespace lexivore {

/// A quiet centred line at the end of a result.
[[nodiscard]] QWidget *makeFootnote(const QString &text);

} // namespace lexivore
