/*
 * instructions_fuzz.cpp - instruction text read, printed in both forms and
 * read again: the second print must equal the third, in each form (the
 * first read may differ from the second only where the reader says so:
 * USEBLANKCELLVALUE reads back TRUE). Texts are written with their double
 * quotes escaped and nothing else, and variable names joined by commas
 * without any escape: a backslash in a text, or a double quote in a name,
 * does not read back as it was. Such records are not held to the property.
 */
#include <cstring>
#include <string>

#include "FuzzHost.h"
#include "Instructions.h"
#include "Reader.h"
#include "Writer.h"

namespace tw = corvane::cvnutildataio;

namespace {

/* True when the record holds a text that does not print back (above). */
bool unprintable(const tw::TW_ConfigInstructions_s *record)
{
    const char *texts[] = {record->FileExt,        record->FileDesc,
                           record->TitleName,      record->TitleKeyword,
                           record->StartId.Keyword, record->EndId.Keyword,
                           record->ZoneKeyword,    record->GlobalFilters.Comment,
                           record->GlobalFilters.Keyword, record->ConfigFileName};
    for (const char *text : texts)
        if (std::strchr(text, '\\') != nullptr)
            return true;
    const tw::TW_Variables_s &vars = record->Variables;
    for (int32_t i = 0; vars.Names != nullptr && i < vars.NumNames; i++)
        if (std::strpbrk(vars.Names[i].Name, "\"\\") != nullptr)
            return true;
    return false;
}

/* The record read from text, printed; empty when no record could be made.
   skip: set when the record holds a text that does not print back. */
std::string readAndPrint(const std::string &text, bool compact, bool *skip = nullptr)
{
    tw::TW_ConfigInstructions_s *record = tw::ImportInstructionsAlloc();
    if (record == nullptr)
        return {};
    tw::ScanInstructionSet("fuzz.twc", text.c_str(), record);
    if (skip != nullptr)
        *skip = unprintable(record);
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
        bool skip = false;
        std::string first = readAndPrint(input, compact, &skip);
        if (skip)
            return 0;
        std::string second = readAndPrint(first, compact, &skip);
        if (skip)
            return 0;
        std::string third = readAndPrint(second, compact);
        if (second != third)
            fuzzhost::broken(std::string(compact ? "compact" : "file") +
                             " print changed on reading it back:\n" + second + "\n---\n" + third);
    }
    return 0;
}
