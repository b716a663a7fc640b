/*
 * LineFilter.h - a data-file line as the loader's scan sees it: the
 * global filters applied (comment cut, skipped lines, cut character
 * columns), and whether the line is blank or numeric.
 */
#ifndef CORVANE_INSPECT_LINEFILTER_H
#define CORVANE_INSPECT_LINEFILTER_H

#include <string>
#include <string_view>
#include <vector>

#include "InstructionSet.h"

namespace corvane::inspect {

/* A filtered line and, for each of its characters, the 1-based column of
   that character in the file's line. */
struct FilteredLine {
    std::string text;
    std::vector<int> columns;
    int columnOf(size_t index) const
    {
        return index < columns.size() ? columns[index] : static_cast<int>(columns.size()) + 1;
    }
};

/* The comment and line-skip markers as the scan uses them: trimmed of
   blanks and tabs unless they are nothing else. */
struct LineFilters {
    explicit LineFilters(const InstructionSet &set);
    bool any() const { return useComment || useSkip || !columns.empty(); }
    FilteredLine apply(std::string_view line) const;

    bool useComment = false;
    std::string comment;
    bool useSkip = false;
    std::string skip;
    NumberList columns;
};

/* No letter or digit (the empty line included). */
bool isBlankLine(std::string_view line);
/* At least one digit and no letter other than e or E. */
bool isNumericLine(std::string_view line);
/* Case-insensitive: pattern occurs in text (an empty pattern always). */
bool containsNoCase(std::string_view text, std::string_view pattern);

} // namespace corvane::inspect

#endif
