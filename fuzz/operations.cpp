// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
//
// The manager beside a plain model of its rules, action for action.
// Input: the text in a field, then actions: a letter each, then what it needs.
#include "engine/catalog.h"
#include "fuzz/input.h"
#include "fuzz/well_formed.h"
#include "manager/transformation_manager.h"
#include "tests/support/escaped.h"
#include "tests/support/memory_preferences.h"

#include <algorithm>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

namespace lexivore::fuzz {
namespace {

constexpr std::size_t mostBytes = std::size_t(1024) * 16;
constexpr int mostActions = 60;

struct PlainOperation {
    std::string id;
    ParameterMap parameters;
    bool isEnabled = true;
    bool operator==(const PlainOperation &) const = default;
};

struct PlainState {
    std::string text;
    std::vector<PlainOperation> operations;
};

/// The manager's rules written down once more, with whole copies of everything.
class PlainManager {
public:
    explicit PlainManager(const Catalog &catalog) : m_catalog(catalog) {}

    PlainState state;
    std::string original;
    std::vector<PlainState> undoStack;
    std::vector<PlainState> redoStack;

    /// False when the application ends in an error.
    bool apply(const std::string &id, const ParameterMap &parameters) {
        if (state.text.empty()) {
            return false;
        }
        record();
        if (state.operations.empty()) {
            original = state.text;
        }
        const std::optional<std::string> result = run(id, parameters, state.text);
        if (result) {
            state.text = *result;
            state.operations.push_back({id, parameters});
        }
        return result.has_value();
    }
    void toggle(std::size_t index) {
        if (index < state.operations.size()) {
            record();
            state.operations[index].isEnabled = !state.operations[index].isEnabled;
            reapply();
        }
    }
    void remove(std::size_t index) {
        if (index < state.operations.size()) {
            record();
            state.operations.erase(state.operations.begin() + static_cast<std::ptrdiff_t>(index));
            reapply();
        }
    }
    void move(std::size_t from, std::size_t to) {
        if (from < state.operations.size() && to < state.operations.size() && from != to) {
            record();
            const PlainOperation moved = state.operations[from];
            state.operations.erase(state.operations.begin() + static_cast<std::ptrdiff_t>(from));
            state.operations.insert(state.operations.begin() + static_cast<std::ptrdiff_t>(to), moved);
            reapply();
        }
    }
    void edit(std::size_t index, const ParameterMap &parameters) {
        if (index < state.operations.size() && state.operations[index].parameters != parameters) {
            record();
            state.operations[index].parameters = parameters;
            reapply();
        }
    }
    void clearOperations() {
        if (!state.operations.empty()) {
            record();
            state.operations.clear();
            reapply();
        }
    }
    void clearAll() {
        state = {};
        original.clear();
        undoStack.clear();
        redoStack.clear();
    }
    void undo() {
        if (!undoStack.empty()) {
            restore(undoStack, redoStack);
            if (state.operations.empty()) {
                state.text = original;
            }
        }
    }
    void redo() {
        if (!redoStack.empty()) {
            restore(redoStack, undoStack);
        }
    }
    void returnToOriginal() {
        if (!state.operations.empty()) {
            state = {original, {}};
        }
    }
    void reapply() {
        state.text = original;
        for (const PlainOperation &operation : state.operations) {
            if (operation.isEnabled) {
                state.text = run(operation.id, operation.parameters, state.text).value_or(state.text);
            }
        }
    }

private:
    void record() {
        undoStack.push_back(state);
        redoStack.clear();
    }
    void restore(std::vector<PlainState> &from, std::vector<PlainState> &to) {
        to.push_back(state);
        state = from.back();
        from.pop_back();
    }
    [[nodiscard]] std::optional<std::string> run(const std::string &id, const ParameterMap &parameters,
                                                 const std::string &text) const {
        try {
            return std::string(findTransformation(m_catalog, id)->apply(text, parameters).view());
        } catch (const TransformationError &) {
            return std::nullopt;
        }
    }

    const Catalog &m_catalog;
};

/// What the manager has announced, field by field.
struct Announced {
    std::string current;
    std::string original;
    std::vector<PlainOperation> operations;
};

std::string bytesOf(const Text &text) { return std::string(Text(text).view()); }

std::vector<PlainOperation> plain(const std::vector<AppliedOperation> &operations) {
    std::vector<PlainOperation> result;
    result.reserve(operations.size());
    for (const AppliedOperation &operation : operations) {
        result.push_back({operation.transformation, operation.parameters, operation.isEnabled});
    }
    return result;
}

class Session {
public:
    explicit Session(const Input &input)
        : m_input(input), m_manager(m_preferences), m_plain(m_manager.transformations()) {
        QObject::connect(&m_manager, &TransformationManager::currentTextChanged, &m_manager, [this] {
            require(m_announced.current != bytesOf(m_manager.currentText()),
                    "a text that is the same is not announced");
            m_announced.current = bytesOf(m_manager.currentText());
        });
        QObject::connect(&m_manager, &TransformationManager::originalTextChanged, &m_manager, [this] {
            require(m_announced.original != bytesOf(m_manager.originalText()),
                    "a base that is the same is not announced");
            m_announced.original = bytesOf(m_manager.originalText());
        });
        QObject::connect(&m_manager, &TransformationManager::appliedOperationsChanged, &m_manager,
                         [this] { m_announced.operations = plain(m_manager.appliedOperations()); });
    }

