/*
 * script_fuzz.cpp - the script language of corvane ui --script: any text is
 * parsed into steps or refused with a line number, never a crash; a script
 * that parses parses the same when read again from the same text.
 */
#include <string>

#include "FuzzHost.h"
#include "Script.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    std::string text = fuzzhost::text(data, size);
    auto first = corvane::cli::script::parse(text, "fuzz.txt");
    auto second = corvane::cli::script::parse(text, "fuzz.txt");
    if (first.has_value() != second.has_value())
        fuzzhost::broken("the same script parsed once and failed once");
    if (!first && first.error() != second.error())
        fuzzhost::broken("the same script failed with two reasons");
    return 0;
}
