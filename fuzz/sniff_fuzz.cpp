/*
 * sniff_fuzz.cpp - sniff on any data file, then check of the file under the
 * proposed set. The input is the data file, written to a scratch file.
 * Whatever the input, sniff ends with a proposal or a reason; a proposal's
 * text reads back to the same set, and check of the file under it runs to
 * a report whose places lie on the file's lines.
 */
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <string>

#include "Check.h"
#include "FuzzHost.h"
#include "InstructionReader.h"
#include "Sniff.h"

namespace {

const std::string &dataPath()
{
    static const std::string path =
        "/tmp/ordalis_sniff_fuzz_" + std::to_string(::getpid()) + ".txt";
    return path;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    std::string file = fuzzhost::text(data, size);
    if (std::FILE *out = std::fopen(dataPath().c_str(), "wb")) {
        std::fwrite(file.data(), 1, file.size(), out);
        std::fclose(out);
    }
    auto proposal = corvane::inspect::sniffFile(dataPath());
    if (!proposal) {
        if (proposal.error().empty())
            fuzzhost::broken("sniff failed without a reason");
        return 0;
    }
    auto read = corvane::inspect::readInstructionSet(proposal->text);
    if (!read)
        fuzzhost::broken("the proposed set does not read: " + read.error());
    if (!(*read == proposal->set))
        fuzzhost::broken("the proposed set reads back otherwise");
    auto report = corvane::inspect::checkFile(dataPath(), "data", proposal->set);
    if (!report)
        fuzzhost::broken("check failed: " + report.error());
    long lines = std::count(file.begin(), file.end(), '\n') + 1;
    for (const auto &kind : report->kinds)
        for (const auto &place : kind.places)
            if (place.line < 1 || place.line > lines)
                fuzzhost::broken("a place off the file's lines");
    return 0;
}
