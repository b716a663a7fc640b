/*
 * instructions_fuzz.cpp - instruction text read, printed in both forms and
 * read again: the second print must equal the third, in each form (the
 * first read may differ from the second only where the reader says so:
 * USEBLANKCELLVALUE reads back TRUE).
 */
#include <cstring>
#include <string>

#include "FuzzHost.h"
#include "Instructions.h"
#include "Reader.h"
#include "Writer.h"

namespace tw = corvane::cvnutildataio;

namespace {

/* The record read from text, printed; empty when no record could be made. */
std::string readAndPrint(const std::string &text, bool compact)
{
    tw::TW_ConfigInstructions_s *record = tw::ImportInstructionsAlloc();
    if (record == nullptr)
        return {};
    tw::ScanInstructionSet("fuzz.twc", text.c_str(), record);
    char *printed = nullptr;
    tw::PrintInstructionSet(record, compact, &printed);
    std::string result = printed != nullptr ? printed : "";
    CvnUtilStringDealloc(&printed);
    tw::ImportInstructionsDealloc(&record);
    return result;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    fuzzhost::ui();
    std::string input = fuzzhost::text(data, size);
    input.resize(std::strlen(input.c_str())); /* the reader stops at a NUL */
    for (bool compact : {false, true}) {
        std::string first = readAndPrint(input, compact);
        std::string second = readAndPrint(first, compact);
        std::string third = readAndPrint(second, compact);
        if (second != third)
            fuzzhost::broken(std::string(compact ? "compact" : "file") +
                             " print changed on reading it back:\n" + second + "\n---\n" + third);
    }
    return 0;
}