    void run() {
        setText(wellFormed(m_input.field()));
        for (int action = 0; action < mostActions && !m_input.isOver(); ++action) {
            act();
            check();
        }
        // All the way back and forth again gives the same texts.
        std::vector<std::string> texts;
        while (!m_manager.history().undoStack().empty()) {
            texts.push_back(bytesOf(m_manager.currentText()));
            m_manager.undo();
            m_plain.undo();
            check();
        }
        for (; !texts.empty(); texts.pop_back()) {
            m_manager.redo();
            m_plain.redo();
            check();
            require(bytesOf(m_manager.currentText()) == texts.back(), "redo brings back the text that undo took");
        }
    }

private:
    void act() {
        switch (m_input.byte()) {
        case 't':
            return both([](auto &one, std::size_t index) { one.toggle(index); },
                        [](auto &one, std::size_t index) { one.toggleOperation(index); });
        case 'r':
            return both([](auto &one, std::size_t index) { one.remove(index); },
                        [](auto &one, std::size_t index) { one.removeOperation(index); });
        case 'm':
            return move();
        case 'e':
            return editParameters();
        case 'w':
            return write();
        case 'c':
            m_manager.clearOperations();
            return m_plain.clearOperations();
        case 'C':
            m_manager.clearAll();
            return m_plain.clearAll();
        case 'u':
            m_manager.undo();
            return m_plain.undo();
        case 'U':
            m_manager.redo();
            return m_plain.redo();
        case 'a':
            m_manager.reapplyOperations();
            return m_plain.reapply();
        case 'o':
            m_manager.returnToOriginalText();
            return m_plain.returnToOriginal();
        case 's':
            return setText(wellFormed(m_input.field()));
        default:
            return apply();
        }
    }

    template<typename OnPlain, typename OnManager> void both(OnPlain onPlain, OnManager onManager) {
        const std::size_t index = m_input.below(8);
        onPlain(m_plain, index);
        onManager(m_manager, index);
    }

    void move() {
        const std::size_t from = m_input.below(8);
        const std::size_t to = m_input.below(8);
        m_manager.moveOperation(from, to);
        m_plain.move(from, to);
    }

    void setText(const std::string &text) {
        m_manager.setCurrentText(Text(std::string_view(text)));
        m_plain.state.text = text;
    }

    /// The user's typing, anywhere between two bytes: the manager knows nothing of characters.
    void write() {
        const std::size_t offset = m_input.below(m_plain.state.text.size() + 1);
        const std::size_t length = m_input.below(m_plain.state.text.size() - offset + 1);
        const std::string_view inserted = m_input.field();
        m_manager.editCurrentText(offset, length, inserted);
        m_plain.state.text.replace(offset, length, inserted);
    }

    void apply() {
        const TransformationPointer found = transformation();
        const ParameterMap given = parameters(*found);
        bool succeeded = true;
        try {
            m_manager.applyTransformation(*found, given);
        } catch (const TransformationError &) {
            succeeded = false;
        }
        require(m_plain.apply(found->id(), given) == succeeded, "an application fails exactly when it must");
    }

    void editParameters() {
        const std::size_t index = m_input.below(8);
        ParameterMap given;
        if (index < m_plain.state.operations.size()) {
            given = parameters(*m_manager.findTransformation(m_plain.state.operations[index].id));
        }
        m_manager.editOperationParameters(index, given);
        m_plain.edit(index, given);
    }

    /// Any but the two that give another text each time or take long.
    TransformationPointer transformation() {
        const Catalog &catalog = m_manager.transformations();
        for (std::size_t index = m_input.below(catalog.size());; index = (index + 1) % catalog.size()) {
            const bool grows = m_plain.state.text.size() > mostBytes;
            const std::string &id = grows ? "keep-first-n-lines" : catalog[index]->id();
            if (id != "shuffle-lines" && id != "replace-regex") {
                return m_manager.findTransformation(id);
            }
        }
    }

    ParameterMap parameters(const TextTransformation &transformation) {
        ParameterMap given;
        for (const TransformationParameter &parameter : transformation.parameters()) {
            given[parameter.id] = wellFormed(m_input.field().substr(0, 64));
        }
        return given;
    }

    void check() const {
        same(m_manager.currentText(), m_plain.state.text, m_announced.current, "the current text");
        same(m_manager.originalText(), m_plain.original, m_announced.original, "the base text");
        const std::vector<PlainOperation> operations = plain(m_manager.appliedOperations());
        require(operations == m_plain.state.operations, "the stack is the plain model's");
        require(operations == m_announced.operations, "the stack has been announced");
        require(m_manager.history().undoStack().size() == m_plain.undoStack.size(), "as much can be undone");
        require(m_manager.history().redoStack().size() == m_plain.redoStack.size(), "as much can be redone");
        for (const auto &[id, problem] : m_manager.operationProblems()) {
            require(std::ranges::find(m_manager.appliedOperations(), id, &AppliedOperation::id) !=
                        m_manager.appliedOperations().end(),
                    "a problem belongs to an operation of the stack");
        }
    }

    static void same(const Text &actual, const std::string &expected, const std::string &announced,
                     const std::string &what) {
        if (bytesOf(actual) != expected) {
            fail(what + " is the plain model's",
                 "expected " + test::escaped(expected) + "\nbut got  " + test::escaped(bytesOf(actual)));
        }
        require(announced == expected, what + " has been announced");
    }

    Input m_input;
    test::MemoryPreferences m_preferences;
    TransformationManager m_manager;
    PlainManager m_plain;
    Announced m_announced;
};

} // namespace
} // namespace lexivore::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    std::cout.setstate(std::ios::failbit); // what the re-run reports is not of interest here
    lexivore::fuzz::Session(lexivore::fuzz::Input(data, size)).run();
    return 0;
}
