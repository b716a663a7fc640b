/*
 * SniffExplain.cpp - sniff's explanation: the role of each range of lines
 * ("lines 1-5   header text (kept as text)"), then what it noted about the
 * columns, the choices it made and those it was unsure of.
 */
#include <algorithm>
#include <map>

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "LineFilter.h"
#include "LoaderNumber.h"
#include "SniffPlan.h"

namespace corvane::inspect {
namespace {

std::string dataText(const SniffPlan &plan)
{
    const InstructionSet &set = plan.set;
    size_t variables = plan.variables.size();
    std::string values = fmt::format("{} value{} each", variables, variables == 1 ? "" : "s");
    if (set.autoDimension && set.multipleZones) {
        size_t zones = plan.layout.lastBlock - plan.layout.firstBlock + 1;
        return fmt::format("data, {}, in {} zones each after a line holding \"{}\"", values, zones,
                           set.zoneKeyword);
    }
    if (set.autoDimension)
        return "data, " + values;
    if (set.multipleZones) {
        long long zones = (static_cast<long long>(plan.rows.size()) + set.imax - 1) / set.imax;
        return fmt::format("data, {}, in {} zones of {} points", values, zones, set.imax);
    }
    if (variables == 1 && set.jmax == 1 && set.kmax == 1)
        return fmt::format("data, 1 value each ({} points)", set.imax);
    std::string grid = fmt::format("{} x {}", set.imax, set.jmax);
    if (set.kmax > 1)
        grid += fmt::format(" x {}", set.kmax);
    return fmt::format("data: {} variable{} on a {} grid, in {} order", variables,
                       variables == 1 ? "" : "s", grid, set.blockFormat ? "block" : "point");
}

std::string sizeRowText(const SniffPlan &plan)
{
    std::vector<std::string> texts;
    for (const Field &field : plan.line(*plan.sizeRow).fields)
        texts.push_back(field.text);
    std::string values = fmt::format("{}", fmt::join(texts, " "));
    if (plan.set.multipleZones)
        return fmt::format("sizes of the blocks below ({}): zones of {} points", values,
                           plan.set.imax);
    return fmt::format("sizes of the blocks below ({})", values);
}

/* The block holding line index, if any. */
const Block *blockOf(const Layout &layout, size_t index)
{
    for (const Block &block : layout.blocks)
        if (block.first <= index && index <= block.last)
            return &block;
    return nullptr;
}

/* The most common number of fields that are not empty in the block's rows. */
int valuesOf(const SniffPlan &plan, const Block &block)
{
    std::map<int, int> seen;
    int best = 0, most = 0;
    for (size_t row : block.rows) {
        const auto &fields = plan.line(row).fields;
        int count = static_cast<int>(std::count_if(fields.begin(), fields.end(), [](const Field &f) {
            return f.kind != FieldKind::empty;
        }));
        if (++seen[count] > most) {
            best = count;
            most = seen[count];
        }
    }
    return best;
}

std::string outsideText(const SniffPlan &plan, size_t index, bool after,
                        std::map<const Block *, int> &tableColumns)
{
    auto columns = [&](const Block &block) {
        auto found = tableColumns.find(&block);
        if (found == tableColumns.end())
            found = tableColumns.emplace(&block, valuesOf(plan, block)).first;
        return found->second;
    };
    const SniffLine &line = plan.line(index);
    if (line.cls == LineClass::comment && !plan.cutAtMarker)
        return fmt::format("comments (after \"{}\", cut)", plan.layout.commentMarker);
    if (line.cls == LineClass::data) {
        const Block *block = blockOf(plan.layout, index);
        if (block && block->rows.size() >= 3)
            return fmt::format("another table of {} columns (not loaded)", columns(*block));
        if (isNumericLine(line.view))
            return after ? "numbers after the data (not loaded)" : "numbers in the header (not data)";
    }
    return after ? "footer (kept as text)" : "header text (kept as text)";
}

/* Each line's role; "" for empty lines, which join the ranges around. */
std::vector<std::string> roles(const SniffPlan &plan)
{
    const InstructionSet &set = plan.set;
    std::vector<std::string> role(plan.layout.lines.size());
    std::map<const Block *, int> tableColumns;
    size_t first = plan.firstRow(), last = plan.lastRow();
    for (size_t i = 0; i < role.size(); ++i) {
        const SniffLine &line = plan.line(i);
        if (line.cls == LineClass::empty)
            continue;
        if (plan.titleLine == i)
            role[i] = fmt::format("title \"{}\"{}", plan.titleText,
                                  set.titleSearch == SearchMode::none ? " (entered in the set)" : "");
        else if (plan.names && plan.names->index == i)
            role[i] = namesRoleText(plan);
        else if (plan.sizeRow == i)
            role[i] = sizeRowText(plan);
        else if (i < first)
            role[i] = outsideText(plan, i, false, tableColumns);
        else if (i > last)
            role[i] = outsideText(plan, i, true, tableColumns);
        else if (line.cls == LineClass::comment)
            role[i] = outsideText(plan, i, false, tableColumns);
        else if (line.cls == LineClass::text && !(set.multipleZones && set.autoDimension &&
                                                  containsNoCase(line.raw, set.zoneKeyword)))
            role[i] = "text inside the data (kept as text)";
        else
            role[i] = dataText(plan);
    }
    return role;
}

std::string rangeText(int first, int last, const std::string &role)
{
    if (first == last)
        return fmt::format("line {}   {}", first, role);
    return fmt::format("lines {}-{}   {}", first, last, role);
}

/* A sample of the file in double quotes, unless it has them. */
std::string shown(std::string_view sample)
{
    if (sample.size() >= 2 && sample.front() == '"' && sample.back() == '"')
        return std::string(sample);
    return fmt::format("\"{}\"", sample);
}

/* A column that is not loaded, or loaded in part: why, in a note. */
struct ColumnNote {
    std::string kind; /* "note" or "unsure" */
    std::string what; /* what its columns have, after "has"/"have" */
    std::vector<size_t> columns;
};

ColumnNote noteOf(const Column &column)
{
    if (column.kind == Column::text) {
        std::string_view sample = column.textSample;
        std::string_view inside = sample;
        if (inside.size() >= 2 && (inside.front() == '"' || inside.front() == '\''))
            inside = inside.substr(1, inside.size() - 2);
        if (isDecimalCommaNumber(sample))
            return {"unsure",
                    fmt::format("numbers with a decimal comma (\"{}\"), which the loader cannot "
                                "read",
                                sample),
                    {}};
        if (inside.size() < sample.size() &&
            (readLoaderNumber(inside) || isDecimalCommaNumber(inside)))
            return {"unsure",
                    fmt::format("numbers in quotes ({}), which the loader cannot read", sample),
                    {}};
        return {"note", fmt::format("text ({})", shown(sample)), {}};
    }
    switch (fieldKind(column.wrongSample)) {
    case FieldKind::dExponent:
        return {"unsure",
                fmt::format("D exponents (\"{}\"), which the loader reads without the exponent",
                            column.wrongSample),
                {}};
    case FieldKind::loneSign:
        return {"unsure",
                fmt::format("a lone \"{}\", which the loader reads as 0", column.wrongSample), {}};
    default:
        return {"unsure",
                fmt::format("cells of more than one number (\"{}\"), of which the loader reads "
                            "the first",
                            column.wrongSample),
                {}};
    }
}

std::string columnsText(const SniffPlan &plan, const std::vector<size_t> &columns)
{
    auto one = [&plan](size_t c) {
        const std::string &name = plan.columns[c].name;
        return name.empty() ? std::to_string(c + 1) : fmt::format("{} ({})", c + 1, name);
    };
    if (columns.size() == 1)
        return "column " + one(columns.front()) + " has";
    std::string text = "columns ";
    for (size_t i = 0; i < columns.size(); ++i)
        text += fmt::format("{}{}", i == 0 ? "" : i + 1 == columns.size() ? " and " : ", ",
                            one(columns[i]));
    return text + " have";
}

/* What the columns hold that is not loaded: one note for the columns of
   each kind. */
std::vector<std::string> columnNotes(const SniffPlan &plan)
{
    std::vector<ColumnNote> notes;
    for (size_t c = 0; c < plan.columns.size(); ++c) {
        const Column &column = plan.columns[c];
        if (column.kind != Column::text && !column.wrong)
            continue;
        ColumnNote note = noteOf(column);
        auto same = std::find_if(notes.begin(), notes.end(), [&note](const ColumnNote &other) {
            return other.what.substr(0, other.what.find('(')) == note.what.substr(0, note.what.find('('));
        });
        if (same == notes.end()) {
            note.columns.push_back(c);
            notes.push_back(std::move(note));
        } else {
            same->columns.push_back(c);
        }
    }
    std::vector<std::string> lines;
    for (const ColumnNote &note : notes)
        lines.push_back(fmt::format("{}: {} {}: not loaded", note.kind,
                                    columnsText(plan, note.columns), note.what));
    return lines;
}

} // namespace

std::vector<std::string> explain(const SniffPlan &plan)
{
    std::vector<std::string> lines;
    std::vector<std::string> role = roles(plan);
    std::string current;
    int first = 0, last = 0;
    for (size_t i = 0; i < role.size(); ++i) {
        if (role[i].empty())
            continue;
        int number = plan.line(i).number;
        if (role[i] == current) {
            last = number;
            continue;
        }
        if (!current.empty())
            lines.push_back(rangeText(first, last, current));
        current = role[i];
        first = last = number;
    }
    if (!current.empty())
        lines.push_back(rangeText(first, last, current));
    for (const std::string &note : columnNotes(plan))
        lines.push_back(note);
    for (const std::string &note : plan.notes)
        lines.push_back(note);
    if (!plan.titleLine && plan.set.titleName == plan.sample.name)
        lines.push_back("note: no title line found: the title is the file's name");
    if (plan.sample.firstSkipped != 0)
        lines.push_back(fmt::format("unsure: lines {}-{} were not looked at (only the first "
                                    "megabyte and the last lines are)",
                                    plan.sample.firstSkipped, plan.sample.lastSkipped));
    return lines;
}

} // namespace corvane::inspect
