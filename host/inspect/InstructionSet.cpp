/*
 * InstructionSet.cpp - keywords of the set's values and number-list
 * membership.
 */
#include "InstructionSet.h"

namespace corvane::inspect {

bool inList(int number, const NumberList &list)
{
    for (const auto &range : list)
        if (range.min <= number && (range.max == 0 || number <= range.max))
            return true;
    return false;
}

const char *keywordOf(SearchMode mode)
{
    switch (mode) {
    case SearchMode::line:
        return "LINE";
    case SearchMode::keyword:
        return "KEYWORD";
    default:
        return "NONE";
    }
}

const char *keywordOf(Delimiter delimiter)
{
    switch (delimiter) {
    case Delimiter::tab:
        return "TAB";
    case Delimiter::space:
        return "SPACE";
    case Delimiter::semicolon:
        return "SEMICOLON";
    case Delimiter::comma:
        return "COMMA";
    case Delimiter::fixed:
        return "FIXED";
    default:
        return "AUTO";
    }
}

const char *keywordOf(Marker marker)
{
    switch (marker) {
    case Marker::firstNonNumericLine:
        return "FIRSTNONNUMERICLINE";
    case Marker::firstNumericLine:
        return "FIRSTNUMERICLINE";
    case Marker::keyword:
        return "KEYWORD";
    case Marker::endOfFile:
        return "EOF";
    default:
        return "LINE";
    }
}

} // namespace corvane::inspect
