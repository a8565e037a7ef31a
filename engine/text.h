// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/primitives/text_buffer.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string_view>
#include <utility>

namespace lexivore {

/// An immutable text: UTF-8 bytes, kept exactly as they came.
///
/// Copying takes constant time and no memory whatever the size, so that the current text, the base text and every
/// history entry can hold one each. An edit gives a new text that shares all the rest with the old one: it costs a
/// logarithm of the number of earlier edits, not of the size. Offsets and lengths are in bytes.
class Text {
public:
    Text() = default;
    /// Takes the bytes without copying them.
    explicit Text(TextBuffer bytes);
    /// Copies the bytes once.
    explicit Text(std::string_view bytes);

    [[nodiscard]] std::size_t size() const;
    [[nodiscard]] bool empty() const { return size() == 0; }

    /// This text with `length` bytes at `offset` replaced by `replacement`. The range must lie within the text.
    [[nodiscard]] Text replaced(std::size_t offset, std::size_t length, std::string_view replacement) const;
    /// As above, sharing the bytes of `replacement` instead of copying them.
    [[nodiscard]] Text replaced(std::size_t offset, std::size_t length, const Text &replacement) const;
    /// The `length` bytes at `offset`, shared. The range must lie within the text.
    [[nodiscard]] Text slice(std::size_t offset, std::size_t length) const;

    /// The whole text as one run of bytes, valid as long as any copy of this text lives.
    /// The first call after edits copies the text once; the result is then shared by all copies of this value.
    [[nodiscard]] std::string_view view() const;
    /// Calls `visit` with the runs of bytes that make up the `length` bytes at `offset`, in order, without joining
    /// them. A run can begin or end within a character.
    void forEachRun(std::size_t offset, std::size_t length, const std::function<void(std::string_view)> &visit) const;

    /// True when both are the same value by reference: constant time, and false for equal bytes kept twice.
    [[nodiscard]] bool sharesAllWith(const Text &other) const { return m_root == other.m_root; }
    /// Same bytes. Constant time when they are shared or the sizes differ.
    friend bool operator==(const Text &left, const Text &right);

private:
    struct Node;
    class Runs;
    using NodePointer = std::shared_ptr<const Node>;
    explicit Text(NodePointer root) : m_root(std::move(root)) {}

    NodePointer m_root; ///< Null for the empty text.
};

} // namespace lexivore
