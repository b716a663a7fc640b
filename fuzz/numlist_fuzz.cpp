/*
 * numlist_fuzz.cpp - a number list read as the filter dialog reads it,
 * printed, and read again: the same list.
 */
#include <cstring>
#include <string>

#include "FuzzHost.h"
#include "NumList.h"

namespace tw = corvane::cvnutildataio;

namespace {

bool sameList(const tw::TW_NumList_s &a, const tw::TW_NumList_s &b)
{
    if (a.NumRanges != b.NumRanges)
        return false;
    for (int32_t r = 0; r < a.NumRanges; r++)
        if (a.Ranges[r].Min != b.Ranges[r].Min || a.Ranges[r].Max != b.Ranges[r].Max)
            return false;
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    fuzzhost::ui();
    std::string input = fuzzhost::text(data, size);
    for (bool bracket : {false, true}) {
        tw::TW_NumList_s first = {};
        const char *cursor = input.c_str();
        char *message = nullptr;
        bool read = tw::ReadNumList(&cursor, &first, bracket, &message);
        CvnUtilStringDealloc(&message);
        if (!read)
            continue;
        std::string printed = tw::Export_GetNumList(&first);
        if (bracket)
            printed = "[" + printed + "]";
        tw::TW_NumList_s second = {};
        cursor = printed.c_str();
        if (!tw::ReadNumList(&cursor, &second, bracket, &message))
            fuzzhost::broken("the printed list \"" + printed + "\" does not read back");
        CvnUtilStringDealloc(&message);
        if (!sameList(first, second))
            fuzzhost::broken("the printed list \"" + printed + "\" reads back different");
    }
    return 0;
}
