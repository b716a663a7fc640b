/*
 * FilledRowHazard.cpp - data rows (one point a line) that held fewer values
 * than variables, filled with 0 or the blank value, or more, whose last
 * values were dropped. A cell line ending in its delimiter lacks its empty
 * last cell: that blank is not reported.
 */
#include <fmt/format.h>

#include "Hazard.h"

namespace corvane::inspect {
namespace {

class FilledRow : public Detector {
public:
    FilledRow(const InstructionSet &set, PlaceSink &sink) : set_(set), sink_(sink) {}

    void line(const TracedLine &line) override
    {
        if (line.role != LineRole::data || !set_.autoDimension)
            return;
        int values = line.values;
        int variables = line.variables;
        if (values < variables && !endsInEmptyCell(line, variables)) {
            std::string which = values + 1 == variables
                                    ? fmt::format("variable {} got", variables)
                                    : fmt::format("variables {}-{} got", values + 1, variables);
            sink_.add({HazardKind::filledRow, line.number, 0,
                       fmt::format("{} value{} for {} variables: {} {}", values,
                                   values == 1 ? "" : "s", variables, which, fillText(set_))});
        } else if (values > variables) {
            int dropped = values - variables;
            sink_.add({HazardKind::filledRow, line.number, columnOfValue(line, variables),
                       fmt::format("{} values for {} variable{}: {}", values, variables,
                                   variables == 1 ? "" : "s",
                                   dropped == 1 ? "the last value was dropped"
                                                : fmt::format("the last {} values were dropped",
                                                              dropped))});
        }
    }

private:
    /* A cell line one short whose last character is the delimiter: its
       empty last cell got the blank value, as the file means. */
    bool endsInEmptyCell(const TracedLine &line, int variables) const
    {
        if (!line.cut.blankCellMode || line.values + 1 != variables)
            return false;
        const std::string &text = line.line.text;
        size_t last = text.find_last_not_of(" \t");
        char delimiter = set_.dataDelimiter == Delimiter::semicolon ? ';' : ',';
        return last != std::string::npos && text[last] == delimiter;
    }

    /* The column of the value at 0-based position index among the line's
       values. */
    static int columnOfValue(const TracedLine &line, int index)
    {
        int seen = 0;
        for (size_t i = 0; i < line.looked; ++i) {
            const Cell &cell = line.cut.cells[i];
            if (!line.cut.blankCellMode && !cell.read())
                continue;
            if (seen++ == index)
                return line.line.columnOf(cell.offset);
        }
        return 0;
    }

    const InstructionSet &set_;
    PlaceSink &sink_;
};

} // namespace

std::unique_ptr<Detector> filledRowDetector(const InstructionSet &set, PlaceSink &sink)
{
    return std::make_unique<FilledRow>(set, sink);
}

} // namespace corvane::inspect
