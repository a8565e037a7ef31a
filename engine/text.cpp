// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
//
// A balanced tree (AVL, with the bytes in the leaves). Leaves point into shared buffers that never change. Every edit
// is made of two cuts and two joins, each of which builds new nodes along one path and shares all others.
#include "engine/text.h"

#include <algorithm>
#include <cassert>
#include <cstring>
#include <utility>
#include <vector>

namespace lexivore {

namespace {

/// Neighbouring leaves that together have at most this many bytes become one by copying, so that typing does not leave
/// a leaf for every key. Shorter pieces of large buffers are copied too, so that they do not keep the buffer alive.
constexpr std::size_t smallLeafBytes = 2048;

using BufferPointer = std::shared_ptr<const TextBuffer>;

} // namespace

/// Either a leaf with bytes or an inner node with two children; never empty.
struct Text::Node {
    // All but the size can change once, when `flatten` turns an inner node into a leaf with the same bytes.
    std::size_t size = 0;
    mutable int height = 1; ///< At least the number of nodes on the longest way down; exactly 1 for a leaf.
    mutable BufferPointer buffer;
    mutable std::string_view bytes;
    mutable NodePointer left;
    mutable NodePointer right;

    [[nodiscard]] bool isLeaf() const { return left == nullptr; }

    static NodePointer makeLeaf(BufferPointer buffer, std::string_view bytes);
    static NodePointer makeLeaf(TextBuffer bytes);
    static NodePointer makeInner(NodePointer left, NodePointer right);

    static NodePointer balanced(const NodePointer &left, const NodePointer &right);
    static NodePointer joined(const NodePointer &left, const NodePointer &right);
    static NodePointer concatenated(const NodePointer &left, const NodePointer &right);
    static NodePointer firstBytes(const NodePointer &node, std::size_t count);
    static NodePointer withoutFirstBytes(const NodePointer &node, std::size_t count);
    static const Node &firstLeaf(const NodePointer &node);
    static const Node &lastLeaf(const NodePointer &node);

    void flatten() const;
};

/// Walks over the leaves in order. It holds what it still has to visit, so that the text may be flattened meanwhile.
class Text::Runs {
public:
    Runs(const NodePointer &root, std::size_t offset) {
        if (root != nullptr) {
            descend(root, offset);
        }
    }

    [[nodiscard]] bool atEnd() const { return m_current.empty(); }
    /// What is left of the current run; not empty before the end.
    [[nodiscard]] std::string_view current() const { return m_current; }
    void advance(std::size_t bytes) {
        m_current.remove_prefix(bytes);
        if (m_current.empty() && !m_pending.empty()) {
            const NodePointer next = std::move(m_pending.back());
            m_pending.pop_back();
            descend(next, 0);
        }
    }

private:
    void descend(NodePointer node, std::size_t offset) {
        while (!node->isLeaf()) {
            if (offset < node->left->size) {
                m_pending.push_back(node->right);
                node = NodePointer(node->left);
            } else {
                offset -= node->left->size;
                node = NodePointer(node->right);
            }
        }
        m_current = node->bytes.substr(offset);
        m_buffer = node->buffer;
    }

