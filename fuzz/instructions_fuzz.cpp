/*
 * instructions_fuzz.cpp - instruction text read, printed in both forms and
 * read again: the second print must equal the third, in each form (the
 * first read may differ from the second only where the reader says so:
 * USEBLANKCELLVALUE reads back TRUE). Variable names are written joined by
 * commas without escapes, so a name holding a double quote ends the NAMES
 * string early when read back: such records are not held to the property.
 */
#include <cstring>
#include <string>

#include "FuzzHost.h"
#include "Instructions.h"
#include "Reader.h"
#include "Writer.h"

namespace tw = corvane::cvnutildataio;

namespace {

/* True when a variable name holds a double quote. */
bool nameHoldsQuote(const tw::TW_ConfigInstructions_s *record)
{
    const tw::TW_Variables_s &vars = record->Variables;
    for (int32_t i = 0; vars.Names != nullptr && i < vars.NumNames; i++)
        if (std::strchr(vars.Names[i].Name, '"') != nullptr)
            return true;
    return false;
}

/* The record read from text, printed; empty when no record could be made
   or when it holds a name that does not print back (see above). */
std::string readAndPrint(const std::string &text, bool compact, bool *unprintable = nullptr)
{
    tw::TW_ConfigInstructions_s *record = tw::ImportInstructionsAlloc();
    if (record == nullptr)
        return {};
    tw::ScanInstructionSet("fuzz.twc", text.c_str(), record);
    if (unprintable != nullptr)
        *unprintable = nameHoldsQuote(record);
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
        bool unprintable = false;
        std::string first = readAndPrint(input, compact, &unprintable);
        if (unprintable)
            return 0;
        std::string second = readAndPrint(first, compact, &unprintable);
        if (unprintable)
            return 0;
        std::string third = readAndPrint(second, compact);
        if (second != third)
            fuzzhost::broken(std::string(compact ? "compact" : "file") +
                             " print changed on reading it back:\n" + second + "\n---\n" + third);
    }
    return 0;
}
