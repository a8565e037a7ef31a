// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "manager/transformation_manager.h"
#include "tests/manager/change_counter.h"
#include "tests/manager/manager_model.h"
#include "tests/support/memory_preferences.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace lexivore::test {

/// A manager and the model of its rules, to which the same is done and which must not differ.
class ManagerAndModel {
public:
    /// With `little` memory the manager keeps next to nothing of what it could compute again.
    explicit ManagerAndModel(const std::optional<MemoryBudget> &little);

    MemoryPreferences preferences;
    TransformationManager manager;
    ManagerModel model;

    /// Acts on the manager, then on the model; `chance` decides what is random in both. Expects that both end with the
    /// same error, have printed the same and have the same fields, and that exactly what has changed was announced.
    void act(std::uint32_t chance, const std::function<void()> &onManager, const std::function<void()> &onModel);

private:
    /// What an action may change.
    struct Before {
        explicit Before(const ManagerModel &model);

        ModelState state;
        std::string original;
        std::size_t undoDepth;
        std::size_t redoDepth;
        std::vector<Recipe> recipes;
        std::optional<Recipe> selectedRecipe;
        std::set<std::string, std::less<>> favorites;
        int writes;
    };

    void compareText() const;
    void compareRecipes(const Before &before) const;
    void compareAnnouncements(const Before &before);

    bool m_hasLittleMemory;
    ChangeCounter m_changes{manager};
};

} // namespace lexivore::test
