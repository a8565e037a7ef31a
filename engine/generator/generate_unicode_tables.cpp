// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT

// Writes the tables of unicode_tables.h from the data of the ICU it is linked with.

#include "engine/generator/case_tables.h"
#include "engine/generator/code_point_classes.h"
#include "engine/generator/code_point_filters.h"
#include "engine/generator/code_point_pages.h"
#include "engine/generator/table_writing.h"
#include "engine/primitives/unicode_tables.h"

#include <unicode/uchar.h>

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <string>
#include <vector>

namespace lexivore::unicode_tables::generator {
namespace {

void writeCharacterTables(std::ostream &out) {
    std::vector<std::uint8_t> entries;
    entries.reserve(codePointLimit);
    for (CodePoint c = 0; c < static_cast<CodePoint>(codePointLimit); ++c) {
        entries.push_back(kernels::entryOf(kindOf(c), roleOf(c)));
    }
    const PageMaker pages([&entries](const Prefix &prefix) {
        return commonEntry(
            prefix, [&entries](CodePoint c) { return entries[static_cast<std::size_t>(c)]; },
            kernels::entryOf(kernels::Kind::other, kernels::Role::illFormed));
    });
    const std::string initializer = pages.write(out, "characterPages");
    using kernels::CodePointTables;
    static_assert(CodePointTables::wideBlockBits == blockBits);
    writeTable(
        out, "wideBlocks", "wideEntries", [&entries](CodePoint c) { return entries[static_cast<std::size_t>(c)]; },
        CodePointTables::firstWide);
    entries.resize(CodePointTables::firstWide);
    writeArray(out, "std::uint8_t", "basicEntries", entries);
    out << "extern const kernels::CodePointTables characterTables;\nconst kernels::CodePointTables characterTables = {"
        << initializer << ", basicEntries, wideBlocks, wideEntries,\n";
    writeRoleFilters(out);
    out << "};\n";
}

} // namespace
} // namespace lexivore::unicode_tables::generator

int main(int argc, char **argv) {
    using namespace lexivore::unicode_tables::generator;
    if (argc != 2) {
        fail("usage: generate_unicode_tables FILE");
    }
    std::ofstream out(argv[1], std::ios::trunc);
    out << "// Made by generate_unicode_tables from ICU " U_ICU_VERSION " (Unicode " U_UNICODE_VERSION ").\n"
        << "#include \"engine/primitives/unicode_tables.h\"\nnamespace lexivore::unicode_tables {\n";
    writeTable(out, "propertyBlocks", "properties", propertiesOf);
    out << "extern const kernels::CodePointFilters changeableFilters;\n"
           "const kernels::CodePointFilters changeableFilters = ";
    writeChangeableFilters(out);
    out << ";\n";
    writeTable(out, "traitBlocks", "traits", traitsOf);
    writeCharacterTables(out);
    writeCaseTables(out);
    out << "} // namespace lexivore::unicode_tables\n";
    out.close();
    if (!out) {
        fail(std::string("cannot write ") + argv[1]);
    }
    return 0;
}
