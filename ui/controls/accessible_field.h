// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

namespace lexivore {

/// Shows all line edits to assistive technology by an interface of our own from now on. The toolkit's never comes back
/// when it is asked for the word or the sentence at the end of the text, where the caret stands while somebody types.
/// Further calls do nothing.
void installAccessibleFields();

} // namespace lexivore
