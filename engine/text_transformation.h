// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/primitives/text_buffer.h"

#include <array>
#include <exception>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lexivore {

/// The groups of the catalog, in the order in which they are shown.
enum class TransformationCategory {
    favorites, ///< What the user has marked; no transformation has it as its own category.
    caseConversion,
    addRemove,
    lines,
    sorting,
    findReplace,
    encoding,
};

/// Every category once, in declaration order.
inline constexpr std::array allTransformationCategories = {
    TransformationCategory::favorites, TransformationCategory::caseConversion, TransformationCategory::addRemove,
    TransformationCategory::lines,     TransformationCategory::sorting,        TransformationCategory::findReplace,
    TransformationCategory::encoding,
};

/// The category's text as it is shown, for example "Add & Remove".
[[nodiscard]] std::string_view rawValue(TransformationCategory category);
/// The category with exactly this display text, or nothing.
[[nodiscard]] std::optional<TransformationCategory> transformationCategory(std::string_view rawValue);
/// Name of the category's symbol image.
[[nodiscard]] std::string_view icon(TransformationCategory category);

/// Parameter `id` to the text that was entered for it.
using ParameterMap = std::map<std::string, std::string, std::less<>>;

/// One free-text input of a transformation. It carries no type and no range: a transformation reads, checks and
/// converts its own values.
struct StringParameter {
    std::string id;           ///< Key of the value in the parameter map.
    std::string label;        ///< Caption of the input field.
    std::string defaultValue; ///< What the field starts with; never a fallback for a missing value.
    std::string placeholder;  ///< Hint shown in the empty field.

    bool operator==(const StringParameter &) const = default;
};

/// A parameter descriptor. Free text is the only kind there is.
using TransformationParameter = StringParameter;

/// Why a transformation gave no text.
class TransformationError : public std::exception {
public:
    enum class Case { invalidInput, operationFailed, missingParameter };

    [[nodiscard]] static TransformationError invalidInput(std::string message);
    [[nodiscard]] static TransformationError operationFailed(std::string message);
    /// `parameter` is the id of the parameter that is missing.
    [[nodiscard]] static TransformationError missingParameter(std::string parameter);

    [[nodiscard]] Case kind() const { return m_kind; }
    [[nodiscard]] const std::string &message() const { return m_message; }
    /// What the user reads: the case's prefix and the message, for example "Missing parameter: prefix".
    [[nodiscard]] const std::string &description() const { return m_description; }
    [[nodiscard]] const char *what() const noexcept override { return m_description.c_str(); }

private:
    TransformationError(Case kind, std::string_view prefix, std::string message);

    Case m_kind;
    std::string m_message;
    std::string m_description;
};

/// One text operation: an immutable value with its catalog metadata and `apply`.
class TextTransformation {
public:
    TextTransformation(std::string id, std::string name, std::string description, TransformationCategory category,
                       std::string icon);
    virtual ~TextTransformation() = default;
    TextTransformation(const TextTransformation &) = delete;
    TextTransformation &operator=(const TextTransformation &) = delete;

    /// Stable slug, unique in the catalog; stored in recipes and favorites.
    [[nodiscard]] const std::string &id() const { return m_id; }
    [[nodiscard]] const std::string &name() const { return m_name; }
    [[nodiscard]] const std::string &description() const { return m_description; }
    [[nodiscard]] TransformationCategory category() const { return m_category; }
    /// Name of a symbol image.
    [[nodiscard]] const std::string &icon() const { return m_icon; }

    /// True when the same text and parameters can give another result each time.
    [[nodiscard]] virtual bool isRandom() const { return false; }
    /// True when it gives up after some time, so that it may fail on a text on which it has succeeded before.
    [[nodiscard]] virtual bool hasTimeLimit() const { return false; }

    /// The inputs that the transformation asks for, in the order in which they are asked for.
    [[nodiscard]] virtual std::vector<TransformationParameter> parameters() const { return {}; }

    /// The whole new text. Pure: unless it is random, the same text and map give the same result.
    /// Throws TransformationError, and then there is no partial result. `text` is meant to be valid UTF-8; on any other
    /// bytes the result is unspecified but harmless. Reads only the keys of its own parameters.
    [[nodiscard]] virtual TextBuffer apply(std::string_view text, const ParameterMap &parameters) const = 0;

private:
    std::string m_id;
    std::string m_name;
    std::string m_description;
    TransformationCategory m_category;
    std::string m_icon;
};

using TransformationPointer = std::shared_ptr<const TextTransformation>;

/// A transformation as an identifiable value, for lists that are shown and compared.
struct TransformationWrapper {
    explicit TransformationWrapper(TransformationPointer wrapped)
        : id(wrapped->id()), transformation(std::move(wrapped)) {}

    std::string id;
    TransformationPointer transformation;

    bool operator==(const TransformationWrapper &other) const { return id == other.id; }
};

} // namespace lexivore
