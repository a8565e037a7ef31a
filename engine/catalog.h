// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/text_transformation.h"

#include <string_view>
#include <vector>

namespace lexivore {

using Catalog = std::vector<TransformationPointer>;

/// Every transformation once, in the order in which the categories show them. Built anew by each call.
[[nodiscard]] Catalog makeCatalog();

/// The first entry with exactly this id, or null.
[[nodiscard]] TransformationPointer findTransformation(const Catalog &catalog, std::string_view id);

} // namespace lexivore
