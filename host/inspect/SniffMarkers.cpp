/*
 * SniffMarkers.cpp - where the data section starts and ends for the
 * loader: the first numeric line when that is the first data row, else a
 * keyword that only the line before the data holds, else the line number;
 * the end of the file when no later line gives values, else the first
 * non-numeric line, a keyword of the first line after the data, or that
 * line's number (an end line is not read itself).
 */
#include <algorithm>

#include "LineCells.h"
#include "LineFilter.h"
#include "SniffPlan.h"

namespace corvane::inspect {
namespace {

bool hasLetter(std::string_view text)
{
    return std::any_of(text.begin(), text.end(), [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    });
}

/* The lines as the loader's data steps see them. */
struct LoaderLines {
    std::vector<std::string> views; /* after the set's filters */
    std::vector<bool> reaches;      /* not blank, not left out, not the title or names */
};

LoaderLines loaderLines(const SniffPlan &plan)
{
    const InstructionSet &set = plan.set;
    LineFilters filters(set);
    LoaderLines out;
    for (size_t i = 0; i < plan.layout.lines.size(); ++i) {
        const SniffLine &line = plan.line(i);
        out.views.push_back(filters.any() ? filters.apply(line.raw).text : line.raw);
        bool title = set.titleSearch == SearchMode::line && set.titleLine == line.number;
        bool names = set.namesSearch == SearchMode::line && line.number >= set.namesStartLine &&
                     line.number <= set.namesEndLine;
        out.reaches.push_back(!isBlankLine(out.views.back()) && !inList(line.number, set.rows) &&
                              !title && !names);
    }
    return out;
}

/* A word of at least three characters with a letter that none of the
   lines from..to (that the data steps see) holds. */
bool distinctWord(const std::string &word, const LoaderLines &lines, size_t from, size_t to)
{
    if (word.size() < 3 || word.size() > 200 || !hasLetter(word))
        return false;
    for (size_t i = from; i < to && i < lines.views.size(); ++i)
        if (lines.reaches[i] && containsNoCase(lines.views[i], word))
            return false;
    return true;
}

void findStart(SniffPlan &plan, const LoaderLines &lines)
{
    InstructionSet &set = plan.set;
    size_t first = plan.firstRow();
    size_t numeric = 0;
    while (numeric < lines.views.size() &&
           !(lines.reaches[numeric] && isNumericLine(lines.views[numeric])))
        ++numeric;
    if (numeric == first) {
        set.start = {Marker::firstNumericLine, "", 1};
        return;
    }
    size_t before = first;
    while (before > 0 && !lines.reaches[before - 1])
        --before;
    if (before > 0 && plan.line(before - 1).cls != LineClass::data &&
        plan.layout.zoneKeyword.empty()) {
        std::string word = firstWord(lines.views[before - 1]);
        if (distinctWord(word, lines, 0, before - 1)) {
            set.start = {Marker::keyword, word, 1};
            return;
        }
    }
    set.start = {Marker::line, "", plan.line(first).number};
}

void findEnd(SniffPlan &plan, const LoaderLines &lines)
{
    InstructionSet &set = plan.set;
    bool zones = set.autoDimension && set.multipleZones;
    auto zoneLine = [&](size_t i) { return zones && containsNoCase(lines.views[i], set.zoneKeyword); };
    std::optional<size_t> footer;
    bool values = false;
    for (size_t i = plan.lastRow() + 1; i < lines.views.size(); ++i) {
        if (!lines.reaches[i] || zoneLine(i))
            continue;
        if (!footer)
            footer = i;
        DataCut cut = cutDataLine(lines.views[i], set);
        values = values || cut.blankCellMode ||
                 std::any_of(cut.cells.begin(), cut.cells.end(),
                             [](const Cell &c) { return c.read(); });
    }
    if (!values) {
        set.end = {Marker::endOfFile, "", 1};
        return;
    }
    bool allNumeric = true;
    for (size_t i = plan.firstRow(); i <= plan.lastRow(); ++i)
        if (lines.reaches[i] && !zoneLine(i) && !isNumericLine(lines.views[i]))
            allNumeric = false;
    if (allNumeric && !isNumericLine(lines.views[*footer])) {
        set.end = {Marker::firstNonNumericLine, "", 1};
        return;
    }
    std::string word = firstWord(lines.views[*footer]);
    if (distinctWord(word, lines, plan.firstRow(), plan.lastRow() + 1)) {
        set.end = {Marker::keyword, word, 1};
        return;
    }
    set.end = {Marker::line, "", plan.line(*footer).number};
}

} // namespace

void findDataMarkers(SniffPlan &plan)
{
    if (!plan.layout.zoneKeyword.empty() && plan.set.autoDimension) {
        plan.set.multipleZones = true;
        plan.set.zoneKeyword = plan.layout.zoneKeyword;
    }
    LoaderLines lines = loaderLines(plan);
    findStart(plan, lines);
    findEnd(plan, lines);
}

} // namespace corvane::inspect
