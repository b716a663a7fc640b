/*
 * SniffSizes.cpp - zone sizes a file gives: a row of whole numbers right
 * before blocks of that many rows each (zones of that size), or sizes
 * named in the header (I=, IMAX, NCOLS/NROWS and the like), which make one
 * ordered zone in point or block order.
 */
#include <algorithm>
#include <array>
#include <cmath>
#include <map>

#include <fmt/format.h>

#include "LoaderNumber.h"
#include "SniffPlan.h"

namespace corvane::inspect {
namespace {

/* The values of a row when all of them are whole numbers of 1 or more. */
std::optional<std::vector<long long>> wholeNumbers(const SniffLine &line)
{
    std::vector<long long> values;
    for (const Field &field : line.fields) {
        auto value = readLoaderNumber(field.text);
        if (!value || *value < 1 || *value != std::floor(*value) || *value > 1e9)
            return std::nullopt;
        values.push_back(static_cast<long long>(*value));
    }
    return values;
}

/* A first row of its own before the blocks of the data, naming their
   sizes: "61. 61." before two blocks of 61 rows. */
bool sizeRow(SniffPlan &plan)
{
    const Layout &layout = plan.layout;
    if (layout.firstBlock != layout.lastBlock)
        return false;
    const Block &block = layout.blocks[layout.firstBlock];
    if (block.chunks.size() < 3 || block.chunks.front().size() != 1)
        return false;
    size_t row = block.chunks.front().front();
    auto values = wholeNumbers(plan.line(row));
    if (!values || values->size() != block.chunks.size() - 1)
        return false;
    for (size_t i = 0; i < values->size(); ++i)
        if ((*values)[i] != static_cast<long long>(block.chunks[i + 1].size()))
            return false;
    plan.sizeRow = row;
    plan.rows.erase(plan.rows.begin());
    long long size = values->front();
    bool equal = std::all_of(values->begin(), values->end(),
                             [size](long long value) { return value == size; });
    if (!equal) {
        plan.unsure(fmt::format("line {} gives blocks of different sizes; they are loaded as one "
                                "zone",
                                plan.line(row).number));
        return true;
    }
    plan.set.autoDimension = false;
    plan.set.imax = static_cast<int>(size);
    plan.set.multipleZones = true;
    return true;
}

enum Axis { axisI, axisJ, axisK, noAxis };

Axis axisOf(const std::string &key)
{
    static const std::map<std::string, Axis> keys = {
        {"I", axisI},     {"IMAX", axisI}, {"NI", axisI}, {"NX", axisI}, {"NCOLS", axisI},
        {"J", axisJ},     {"JMAX", axisJ}, {"NJ", axisJ}, {"NY", axisJ}, {"NROWS", axisJ},
        {"K", axisK},     {"KMAX", axisK}, {"NK", axisK}, {"NZ", axisK}};
    auto found = keys.find(upperCase(key));
    return found == keys.end() ? noAxis : found->second;
}

/* Words of a header line cut at blanks, tabs, '=', ',' and ';'. */
std::vector<std::string> headerWords(const std::string &line)
{
    std::vector<std::string> words;
    size_t at = 0;
    while ((at = line.find_first_not_of(" \t=,;", at)) != std::string::npos) {
        size_t end = line.find_first_of(" \t=,;", at);
        words.push_back(line.substr(at, end == std::string::npos ? end : end - at));
        at = end;
    }
    return words;
}

/* Sizes named in the lines before the data: I, J and K (1 when not named). */
std::optional<std::array<long long, 3>> namedSizes(const SniffPlan &plan, std::vector<int> &lines)
{
    std::array<long long, 3> sizes{0, 0, 0};
    for (size_t i = 0; i < plan.firstRow(); ++i) {
        auto words = headerWords(plan.line(i).raw);
        for (size_t w = 0; w + 1 < words.size(); ++w) {
            Axis axis = axisOf(words[w]);
            auto value = readLoaderNumber(words[w + 1]);
            if (axis == noAxis || !value || *value < 1 || *value != std::floor(*value) ||
                *value > 1e9 || sizes[axis] != 0)
                continue;
            sizes[axis] = static_cast<long long>(*value);
            lines.push_back(plan.line(i).number);
        }
    }
    if (sizes[axisI] == 0)
        return std::nullopt;
    for (long long &size : sizes)
        size = size == 0 ? 1 : size;
    return sizes;
}

void sizesInHeader(SniffPlan &plan)
{
    std::vector<int> lines;
    auto sizes = namedSizes(plan, lines);
    if (!sizes)
        return;
    if (static_cast<double>((*sizes)[0]) * static_cast<double>((*sizes)[1]) *
            static_cast<double>((*sizes)[2]) > 2e9)
        return; /* more points than a zone holds */
    long long points = (*sizes)[0] * (*sizes)[1] * (*sizes)[2];
    long long values = 0;
    bool evenRows = true;
    size_t perRow = plan.line(plan.firstRow()).fields.size();
    for (size_t row : plan.rows) {
        values += static_cast<long long>(plan.line(row).fields.size());
        evenRows = evenRows && plan.line(row).fields.size() == perRow;
    }
    if (points < 2 || values % points != 0)
        return;
    long long variables = values / points;
    plan.set.autoDimension = false;
    plan.set.imax = static_cast<int>((*sizes)[0]);
    plan.set.jmax = static_cast<int>((*sizes)[1]);
    plan.set.kmax = static_cast<int>((*sizes)[2]);
    bool pointOrder = evenRows && static_cast<long long>(perRow) == variables &&
                      static_cast<long long>(plan.rows.size()) == points;
    plan.set.blockFormat = !pointOrder;
    plan.variables.assign(static_cast<size_t>(variables), 0);
    for (size_t v = 0; v < plan.variables.size(); ++v)
        plan.variables[v] = v;
    if (pointOrder && variables > 1)
        plan.unsure("rows of one value per variable are taken as points (FORMAT = IJKPOINT); if "
                    "the values run variable by variable, use FORMAT = IJKBLOCK");
}

/* One name above rows of several values each: one variable on a grid, a
   row of the file a row of the grid. */
void oneNameGrid(SniffPlan &plan)
{
    if (plan.sample.firstSkipped != 0 || plan.columns.size() < 2 || plan.rows.size() < 2)
        return;
    for (const Column &column : plan.columns)
        if (column.kind != Column::number || column.wrong)
            return;
    for (size_t row : plan.rows) {
        const auto &fields = plan.line(row).fields;
        if (fields.size() != plan.columns.size() ||
            std::any_of(fields.begin(), fields.end(),
                        [](const Field &f) { return f.kind != FieldKind::number; }))
            return;
    }
    size_t above = plan.firstRow();
    while (above > 0 && plan.line(above - 1).cls == LineClass::empty)
        --above;
    if (above == 0 || plan.line(above - 1).cls != LineClass::text)
        return;
    std::vector<std::string> words;
    for (const Field &field : splitFields(plan.line(above - 1).view, plan.layout.separator))
        if (field.kind != FieldKind::empty)
            words.push_back(field.text);
    if (words.size() != 1 || readLoaderNumber(words.front()))
        return;
    plan.set.autoDimension = false;
    plan.set.imax = static_cast<int>(plan.columns.size());
    plan.set.jmax = static_cast<int>(plan.rows.size());
    plan.variables = {0};
    plan.unsure(fmt::format("line {} names one variable above rows of {} values: taken as a "
                            "{} x {} grid of it",
                            plan.line(above - 1).number, plan.columns.size(), plan.set.imax,
                            plan.set.jmax));
}

} // namespace

void findSizeRow(SniffPlan &plan)
{
    sizeRow(plan);
}

void findNamedSizes(SniffPlan &plan)
{
    if (plan.sizeRow)
        return;
    sizesInHeader(plan);
    if (plan.set.autoDimension)
        oneNameGrid(plan);
}

} // namespace corvane::inspect
