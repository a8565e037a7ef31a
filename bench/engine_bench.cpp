// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT

// The engine's side of the benchmark, a program that bench/engine.py talks to:
//   engine_bench make FOLDER BYTES    writes the corpora A, B and C and what is decoded from them
//   engine_bench serve FOLDER         answers each line "OPERATION CORPUS MILLISECONDS [KEY VALUE]...", with tabs
//                                     between the fields, with the seconds of the processor that one run took on
//                                     average over that time, after a run that warms the caches
// OPERATION is an id of the catalog, or one of the others in `makeOperations`.

#include "bench/corpora.h"
#include "engine/catalog.h"
#include "engine/primitives/characters.h"
#include "tools/character_frequency_tool.h"
#include "tools/statistics_tool.h"

#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fstream>
#include <functional>
#include <iostream>
#include <iterator>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace lexivore::bench {
namespace {

using Operation = std::function<std::size_t(std::string_view, const ParameterMap &)>;

/// Keeps the compiler from leaving out work whose result nobody reads.
volatile std::size_t sink;

double processorSeconds() {
    std::timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

std::size_t copy(std::string_view text, const ParameterMap &) {
    static std::vector<char> warm;
    warm.resize(std::max(warm.size(), text.size()));
    std::memcpy(warm.data(), text.data(), text.size());
    return static_cast<unsigned char>(warm[text.size() / 2]);
}

std::size_t stack(std::string_view text, const ParameterMap &) {
    static const Catalog catalog = makeCatalog();
    struct Step {
        const char *id;
        ParameterMap parameters;
    };
    static const Step steps[] = {
        {"trim-lines", {}},         {"remove-whitespace", {}},
        {"remove-empty-lines", {}}, {"replace-text", {{"find", "the"}, {"replace", "a"}}},
        {"lowercase", {}},          {"remove-punctuation", {}},
        {"sort-lines", {}},         {"remove-duplicates", {}},
        {"number-lines", {}},       {"add-suffix", {{"suffix", ";"}}},
    };
    TextBuffer current;
    for (const Step &step : steps) {
        current = findTransformation(catalog, step.id)->apply(current.empty() ? text : current.view(), step.parameters);
    }
    return current.size();
}

std::map<std::string, Operation> makeOperations() {
    std::map<std::string, Operation> operations = {
        {"memcpy", copy},
        {"ten-step-stack", stack},
        {"count-characters", [](std::string_view text, const ParameterMap &) { return characterCount(text); }},
        {"statistics", [](std::string_view text,
                          const ParameterMap &) { return static_cast<std::size_t>(textStatistics(text).characters); }},
        {"character-frequency",
         [](std::string_view text, const ParameterMap &) { return characterFrequencies(text).size(); }},
    };
    for (const TransformationPointer &transformation : makeCatalog()) {
        operations.emplace(transformation->id(),
                           [transformation](std::string_view text, const ParameterMap &parameters) {
                               return transformation->apply(text, parameters).size();
                           });
    }
    return operations;
}

std::string readFile(const std::string &path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        std::cerr << "engine_bench: cannot read " << path << '\n';
        std::exit(1);
    }
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void makeCorpora(const std::string &folder, std::size_t bytes) {
    const std::map<std::string, std::string> corpora = {
        {"A", englishCorpus(bytes)}, {"B", multilingualCorpus(bytes)}, {"C", shortLinesCorpus(bytes)}};
    const Catalog catalog = makeCatalog();
    const auto write = [&folder](const std::string &name, std::string_view text) {
        std::ofstream file(folder + "/" + name, std::ios::binary);
        file << text;
        if (!file.flush()) {
            std::cerr << "engine_bench: cannot write " << name << " in " << folder << '\n';
            std::exit(1);
        }
    };
    for (const auto &[name, text] : corpora) {
        write(name, text);
        for (const char *coding : {"base64", "url", "html", "hex"}) {
            const auto encoder = findTransformation(catalog, std::string(coding) + "-encode");
            const TextBuffer encoded = encoder->apply(text, {});
            write(name + "." + coding, encoded.view());
        }
    }
}

void serve(const std::string &folder) {
    const std::map<std::string, Operation> operations = makeOperations();
    std::map<std::string, std::string> corpora;
    for (std::string line; std::getline(std::cin, line);) {
        std::vector<std::string> fields;
        std::istringstream stream(line);
        for (std::string field; std::getline(stream, field, '\t');) {
            fields.push_back(field);
        }
        ParameterMap parameters;
        for (std::size_t i = 3; i < fields.size(); i += 2) {
            parameters[fields[i]] = i + 1 < fields.size() ? fields[i + 1] : "";
        }
        if (corpora.find(fields.at(1)) == corpora.end()) {
            corpora[fields[1]] = readFile(folder + "/" + fields[1]);
        }
        const std::string &text = corpora[fields[1]];
        const Operation &operation = operations.at(fields[0]);
        sink = operation(text, parameters);
        const double begin = processorSeconds();
        const double limit = begin + std::stod(fields.at(2)) / 1000;
        std::size_t runs = 0;
        do {
            sink = operation(text, parameters);
            ++runs;
        } while (processorSeconds() < limit);
        std::cout << (processorSeconds() - begin) / static_cast<double>(runs) << std::endl;
    }
}

} // namespace
} // namespace lexivore::bench

int main(int argc, char **argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    if (arguments.size() == 3 && arguments[0] == "make") {
        lexivore::bench::makeCorpora(arguments[1], std::stoul(arguments[2]));
    } else if (arguments.size() == 2 && arguments[0] == "serve") {
        lexivore::bench::serve(arguments[1]);
    } else {
        std::cerr << "usage: engine_bench make FOLDER BYTES | engine_bench serve FOLDER\n";
        return 2;
    }
    return 0;
}
