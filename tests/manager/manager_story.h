// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "manager/transformation_manager.h"

#include "tests/manager/change_counter.h"
#include "tests/support/memory_preferences.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <variant>

namespace lexivore::test {

/// A manager with nothing in it, and short words for what the stories do with it and ask of it.
class ManagerStory : public testing::Test {
protected:
    void apply(std::string_view id, const ParameterMap &parameters = {}) {
        manager.applyTransformation(*manager.findTransformation(id), parameters);
    }
    /// The description of what `apply` throws, or nothing.
    std::string errorOfApplying(std::string_view id, const ParameterMap &parameters = {}) {
        try {
            apply(id, parameters);
        } catch (const TransformationError &error) {
            return error.description();
        }
        return {};
    }
    std::string_view text() const { return manager.currentText().view(); }
    std::string_view original() const { return manager.originalText().view(); }
    /// The ids on the stack, a disabled one in brackets.
    std::string stack() const {
        std::string all;
        for (const AppliedOperation &operation : manager.appliedOperations()) {
            const std::string &id = operation.transformation;
            all += (all.empty() ? "" : " ") + (operation.isEnabled ? id : "(" + id + ")");
        }
        return all;
    }
    std::size_t undoCount() const { return manager.history().undoStack().size(); }
    std::size_t redoCount() const { return manager.history().redoStack().size(); }
    template<typename Action> const Action *lastAction() const {
        return std::get_if<Action>(&manager.history().undoStack().back().action);
    }

    MemoryPreferences preferences;
    TransformationManager manager{preferences};
    ChangeCounter changes{manager};
};

} // namespace lexivore::test
