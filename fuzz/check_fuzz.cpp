/*
 * check_fuzz.cpp - check of any data file under any instruction set, on the
 * host alone. The input holds the set's text, a NUL byte, then the data
 * file (written to a scratch file). Whatever the input, a set that reads
 * gives a report whose places lie on the file's lines, with a column only
 * within the line.
 */
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <string>

#include "Check.h"
#include "FuzzHost.h"
#include "InstructionReader.h"

namespace {

const std::string &dataPath()
{
    static const std::string path =
        "/tmp/ordalis_check_fuzz_" + std::to_string(::getpid()) + ".txt";
    return path;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    std::string input = fuzzhost::text(data, size);
    size_t split = input.find('\0');
    if (split == std::string::npos)
        return 0;
    std::string file = input.substr(split + 1);
    if (std::FILE *out = std::fopen(dataPath().c_str(), "wb")) {
        std::fwrite(file.data(), 1, file.size(), out);
        std::fclose(out);
    }
    auto set = corvane::inspect::readInstructionSet(input.substr(0, split));
    if (!set)
        return 0;
    auto report = corvane::inspect::checkFile(dataPath(), "data", *set);
    if (!report)
        fuzzhost::broken("check failed: " + report.error());
    long lines = std::count(file.begin(), file.end(), '\n') + 1;
    long longest = static_cast<long>(file.size()) + 1;
    for (const auto &kind : report->kinds)
        for (const auto &place : kind.places)
            if (place.line < 1 || place.line > lines || place.column < 0 || place.column > longest)
                fuzzhost::broken("a place off the file");
    return 0;
}
