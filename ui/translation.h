// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <string_view>

class QCoreApplication;

namespace lexivore {

struct Recipe;

/// Texts of the engine, the tools and the built-in recipes, which are English there, in the language of the user
/// interface. A text that is none of theirs, or has no translation, comes back as it is.
[[nodiscard]] QString translated(std::string_view english);

/// The same for the description of an error, which is put together of parts that end with a colon.
[[nodiscard]] QString translatedError(std::string_view description);

/// What a recipe is called: the user's own name for it as it is, a built-in one translated.
[[nodiscard]] QString translatedName(const Recipe &recipe);

/// Gives `application` the translations for the first of `languages` that there is one for, those of the toolkit
/// included. None when English comes before all of them. The languages are named as by QLocale::uiLanguages().
void installTranslations(QCoreApplication &application, const QStringList &languages);

} // namespace lexivore
