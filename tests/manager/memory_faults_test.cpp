// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
//
// Every allocation of an action fails in turn: the action throws and the state stays, or it is done as if nothing had
// happened. The same action succeeds afterwards.
#include "engine/primitives/text_buffer.h"
#include "manager/transformation_manager.h"
#include "tests/support/failing_allocations.h"
#include "tests/support/memory_preferences.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <new>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace lexivore {
namespace {

using test::FailingAllocations;
using Action = std::function<void(TransformationManager &)>;

constexpr std::size_t mostAllocations = 100'000;

std::string bytesOf(const Text &text) { return std::string(Text(text).view()); }

/// All that the user sees of the manager.
struct Seen {
    std::string current;
    std::string original;
    std::vector<AppliedOperation> operations;
    std::size_t undoDepth = 0;
    std::size_t redoDepth = 0;

    static Seen of(const TransformationManager &manager) {
        return {bytesOf(manager.currentText()), bytesOf(manager.originalText()), manager.appliedOperations(),
                manager.history().undoStack().size(), manager.history().redoStack().size()};
    }
    [[nodiscard]] bool hasSameTextAndStack(const Seen &other) const {
        return current == other.current && haveSameFields(operations, other.operations);
    }
    [[nodiscard]] bool hasSameOutcome(const Seen &other) const {
        return current == other.current && operations.size() == other.operations.size() &&
               undoDepth == other.undoDepth && redoDepth == other.redoDepth;
    }
};

std::string largeText() {
    std::string text;
    for (int line = 0; line < 200; ++line) {
        text += "Line " + std::to_string(line * 37 % 200) + ": thé quick brown fox\r\n";
    }
    return text;
}

struct FaultCase {
    std::string name;
    Action act;
};
std::ostream &operator<<(std::ostream &out, const FaultCase &shown) { return out << shown.name; }

Action applying(const std::string &id) {
    return [id](TransformationManager &manager) {
        const TransformationPointer found = manager.findTransformation(id);
        ParameterMap parameters;
        for (const TransformationParameter &parameter : found->parameters()) {
            parameters[parameter.id] = parameter.id == "find" || parameter.id == "text" ? "fox" : "2";
        }
        if (parameters.contains("pattern")) {
            parameters["pattern"] = "(f)o.";
        }
        manager.applyTransformation(*found, parameters);
    };
}

class MemoryFaults : public testing::TestWithParam<FaultCase> {
protected:
    /// A manager in the middle of its work: three operations, one undone, the texts large enough to be worth a buffer.
    [[nodiscard]] static std::unique_ptr<TransformationManager> manager(Preferences &preferences) {
        auto made = std::make_unique<TransformationManager>(preferences);
        made->setCurrentText(Text(std::string_view(largeText())));
        for (const char *id : {"uppercase", "add-prefix", "sort-lines", "trim-lines"}) {
            applying(id)(*made);
        }
        made->undo();
        return made;
    }
};

TEST(MemoryFaultsOfTexts, LeaveATextThatCannotGiveBackItsRoom) {
    for (const std::size_t size : {std::size_t{100'000}, std::size_t{1} << 20U}) {
        TextBuffer::releaseSpareMemory();
        TextBuffer buffer = TextBuffer::withCapacity(8'000'000);
        buffer.append(std::string(size, 'x'));
        {
            const FailingAllocations failing(0);
            buffer.shrink();
            EXPECT_TRUE(FailingAllocations::hasFailed());
        }
        EXPECT_TRUE(buffer == std::string(size, 'x'));
    }
}

TEST_P(MemoryFaults, LeaveTheTextAndTheStack) {
    test::MemoryPreferences preferences;
    const std::unique_ptr<TransformationManager> undisturbed = manager(preferences);
    GetParam().act(*undisturbed);
    const Seen expected = Seen::of(*undisturbed);

    std::size_t failures = 0;
    for (std::size_t successful = 0; successful < mostAllocations; ++successful) {
        const std::unique_ptr<TransformationManager> disturbed = manager(preferences);
        const Seen before = Seen::of(*disturbed);
        bool hasThrown = false;
        try {
            const FailingAllocations failing(successful);
            GetParam().act(*disturbed);
        } catch (const std::bad_alloc &) {
            hasThrown = true;
        } catch (const TransformationError &) {
            hasThrown = true; // the library of regular expressions reports it in its own words
        }
        if (!FailingAllocations::hasFailed()) {
            EXPECT_FALSE(hasThrown);
            EXPECT_TRUE(Seen::of(*disturbed).hasSameOutcome(expected));
            EXPECT_GT(failures, 0U) << "the action takes no memory";
            return;
        }
        ++failures;
        const Seen after = Seen::of(*disturbed);
        if (hasThrown) {
            ASSERT_TRUE(after.hasSameTextAndStack(before)) << "behind allocation " << successful;
            ASSERT_EQ(after.original, before.original) << "behind allocation " << successful;
            // Whatever is left in the history, taking everything back still leads to the base text.
            GetParam().act(*disturbed);
            ASSERT_EQ(Seen::of(*disturbed).current, expected.current) << "behind allocation " << successful;
        } else {
            ASSERT_TRUE(after.hasSameOutcome(expected)) << "behind allocation " << successful;
        }
        while (!disturbed->history().undoStack().empty()) {
            disturbed->undo();
        }
        ASSERT_EQ(bytesOf(disturbed->currentText()), bytesOf(disturbed->originalText()));
    }
    FAIL() << "it never came to an end";
}

std::vector<FaultCase> cases() {
    std::vector<FaultCase> all = {
        {"toggle", [](TransformationManager &manager) { manager.toggleOperation(0); }},
        {"remove", [](TransformationManager &manager) { manager.removeOperation(1); }},
        {"move", [](TransformationManager &manager) { manager.moveOperation(0, 2); }},
        {"edit",
         [](TransformationManager &manager) {
             manager.editOperationParameters(1, {{"prefix", "é"}});
         }},
        {"clear", [](TransformationManager &manager) { manager.clearOperations(); }},
        {"reapply", [](TransformationManager &manager) { manager.reapplyOperations(); }},
        {"undo", [](TransformationManager &manager) { manager.undo(); }},
        {"redo", [](TransformationManager &manager) { manager.redo(); }},
        {"paste", [](TransformationManager &manager) { manager.setCurrentText(Text("pasted")); }},
        {"type", [](TransformationManager &manager) { manager.editCurrentText(5, 2, "typed"); }},
        {"returnToOriginal", [](TransformationManager &manager) { manager.returnToOriginalText(); }},
    };
    for (const TransformationPointer &transformation : makeCatalog()) {
        const std::string &id = transformation->id();
        if (id != "shuffle-lines" &&
            !id.ends_with("-decode")) { // the one differs each time, the others refuse the text
            all.push_back({"apply " + id, applying(id)});
        }
    }
    return all;
}

std::string nameOfCase(const testing::TestParamInfo<FaultCase> &info) {
    std::string name = info.param.name;
    std::erase_if(name, [](char byte) { return byte == '-' || byte == ' '; });
    return name;
}

INSTANTIATE_TEST_SUITE_P(InEachAction, MemoryFaults, testing::ValuesIn(cases()), nameOfCase);

} // namespace
} // namespace lexivore
