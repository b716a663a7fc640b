/*
 * SniffMissing.cpp - missing values in the data rows (NaN, ---, MM, empty
 * cells, absent last values) and how the set keeps every other value in
 * its place: cells keep their places by themselves; a row short of its
 * last values gets the blank value; a row with a missing value between
 * values is cut at it (its marker made the comment prefix) or left out.
 * Also a file of one variable, which needs its size given.
 */
#include <algorithm>
#include <map>
#include <set>

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "LineCells.h"
#include "LineFilter.h"
#include "LoaderNumber.h"
#include "SniffPlan.h"

namespace corvane::inspect {
namespace {

bool missingField(const Field *field)
{
    return field == nullptr || field->kind == FieldKind::empty ||
           field->kind == FieldKind::unreadable || field->kind == FieldKind::decimalComma;
}

/* The values of a row in cell mode: a cell each, none after a delimiter
   that ends the line. */
int rowCells(const SniffLine &line, char delimiter)
{
    int cells = static_cast<int>(line.fields.size());
    return !line.view.empty() && line.view.back() == delimiter ? cells - 1 : cells;
}

struct Inside {
    std::vector<int> lines;        /* rows with a value missing between values */
    std::set<std::string> markers; /* their missing cells' texts ("" when empty or absent) */
    std::map<int, size_t> firstMarker; /* row line -> offset of its first missing cell */
};

Inside missingInside(const SniffPlan &plan)
{
    Inside inside;
    for (size_t row : plan.rows) {
        const SniffLine &line = plan.line(row);
        std::optional<size_t> firstMissing;
        bool betweenValues = false;
        for (size_t c : plan.variables) {
            const Field *field = c < line.fields.size() ? &line.fields[c] : nullptr;
            if (missingField(field)) {
                if (!firstMissing)
                    firstMissing = c;
            } else if (firstMissing) {
                betweenValues = true;
            }
        }
        if (!betweenValues)
            continue;
        inside.lines.push_back(line.number);
        for (size_t c : plan.variables) {
            const Field *field = c < line.fields.size() ? &line.fields[c] : nullptr;
            if (missingField(field))
                inside.markers.insert(field ? field->text : std::string());
        }
        inside.firstMarker[line.number] = line.fields[*firstMissing].offset;
    }
    return inside;
}

/* Whether marker, made the comment prefix, cuts each data row right at its
   first missing value (or after its last value) and touches no title or
   names line. */
bool markerCutsCleanly(const SniffPlan &plan, const std::string &marker, const Inside &inside)
{
    InstructionSet trial = plan.set;
    trial.comment = marker;
    trial.useComment = true;
    LineFilters filters(trial);
    for (size_t row : plan.rows) {
        const SniffLine &line = plan.line(row);
        auto first = inside.firstMarker.find(line.number);
        int expected = 0;
        for (const Field &field : line.fields)
            if (loaderReads(field.kind) &&
                (first == inside.firstMarker.end() || field.offset < first->second))
                ++expected;
        DataCut cut = cutDataLine(filters.apply(line.raw).text, trial);
        int read = static_cast<int>(std::count_if(cut.cells.begin(), cut.cells.end(),
                                                  [](const Cell &c) { return c.read(); }));
        if (read != expected)
            return false;
    }
    const InstructionSet &set = plan.set;
    for (size_t i = 0; i < plan.firstRow(); ++i) {
        int number = plan.line(i).number;
        bool read = (set.titleSearch == SearchMode::line && set.titleLine == number) ||
                    (set.namesSearch == SearchMode::line && set.namesStartLine == number);
        if (read && containsNoCase(plan.line(i).raw, marker))
            return false;
    }
    return true;
}

/* Whether the comment prefix may go: every comment line stands before the
   data and is no numeric line, so the loader passes over it anyway. */
bool commentsNotNeeded(const SniffPlan &plan)
{
    for (size_t i = 0; i < plan.layout.lines.size(); ++i) {
        const SniffLine &line = plan.line(i);
        if (line.cls == LineClass::comment && (i > plan.firstRow() || isNumericLine(line.raw)))
            return false;
    }
    return true;
}

/* Whether leaving out the rows would leave no row in the data, or none in
   a zone. */
bool leavesBlockEmpty(const SniffPlan &plan, const Inside &inside)
{
    std::set<int> out(inside.lines.begin(), inside.lines.end());
    auto emptied = [&](const std::vector<size_t> &rows) {
        return std::all_of(rows.begin(), rows.end(),
                           [&](size_t row) { return out.contains(plan.line(row).number); });
    };
    if (emptied(plan.rows))
        return true;
    if (plan.layout.zoneKeyword.empty())
        return false;
    for (size_t b = plan.layout.firstBlock; b <= plan.layout.lastBlock; ++b)
        if (emptied(plan.layout.blocks[b].rows))
            return true;
    return false;
}

NumberList rangesOf(const std::vector<int> &lines)
{
    NumberList ranges;
    for (int line : lines) {
        if (!ranges.empty() && ranges.back().max + 1 == line)
            ranges.back().max = line;
        else
            ranges.push_back({line, line});
    }
    return ranges;
}

std::string markerList(const std::set<std::string> &markers)
{
    std::vector<std::string> shown;
    for (const std::string &marker : markers)
        shown.push_back(marker.empty() ? std::string("empty cells")
                                       : fmt::format("\"{}\"", marker));
    return fmt::format("{}", fmt::join(shown, ", "));
}

/* Missing values between values in token mode: leave such rows out (when
   the row filter can list them), else cut them at their marker. */
void keepPlaces(SniffPlan &plan, const Inside &inside)
{
    std::string rows = rowsText(inside.lines);
    const char *hold = inside.lines.size() == 1 ? "holds" : "hold";
    NumberList ranges = rangesOf(inside.lines);
    if (ranges.size() <= 32 && !leavesBlockEmpty(plan, inside)) {
        plan.set.rows = ranges;
        plan.unsure(fmt::format("{} {} missing values ({}) between values, after which the "
                                "values would move left: left out (ROWS)",
                                rows, hold, markerList(inside.markers)));
        return;
    }
    const std::string &marker = *inside.markers.begin();
    if (inside.markers.size() == 1 && !marker.empty() && marker.size() <= 32 &&
        commentsNotNeeded(plan) &&
        markerCutsCleanly(plan, marker, inside)) {
        plan.set.comment = marker;
        plan.set.useComment = true;
        plan.cutAtMarker = true;
        plan.unsure(fmt::format("{} {} \"{}\" between values, after which the values would "
                                "move left: each such row is cut at its first \"{}\" (COMMENT), "
                                "and its variables from there on get the blank value",
                                rows, hold, marker, marker));
        return;
    }
    plan.unsure(fmt::format("{} {} missing values ({}) between values: the values after them "
                            "move left",
                            rows, hold, markerList(inside.markers)));
}

/* A value that no data row holds: -999, -9999... */
double blankValue(const SniffPlan &plan)
{
    std::set<double> values;
    for (size_t row : plan.rows)
        for (const Field &field : plan.line(row).fields)
            if (field.kind == FieldKind::number)
                if (auto value = readLoaderNumber(field.text))
                    values.insert(*value);
    double blank = -999;
    while (values.contains(blank))
        blank = blank * 10 - 9;
    return blank;
}

/* One variable: the loader sizes such a file only when told its size. */
void oneVariable(SniffPlan &plan)
{
    plan.set.autoDimension = false;
    plan.set.imax = static_cast<int>(plan.rows.size());
    if (plan.sample.firstSkipped != 0)
        plan.unsure("one variable: its number of points is that of the rows looked at; the "
                    "rows not looked at are not counted");
}

/* A number the loader cannot read: in quotes or with a decimal comma. */
bool unreadableNumber(const Field &field)
{
    std::string_view text = field.text;
    if (field.kind == FieldKind::decimalComma)
        return true;
    if (text.size() < 3 || (text.front() != '"' && text.front() != '\'') || text.back() != text.front())
        return false;
    std::string_view inside = text.substr(1, text.size() - 2);
    return readLoaderNumber(inside) || isDecimalCommaNumber(inside);
}

/* Numbers in the number columns that the loader cannot read, which get
   the blank value (cells) or count as missing (tokens). */
void unreadableNumbers(SniffPlan &plan)
{
    std::vector<int> rows;
    std::string sample;
    for (size_t row : plan.rows) {
        const SniffLine &line = plan.line(row);
        for (size_t c : plan.variables) {
            if (c >= line.fields.size() || plan.columns[c].kind != Column::number ||
                !unreadableNumber(line.fields[c]))
                continue;
            if (sample.empty())
                sample = line.fields[c].text;
            rows.push_back(line.number);
            break;
        }
    }
    if (!rows.empty())
        plan.unsure(fmt::format("{} {} the loader cannot read ({}): {} as missing",
                                rowsText(rows), rows.size() == 1 ? "holds a number" : "hold numbers",
                                sample, rows.size() == 1 ? "it counts" : "they count"));
}

} // namespace

void findMissing(SniffPlan &plan)
{
    if (!plan.set.autoDimension)
        return;
    if (plan.variables.size() == 1) {
        oneVariable(plan);
        return;
    }
    unreadableNumbers(plan);
    std::vector<int> shortRows, longRows;
    if (!plan.blankCells) {
        Inside inside = missingInside(plan);
        if (!inside.lines.empty())
            keepPlaces(plan, inside);
    }
    char delimiter = plan.set.dataDelimiter == Delimiter::semicolon ? ';' : ',';
    LineFilters filters(plan.set);
    for (size_t row : plan.rows) {
        const SniffLine &line = plan.line(row);
        if (inList(line.number, plan.set.rows))
            continue;
        int values = 0;
        if (plan.blankCells) {
            values = rowCells(line, delimiter);
            if (values + 1 == static_cast<int>(line.fields.size()))
                ++values; /* an empty last cell, which gets the blank value */
        } else {
            DataCut cut = cutDataLine(filters.apply(line.raw).text, plan.set);
            values = static_cast<int>(std::count_if(cut.cells.begin(), cut.cells.end(),
                                                    [](const Cell &c) { return c.read(); }));
        }
        if (values < static_cast<int>(plan.variables.size()))
            shortRows.push_back(line.number);
        else if (values > static_cast<int>(plan.variables.size()))
            longRows.push_back(line.number);
    }
    if (!plan.blankCells && shortRows.empty() && longRows.empty())
        return;
    plan.set.useBlankCellValue = true;
    plan.set.blankCellValue = blankValue(plan);
    std::string blank = numberText(plan.set.blankCellValue);
    if (plan.blankCells)
        plan.note(fmt::format("cells that are empty or hold no number get the blank value {}",
                              blank));
    if (!shortRows.empty() && !plan.cutAtMarker)
        plan.note(fmt::format("{} {} values at the end: those variables get the blank value {}",
                              rowsText(shortRows), shortRows.size() == 1 ? "lacks" : "lack",
                              blank));
    if (plan.cutAtMarker)
        plan.note(fmt::format("the blank value is {}", blank));
    if (!longRows.empty())
        plan.unsure(fmt::format("{} {} more values than there are variables: the values after "
                                "the last variable are not loaded",
                                rowsText(longRows), longRows.size() == 1 ? "holds" : "hold"));
}

} // namespace corvane::inspect
