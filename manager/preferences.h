// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVariant>

namespace lexivore {

/// Names of everything that is kept between runs.
namespace preference {
inline constexpr char favorites[] = "favorites";                                           ///< list of strings
inline constexpr char recipes[] = "recipes";                                               ///< data (QByteArray)
inline constexpr char editorFontSize[] = "editorFontSize";                                 ///< number, points
inline constexpr char dontShowReplaceOperationsAlert[] = "dontShowReplaceOperationsAlert"; ///< Boolean
inline constexpr char hasText[] = "hasText";                                               ///< Boolean
inline constexpr char windowSize[] = "windowSize";           ///< list of two numbers, device-independent pixels
inline constexpr char columnWidths[] = "columnWidths";       ///< list of numbers from left to right, likewise
inline constexpr char lastUpdateCheck[] = "lastUpdateCheck"; ///< number, seconds since the epoch
inline constexpr char skippedUpdateVersion[] = "skippedUpdateVersion"; ///< string
} // namespace preference

/// The user's typed key-value store: lists, numbers, Booleans, texts and data keep their types.
/// Every `setValue` is on disk when it returns, or the file is as it was before.
class Preferences {
public:
    virtual ~Preferences() = default;

    /// The stored value, or an invalid variant when the key is absent.
    [[nodiscard]] virtual QVariant value(const QString &key) const = 0;
    virtual void setValue(const QString &key, const QVariant &value) = 0;

    /// False while something that was set would be forgotten if the program ended now.
    [[nodiscard]] virtual bool isStored() const = 0;
};

} // namespace lexivore
