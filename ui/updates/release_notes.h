// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "services/updates/appcast.h"

class QTextDocument;

namespace lexivore {

/// Writes an update's release notes into the empty `document`. Of what the feed sends only the words come through, and
/// which of them are headings, lists, bold, italic, code or links to https: no colours, sizes, images, tables or
/// scripts, and nothing is loaded from anywhere. Very long notes are cut off.
void writeReleaseNotes(QTextDocument &document, const AppcastItem &item);

} // namespace lexivore
