// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "ui/translation.h"

#include "manager/recipe.h"
#include "manager/text_conversion.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

#include <string>

namespace lexivore {

namespace {

/// Installs the file for `language` from `folder`, if it is there.
bool install(QCoreApplication &application, const QString &name, const QString &language, const QString &folder) {
    auto *translator = new QTranslator(&application);
    if (!translator->load(name + '_' + language, folder)) {
        delete translator;
        return false;
    }
    return QCoreApplication::installTranslator(translator);
}

} // namespace

QString translated(std::string_view english) {
    if (english.empty()) {
        return {};
    }
    const std::string terminated(english);
    const QString text = QCoreApplication::translate("Engine", terminated.c_str());
    return text == QString::fromUtf8(terminated.c_str()) ? toQString(english) : text;
}

QString translatedError(std::string_view description) {
    const std::size_t colon = description.find(": ");
    if (colon == std::string_view::npos) {
        return translated(description);
    }
    return translated(description.substr(0, colon + 2)) + translatedError(description.substr(colon + 2));
}

QString translatedName(const Recipe &recipe) {
    return recipe.isTemplate() ? translated(recipe.name) : toQString(recipe.name);
}

void installTranslations(QCoreApplication &application, const QStringList &languages) {
    // QTranslator would skip the languages that have no file, and so English, which needs none.
    for (QString language : languages) {
        language = language.replace('-', '_');
        if (language.startsWith("en")) {
            return;
        }
        if (install(application, "lexivore", language, ":/translations")) {
            install(application, "qtbase", language, QLibraryInfo::path(QLibraryInfo::TranslationsPath));
            return;
        }
    }
}

} // namespace lexivore
