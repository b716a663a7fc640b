/*
 * SniffColumns.cpp - the columns of the data rows: fixed width where
 * values touch, each column's kind (numbers, text, empty; numbers the
 * loader reads wrong), the loader's delimiter, and which columns are
 * variables.
 */
#include <algorithm>

#include <fmt/format.h>

#include "SniffPlan.h"

namespace corvane::inspect {
namespace {

/* Fields of width characters from the start of the line, trimmed. */
std::vector<Field> fixedFields(std::string_view line, int width)
{
    std::vector<Field> fields;
    for (size_t at = 0; at < line.size(); at += static_cast<size_t>(width)) {
        std::string_view piece = line.substr(at, static_cast<size_t>(width));
        size_t first = piece.find_first_not_of(" \t");
        size_t last = piece.find_last_not_of(" \t");
        std::string_view text =
            first == std::string_view::npos ? std::string_view() : piece.substr(first, last - first + 1);
        fields.push_back({std::string(text), at + (first == std::string_view::npos ? 0 : first),
                          fieldKind(text)});
    }
    return fields;
}

/* The widest field width at which every row is whole numbers in the same
   number of fields, if any. */
std::optional<int> fixedWidth(const SniffPlan &plan)
{
    for (int width = 40; width >= 2; --width) {
        size_t count = 0;
        bool fits = true;
        for (size_t row : plan.rows) {
            auto fields = fixedFields(plan.line(row).view, width);
            while (!fields.empty() && fields.back().kind == FieldKind::empty)
                fields.pop_back();
            if (count == 0)
                count = fields.size();
            fits = fields.size() == count && count > 1 &&
                   std::all_of(fields.begin(), fields.end(),
                               [](const Field &f) { return f.kind == FieldKind::number; });
            if (!fits)
                break;
        }
        if (fits && count > 0)
            return width;
    }
    return std::nullopt;
}

void useFixedWidth(SniffPlan &plan)
{
    bool touching = false;
    for (size_t row : plan.rows)
        for (const Field &field : plan.line(row).fields)
            touching = touching || field.kind == FieldKind::touching;
    if (!touching)
        return;
    auto width = fixedWidth(plan);
    if (!width) {
        plan.unsure("values touch (as in 4.0-0.5) but no fixed width fits every row: such "
                    "values are not read");
        return;
    }
    for (size_t row : plan.rows) {
        auto fields = fixedFields(plan.line(row).view, *width);
        while (!fields.empty() && fields.back().kind == FieldKind::empty)
            fields.pop_back();
        plan.layout.lines[row].fields = std::move(fields);
    }
    plan.set.dataDelimiter = Delimiter::fixed;
    plan.set.dataWidth = *width;
    plan.note(fmt::format("values touch (as in 4.0-0.5): they are read in fixed columns of {} "
                          "characters",
                          *width));
}

int mostCommonFields(const SniffPlan &plan)
{
    std::vector<int> counts;
    for (size_t row : plan.rows)
        counts.push_back(static_cast<int>(plan.line(row).fields.size()));
    return mostCommon(counts);
}

void columnKinds(SniffPlan &plan)
{
    size_t count = static_cast<size_t>(mostCommonFields(plan));
    plan.columns.assign(count, Column{});
    for (size_t row : plan.rows) {
        const auto &fields = plan.line(row).fields;
        for (size_t c = 0; c < count && c < fields.size(); ++c) {
            Column &column = plan.columns[c];
            const Field &field = fields[c];
            switch (field.kind) {
            case FieldKind::number:
                column.kind = Column::number;
                break;
            case FieldKind::dExponent:
            case FieldKind::innerBlank:
            case FieldKind::loneSign:
                if (field.kind != FieldKind::loneSign)
                    column.kind = Column::number;
                if (!column.wrong)
                    column.wrongSample = field.text;
                column.wrong = true;
                break;
            case FieldKind::empty:
                break;
            default:
                if (column.textSample.empty())
                    column.textSample = field.text;
                if (column.kind == Column::empty)
                    column.kind = Column::text;
            }
        }
    }
    /* A column of lone signs alone is no number column. */
    for (Column &column : plan.columns)
        if (column.kind != Column::number && column.wrong && column.textSample.empty())
            column.kind = Column::text, column.textSample = column.wrongSample;
}

bool anyRowHas(const SniffPlan &plan, auto test)
{
    for (size_t row : plan.rows) {
        const auto &fields = plan.line(row).fields;
        for (size_t c = 0; c < plan.columns.size(); ++c)
            if (test(plan.columns[c], c < fields.size() ? &fields[c] : nullptr))
                return true;
    }
    return false;
}

/* The loader's delimiter for the separator, and whether cells keep their
   places with a blank value. */
void chooseDelimiter(SniffPlan &plan)
{
    switch (plan.layout.separator) {
    case Separator::tab:
        plan.set.dataDelimiter = Delimiter::tab;
        return;
    case Separator::semicolon:
    case Separator::comma: {
        plan.set.dataDelimiter = plan.layout.separator == Separator::semicolon
                                     ? Delimiter::semicolon
                                     : Delimiter::comma;
        bool gaps = anyRowHas(plan, [](const Column &column, const Field *field) {
            return column.kind != Column::number ||
                   (field != nullptr && field->kind != FieldKind::number &&
                    field->kind != FieldKind::dExponent && field->kind != FieldKind::innerBlank);
        });
        plan.blankCells = gaps;
        return;
    }
    default:
        break;
    }
    if (plan.set.dataDelimiter == Delimiter::fixed)
        return;
    bool tabs = false, commas = false;
    for (size_t row : plan.rows) {
        tabs = tabs || plan.line(row).view.find('\t') != std::string::npos;
        commas = commas || plan.line(row).view.find_first_of(",;") != std::string::npos;
    }
    plan.set.dataDelimiter = tabs && !commas ? Delimiter::automatic : Delimiter::space;
}

/* Token mode: the number columns (text and empty columns give no value);
   blank cells: every column up to the last that is not empty. */
void chooseVariables(SniffPlan &plan)
{
    plan.variables.clear();
    size_t end = plan.columns.size();
    if (plan.blankCells)
        while (end > 0 && plan.columns[end - 1].kind == Column::empty)
            --end;
    for (size_t c = 0; c < end; ++c)
        if (plan.blankCells || plan.columns[c].kind == Column::number)
            plan.variables.push_back(c);
}

} // namespace

void findColumns(SniffPlan &plan)
{
    if (plan.layout.separator == Separator::blanks)
        useFixedWidth(plan);
    columnKinds(plan);
    chooseDelimiter(plan);
    chooseVariables(plan);
}

std::vector<std::string> genericNames(size_t count)
{
    std::vector<std::string> names;
    for (size_t i = 1; i <= count; ++i)
        names.push_back(fmt::format("V{}", i));
    return names;
}

std::string lineList(const std::vector<int> &numbers)
{
    std::string text;
    size_t shown = std::min<size_t>(numbers.size(), numbers.size() > 3 ? 2 : 3);
    for (size_t i = 0; i < shown; ++i) {
        if (i > 0)
            text += i + 1 == numbers.size() ? " and " : ", ";
        text += std::to_string(numbers[i]);
    }
    if (shown < numbers.size())
        text += fmt::format(" and {} more", numbers.size() - shown);
    return text;
}

std::string rowsText(const std::vector<int> &numbers)
{
    return fmt::format("{} {}", numbers.size() == 1 ? "row" : "rows", lineList(numbers));
}


} // namespace corvane::inspect