    std::vector<NodePointer> m_pending;
    BufferPointer m_buffer; ///< Keeps the bytes of the current run.
    std::string_view m_current;
};

Text::NodePointer Text::Node::makeLeaf(BufferPointer buffer, std::string_view bytes) {
    if (bytes.empty()) {
        return nullptr;
    }
    if (bytes.size() <= smallLeafBytes && buffer->size() > smallLeafBytes) {
        return makeLeaf(TextBuffer(bytes));
    }
    auto node = std::make_shared<Node>();
    node->size = bytes.size();
    node->bytes = bytes;
    node->buffer = std::move(buffer);
    return node;
}

Text::NodePointer Text::Node::makeLeaf(TextBuffer bytes) {
    bytes.shrink();
    auto buffer = std::make_shared<const TextBuffer>(std::move(bytes));
    const std::string_view all = buffer->view();
    return makeLeaf(std::move(buffer), all);
}

Text::NodePointer Text::Node::makeInner(NodePointer left, NodePointer right) {
    auto node = std::make_shared<Node>();
    node->size = left->size + right->size;
    node->height = std::max(left->height, right->height) + 1;
    node->left = std::move(left);
    node->right = std::move(right);
    return node;
}

/// An inner node, after one rotation where the heights differ by two.
Text::NodePointer Text::Node::balanced(const NodePointer &left, const NodePointer &right) {
    if (left->height > right->height + 1) {
        const Node &inner = *left->right;
        if (left->left->height >= inner.height) {
            return makeInner(left->left, makeInner(left->right, right));
        }
        return makeInner(makeInner(left->left, inner.left), makeInner(inner.right, right));
    }
    if (right->height > left->height + 1) {
        const Node &inner = *right->left;
        if (right->right->height >= inner.height) {
            return makeInner(makeInner(left, right->left), right->right);
        }
        return makeInner(makeInner(left, inner.left), makeInner(inner.right, right->right));
    }
    return makeInner(left, right);
}

/// Both texts one after the other; either can be null. Descends as far as the heights differ.
Text::NodePointer Text::Node::joined(const NodePointer &left, const NodePointer &right) {
    if (left == nullptr) {
        return right;
    }
    if (right == nullptr) {
        return left;
    }
    if (left->height > right->height + 1) {
        return balanced(left->left, joined(left->right, right));
    }
    if (right->height > left->height + 1) {
        return balanced(joined(left, right->left), right->right);
    }
    return makeInner(left, right);
}

/// As `joined`, but makes one leaf of the two that meet when both are small.
Text::NodePointer Text::Node::concatenated(const NodePointer &left, const NodePointer &right) {
    if (left == nullptr || right == nullptr) {
        return left == nullptr ? right : left;
    }
    const std::string_view before = lastLeaf(left).bytes;
    const std::string_view after = firstLeaf(right).bytes;
    if (before.size() + after.size() > smallLeafBytes) {
        return joined(left, right);
    }
    TextBuffer both = TextBuffer::withCapacity(before.size() + after.size());
    both.append(before);
    both.append(after);
    const NodePointer rest = withoutFirstBytes(right, after.size());
    return joined(joined(firstBytes(left, left->size - before.size()), makeLeaf(std::move(both))), rest);
}

Text::NodePointer Text::Node::firstBytes(const NodePointer &node, std::size_t count) {
    if (node == nullptr || count == node->size) {
        return node;
    }
    if (count == 0) {
        return nullptr;
    }
    if (node->isLeaf()) {
        return makeLeaf(node->buffer, node->bytes.substr(0, count));
    }
    const std::size_t inLeft = node->left->size;
    return count <= inLeft ? firstBytes(node->left, count)
                           : joined(node->left, firstBytes(node->right, count - inLeft));
}

Text::NodePointer Text::Node::withoutFirstBytes(const NodePointer &node, std::size_t count) {
    if (node == nullptr || count == 0) {
        return node;
    }
    if (count == node->size) {
        return nullptr;
    }
    if (node->isLeaf()) {
        return makeLeaf(node->buffer, node->bytes.substr(count));
    }
    const std::size_t inLeft = node->left->size;
    return count >= inLeft ? withoutFirstBytes(node->right, count - inLeft)
                           : joined(withoutFirstBytes(node->left, count), node->right);
}

const Text::Node &Text::Node::firstLeaf(const NodePointer &node) {
    const Node *leaf = node.get();
    while (!leaf->isLeaf()) {
        leaf = leaf->left.get();
    }
    return *leaf;
}

const Text::Node &Text::Node::lastLeaf(const NodePointer &node) {
    const Node *leaf = node.get();
    while (!leaf->isLeaf()) {
        leaf = leaf->right.get();
    }
    return *leaf;
}

/// Turns an inner node into a leaf in place: every text that holds this node profits, and the buffers below it are
/// released. Trees that have it as an inner part then count it as higher than it is, which costs them nothing.
void Text::Node::flatten() const {
    TextBuffer all = TextBuffer::withCapacity(size);
    for (Runs runs(left, 0); !runs.atEnd(); runs.advance(runs.current().size())) {
        all.append(runs.current());
    }
    for (Runs runs(right, 0); !runs.atEnd(); runs.advance(runs.current().size())) {
        all.append(runs.current());
    }
    buffer = std::make_shared<const TextBuffer>(std::move(all));
    bytes = buffer->view();
    height = 1;
    left.reset();
    right.reset();
}

Text::Text(TextBuffer bytes) : m_root(bytes.empty() ? nullptr : Node::makeLeaf(std::move(bytes))) {}

Text::Text(std::string_view bytes) : Text(TextBuffer(bytes)) {}

std::size_t Text::size() const { return m_root == nullptr ? 0 : m_root->size; }

Text Text::replaced(std::size_t offset, std::size_t length, std::string_view replacement) const {
    return replaced(offset, length, Text(replacement));
}

Text Text::replaced(std::size_t offset, std::size_t length, const Text &replacement) const {
    assert(offset <= size() && length <= size() - offset);
    if (length == 0 && replacement.empty()) {
        return *this;
    }
    const NodePointer before = Node::firstBytes(m_root, offset);
    const NodePointer after = Node::withoutFirstBytes(m_root, offset + length);
    return Text(Node::concatenated(Node::concatenated(before, replacement.m_root), after));
}

Text Text::slice(std::size_t offset, std::size_t length) const {
    assert(offset <= size() && length <= size() - offset);
    return Text(Node::firstBytes(Node::withoutFirstBytes(m_root, offset), length));
}

std::string_view Text::view() const {
    if (m_root == nullptr) {
        return {};
    }
    if (!m_root->isLeaf()) {
        m_root->flatten();
    }
    return m_root->bytes;
}

void Text::forEachRun(std::size_t offset, std::size_t length,
                      const std::function<void(std::string_view)> &visit) const {
    assert(offset <= size() && length <= size() - offset);
    if (length == 0) {
        return;
    }
    Runs runs(m_root, offset);
    while (length > 0) {
        const std::string_view run = runs.current().substr(0, length);
        visit(run);
        length -= run.size();
        runs.advance(run.size());
    }
}

bool operator==(const Text &left, const Text &right) {
    if (left.m_root == right.m_root) {
        return true;
    }
    if (left.size() != right.size()) {
        return false;
    }
    Text::Runs leftRuns(left.m_root, 0);
    Text::Runs rightRuns(right.m_root, 0);
    while (!leftRuns.atEnd()) {
        const std::size_t length = std::min(leftRuns.current().size(), rightRuns.current().size());
        const char *const leftBytes = leftRuns.current().data();
        const char *const rightBytes = rightRuns.current().data();
        if (leftBytes != rightBytes && std::memcmp(leftBytes, rightBytes, length) != 0) {
            return false;
        }
        leftRuns.advance(length);
        rightRuns.advance(length);
    }
    return true;
}

} // namespace lexivore
