// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT

// The engine, the tools and the recipes know no translations. This writes what they say in English as a source file in
// which Qt's tools find it: list_engine_texts FILE
#include "engine/catalog.h"
#include "engine/text_transformation.h"
#include "manager/recipe.h"
#include "tools/character_frequency_tool.h"
#include "tools/readability_tool.h"
#include "tools/tools_manager.h"

#include <fstream>
#include <iostream>
#include <set>
#include <string>
#include <string_view>

namespace {

using namespace lexivore;

class Texts {
public:
    explicit Texts(const char *path) : m_file(path) {
        m_file << "#include <QtGlobal>\nstatic const char *const texts[] = {\n";
    }

    void add(std::string_view text) {
        if (text.empty() || !m_written.insert(std::string(text)).second) {
            return;
        }
        m_file << "    QT_TRANSLATE_NOOP(\"Engine\", \"";
        for (const char character : text) {
            if (character == '"' || character == '\\') {
                m_file << '\\';
            }
            m_file << character;
        }
        m_file << "\"),\n";
    }

    [[nodiscard]] bool finish() {
        m_file << "};\n";
        m_file.close();
        return !m_file.fail();
    }

private:
    std::ofstream m_file;
    std::set<std::string> m_written;
};

void addTransformations(Texts &texts) {
    for (const TransformationCategory category : allTransformationCategories) {
        texts.add(rawValue(category));
    }
    for (const TransformationPointer &transformation : makeCatalog()) {
        texts.add(transformation->name());
        texts.add(transformation->description());
        for (const TransformationParameter &parameter : transformation->parameters()) {
            texts.add(parameter.label);
            texts.add(parameter.placeholder);
        }
    }
}

/// What a transformation says when it refuses: each is given what it cannot do with.
void addErrors(Texts &texts) {
    const std::string noUtf8 = "\xFF";
    for (const TransformationPointer &transformation : makeCatalog()) {
        ParameterMap nothing;
        ParameterMap words;
        ParameterMap wrongOrder;
        for (const TransformationParameter &parameter : transformation->parameters()) {
            words.emplace(parameter.id, "(");
            wrongOrder.emplace(parameter.id, parameter.id == "start" ? "9" : "1");
        }
        for (const ParameterMap &parameters : {nothing, words, wrongOrder}) {
            for (const std::string &text :
                 {std::string("text"), std::string("%"), std::string("f"), std::string("ff"), noUtf8}) {
                try {
                    (void)transformation->apply(text, parameters);
                } catch (const TransformationError &error) {
                    const std::string &description = error.description();
                    texts.add(std::string_view(description).substr(0, description.size() - error.message().size()));
                    // What comes after a colon is the words of the regular expressions' engine.
                    const std::size_t colon = error.message().find(": ");
                    if (error.kind() != TransformationError::Case::missingParameter) {
                        texts.add(std::string_view(error.message())
                                      .substr(0, colon == std::string::npos ? colon : colon + 2));
                    }
                }
            }
        }
    }
}

void addTools(Texts &texts) {
    const ToolsManager manager;
    for (const TextToolPointer &tool : manager.tools()) {
        texts.add(tool->name());
        texts.add(tool->description());
    }
    for (const ReadabilityBand &band : readabilityBands) {
        texts.add(band.level);
        texts.add(band.gradeLevel);
    }
    CharacterFrequency space;
    texts.add(displayedCharacter(space));
}

void addRecipes(Texts &texts) {
    for (const RecipeCategory category : allRecipeCategories) {
        texts.add(rawValue(category));
    }
    for (const Recipe &recipe : makeRecipeTemplates()) {
        texts.add(recipe.name);
    }
}

} // namespace

int main(int argc, char *argv[]) {
    if (argc != 2) {
        std::cerr << "usage: list_engine_texts FILE\n";
        return 2;
    }
    Texts texts(argv[1]);
    addTransformations(texts);
    addErrors(texts);
    addTools(texts);
    addRecipes(texts);
    return texts.finish() ? 0 : 1;
}
