// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "manager/transformation_manager.h"

#include <QSignalSpy>

#include <array>
#include <string>

namespace lexivore::test {

/// Watches every signal of a manager.
class ChangeCounter {
public:
    explicit ChangeCounter(TransformationManager &manager)
        : m_spies{{
              {"currentText", {&manager, &TransformationManager::currentTextChanged}},
              {"originalText", {&manager, &TransformationManager::originalTextChanged}},
              {"operations", {&manager, &TransformationManager::appliedOperationsChanged}},
              {"problems", {&manager, &TransformationManager::operationProblemsChanged}},
              {"measures", {&manager, &TransformationManager::operationMeasuresChanged}},
              {"history", {&manager, &TransformationManager::historyChanged}},
              {"recipes", {&manager, &TransformationManager::recipesChanged}},
              {"selectedRecipe", {&manager, &TransformationManager::selectedRecipeChanged}},
              {"favorites", {&manager, &TransformationManager::favoritesChanged}},
          }} {}

    /// The fields announced since the last call, each once for every time: "currentText operations history".
    std::string take() {
        std::string names;
        for (Spy &spy : m_spies) {
            for (int i = 0; i < spy.signal.count(); ++i) {
                names += (names.empty() ? "" : " ") + std::string(spy.name);
            }
            spy.signal.clear();
        }
        return names;
    }

private:
    struct Spy {
        const char *name;
        QSignalSpy signal;
    };
    std::array<Spy, 9> m_spies;
};

} // namespace lexivore::test
