// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
//
// Runs a fuzz target over the files of folders: no fuzzer, any compiler. A finding ends the program.
#include "fuzz/input.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

int main(int argumentCount, char **arguments) {
    std::vector<std::filesystem::path> files;
    for (int number = 1; number < argumentCount; ++number) {
        for (const auto &entry : std::filesystem::recursive_directory_iterator(arguments[number])) {
            if (entry.is_regular_file()) {
                files.push_back(entry.path());
            }
        }
    }
    std::sort(files.begin(), files.end());
    for (const std::filesystem::path &path : files) {
        std::ifstream file(path, std::ios::binary);
        const std::string bytes(std::istreambuf_iterator<char>(file), {});
        std::cout << path.filename().string() << std::endl; // the last one is the one that failed
        // A block of its own, so that AddressSanitizer sees a read behind the end.
        const std::vector<std::uint8_t> input(bytes.begin(), bytes.end());
        LLVMFuzzerTestOneInput(input.data(), input.size());
    }
    if (files.empty()) {
        std::cerr << "no files to run\n";
        return 1;
    }
    std::cout << files.size() << " inputs, nothing found" << std::endl;
    return 0;
}
