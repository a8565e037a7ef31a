// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/text.h"

#include <memory>
#include <string>
#include <utility>

namespace lexivore {

class ToolViewFactory;

/// Whatever shows a tool's result. The user interface defines it; the tools only pass the pointer on.
class ToolView;

/// One analysis tool: an immutable value with its four texts and the operation that brings up its result. Its
/// computation and its report are functions beside it, so that they need no view.
class TextTool {
public:
    TextTool(std::string id, std::string name, std::string description, std::string icon);
    virtual ~TextTool() = default;
    TextTool(const TextTool &) = delete;
    TextTool &operator=(const TextTool &) = delete;

    /// Stable slug, unique among the tools.
    [[nodiscard]] const std::string &id() const { return m_id; }
    /// The title.
    [[nodiscard]] const std::string &name() const { return m_name; }
    /// One line that is shown under the name.
    [[nodiscard]] const std::string &description() const { return m_description; }
    /// Name of a symbol image.
    [[nodiscard]] const std::string &icon() const { return m_icon; }

    /// A new view of the result for this text, which does not follow later edits: the text is a snapshot.
    /// Made by `factory`, which also says who owns it; never null unless the factory gives null.
    [[nodiscard]] virtual ToolView *makeView(const Text &text, ToolViewFactory &factory) const = 0;

private:
    std::string m_id;
    std::string m_name;
    std::string m_description;
    std::string m_icon;
};

using TextToolPointer = std::shared_ptr<const TextTool>;

/// A tool as an identifiable value, for the tool that is being shown.
struct ToolWrapper {
    explicit ToolWrapper(TextToolPointer wrapped) : id(wrapped->id()), tool(std::move(wrapped)) {}

    std::string id;
    TextToolPointer tool;

    bool operator==(const ToolWrapper &other) const { return id == other.id; }
};

} // namespace lexivore
