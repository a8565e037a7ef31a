// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
//
// What is read from files: recipes, recipe files and preferences. They are taken whole or refused with a reason, what
// was taken reads the same when it is written again, and the program starts with it and can run it. Input: "r", "f" or
// "p" for one of the three, then the bytes of the file.
#include "fuzz/input.h"
#include "manager/recipe_file.h"
#include "manager/recipe_json.h"
#include "manager/transformation_manager.h"
#include "tests/support/memory_preferences.h"
#include "tests/support/preferences_file.h"

#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <iostream>
#include <optional>
#include <vector>

namespace lexivore::fuzz {
namespace {

using Recipes = std::vector<Recipe>;

bool areSame(const Recipes &one, const Recipes &other) {
    return std::ranges::equal(one, other,
                              [](const Recipe &left, const Recipe &right) { return haveSameFields(left, right); });
}

/// A few of the recipe's operations, without those that may match for long.
void apply(TransformationManager &manager, Recipe recipe) {
    std::erase_if(recipe.operations,
                  [](const AppliedOperation &operation) { return operation.transformation == "replace-regex"; });
    recipe.operations.resize(std::min<std::size_t>(recipe.operations.size(), 8));
    manager.setCurrentText(Text(std::string_view("The quick brown fox\njumps over\r\nthe lazy dog.")));
    try {
        manager.applyRecipe(recipe);
    } catch (const TransformationError &) {
        // as good as any other outcome
    }
    while (!manager.history().undoStack().empty()) {
        manager.undo();
    }
}

void start(const QVariantMap &preferences) {
    test::MemoryPreferences stored;
    for (auto entry = preferences.begin(); entry != preferences.end(); ++entry) {
        stored.setValue(entry.key(), entry.value());
    }
    TransformationManager manager(stored);
    manager.ensureTemplates();
    manager.toggleFavorite("uppercase");
    for (const Recipe &recipe : Recipes(manager.recipes())) {
        if (!recipe.isTemplate()) {
            apply(manager, recipe);
        }
    }
    // What is stored now is what the next start reads.
    const TransformationManager next(stored);
    require(areSame(next.recipes(), manager.recipes()), "the next start has the same recipes");
    require(next.favorites() == manager.favorites(), "the next start has the same favorites");
}

void readRecipes(const QByteArray &json) {
    QString problem;
    const std::optional<Recipes> read = RecipeJson::decode(json, &problem);
    require(read.has_value() == problem.isEmpty(), "what is refused is refused with a reason");
    if (!read) {
        return;
    }
    const std::optional<QByteArray> written = RecipeJson::encode(*read);
    require(written.has_value(), "recipes that were read can be written");
    const std::optional<Recipes> again = RecipeJson::decode(*written);
    require(again && areSame(*again, *read), "recipes read the same again");
    start({{QLatin1String(preference::recipes), *written}});
}

void readRecipeFile(const QByteArray &bytes) {
    static const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("recipes.json"));
    QFile file(path);
    require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(), "there is room for the file");
    file.close();
    QString problem;
    const std::optional<Recipes> read = RecipeFile::read(path, problem);
    require(read.has_value() == problem.isEmpty(), "a file that is refused is refused with a reason");
    if (read) {
        require(RecipeFile::write(path, *read, problem), "recipes from a file can be written to it");
        const std::optional<Recipes> again = RecipeFile::read(path, problem);
        require(again && areSame(*again, *read), "recipes from a file read the same again");
    }
}

void readPreferences(const QByteArray &json) {
    const std::optional<QVariantMap> read = test::decodePreferences(json);
    if (!read) {
        return;
    }
    const std::optional<QVariantMap> again = test::decodePreferences(test::encodePreferences(*read));
    require(again && *again == *read, "preferences read the same again");
    start(*read);
}

} // namespace
} // namespace lexivore::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    using namespace lexivore::fuzz;
    std::cout.setstate(std::ios::failbit);
    Input input(data, size);
    const std::size_t kind = input.byte();
    // A block of its own: QByteArray ends its bytes with a NUL that is not theirs.
    const QByteArray bytes(input.rest().data(), static_cast<qsizetype>(input.rest().size()));
    switch (kind) {
    case 'f':
        readRecipeFile(bytes);
        break;
    case 'p':
        readPreferences(bytes);
        break;
    default:
        readRecipes(bytes);
        break;
    }
    return 0;
}
