/*
 * NotANumberHazard.cpp - tokens of data lines that the loader did not read
 * because they are no numbers (NaN, ---, MM, text), with what became of the
 * values after them; and rows like the data rows without any number.
 * Blank-cell mode gives such cells the blank value in place: not reported.
 */
#include <fmt/format.h>

#include "Hazard.h"

namespace corvane::inspect {
namespace {

class NotANumber : public Detector {
public:
    NotANumber(const InstructionSet &set, PlaceSink &sink)
        : pointPerLine_(set.autoDimension), sink_(sink) {}

    void line(const TracedLine &line) override
    {
        if (line.cut.blankCellMode)
            return;
        if (line.role == LineRole::textInData) {
            int tokens = static_cast<int>(line.cut.cells.size());
            if (pointPerLine_ && tokens == line.variables)
                sink_.add({HazardKind::notANumber, line.number, 0, skippedRow(tokens)});
            else if (emptyRows_.size() < keptLinesLimit)
                emptyRows_.push_back({line.number, tokens});
            return;
        }
        if (line.role != LineRole::data)
            return;
        rowCounts_.add(line.values);
        const auto &cells = line.cut.cells;
        for (size_t i = 0; i < cells.size() && i <= line.looked; ++i) {
            const Cell &cell = cells[i];
            if (cell.read() || partialNumber(cell) != PartialNumber::none)
                continue;
            sink_.add({HazardKind::notANumber, line.number, line.line.columnOf(cell.offset),
                       fmt::format("\"{}\" is not a number: dropped; {}", cell.text,
                                   afterDroppedText(line, i))});
        }
    }

    void finish(const TraceSummary &) override
    {
        auto majority = rowCounts_.majority();
        for (const auto &[number, tokens] : emptyRows_)
            if (majority && tokens == *majority && tokens > 0)
                sink_.add({HazardKind::notANumber, number, 0, skippedRow(tokens)});
    }

private:
    static std::string skippedRow(int tokens)
    {
        return fmt::format("none of its {} tokens is a number: the row was skipped", tokens);
    }

    bool pointPerLine_;
    PlaceSink &sink_;
    MajorityCount rowCounts_;
    std::vector<std::pair<int, int>> emptyRows_; /* line, tokens: rows like the data rows? */
};

} // namespace

std::unique_ptr<Detector> notANumberDetector(const InstructionSet &set, PlaceSink &sink)
{
    return std::make_unique<NotANumber>(set, sink);
}

} // namespace corvane::inspect
