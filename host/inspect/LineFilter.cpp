/*
 * LineFilter.cpp - the global filters and line classes on the host.
 */
#include "LineFilter.h"

#include <algorithm>

namespace corvane::inspect {
namespace {

char upperAscii(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool startsWithNoCase(std::string_view text, std::string_view prefix)
{
    if (text.size() < prefix.size())
        return false;
    for (size_t i = 0; i < prefix.size(); ++i)
        if (upperAscii(text[i]) != upperAscii(prefix[i]))
            return false;
    return true;
}

/* TrimString, unless the marker is only blanks and tabs. */
std::string trimmedMarker(const std::string &marker)
{
    if (marker.find_first_not_of(" \t") == std::string::npos)
        return marker;
    size_t first = marker.find_first_not_of(" \t");
    size_t last = marker.find_last_not_of(" \t");
    return marker.substr(first, last - first + 1);
}

} // namespace

LineFilters::LineFilters(const InstructionSet &set)
    : comment(trimmedMarker(set.comment)), skip(trimmedMarker(set.skipKeyword)),
      columns(set.columns)
{
    useComment = set.useComment && !comment.empty() && comment.size() <= 256;
    useSkip = !skip.empty();
}

FilteredLine LineFilters::apply(std::string_view line) const
{
    FilteredLine out;
    for (size_t i = 0; i < line.size(); ++i) {
        int column = static_cast<int>(i) + 1;
        std::string_view rest = line.substr(i);
        if (useComment && startsWithNoCase(rest, comment))
            break;
        if (columns.empty() || !inList(column, columns)) {
            out.text += line[i];
            out.columns.push_back(column);
        }
        if (useSkip && startsWithNoCase(rest, skip)) {
            out.text.clear();
            out.columns.clear();
            break;
        }
    }
    return out;
}

bool isBlankLine(std::string_view line)
{
    return std::none_of(line.begin(), line.end(),
                        [](char c) { return isLetter(c) || isDigit(c); });
}

bool isNumericLine(std::string_view line)
{
    bool digit = false;
    for (char c : line) {
        if (isLetter(c) && upperAscii(c) != 'E')
            return false;
        digit = digit || isDigit(c);
    }
    return digit;
}

bool containsNoCase(std::string_view text, std::string_view pattern)
{
    if (pattern.empty())
        return true;
    for (size_t i = 0; i + pattern.size() <= text.size(); ++i)
        if (startsWithNoCase(text.substr(i), pattern))
            return true;
    return false;
}

} // namespace corvane::inspect
