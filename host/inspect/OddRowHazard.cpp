/*
 * OddRowHazard.cpp - data rows whose number of values differs from the one
 * more than half of the rows have. With one point a line, rows that did not match the variables
 * are already reported as filled; the others are reported here.
 */
#include <map>

#include <fmt/format.h>

#include "Hazard.h"

namespace corvane::inspect {
namespace {

class OddRow : public Detector {
public:
    OddRow(const InstructionSet &set, PlaceSink &sink) : set_(set), sink_(sink) {}

    void line(const TracedLine &line) override
    {
        if (line.role != LineRole::data)
            return;
        rowCounts_.add(line.values);
        if (set_.autoDimension && line.values != line.variables)
            return;
        auto &lines = linesByCount_[line.values];
        if (lines.size() < keptLinesLimit)
            lines.push_back(line.number);
    }

    void finish(const TraceSummary &) override
    {
        auto majority = rowCounts_.majority();
        if (!majority)
            return;
        for (const auto &[count, lines] : linesByCount_) {
            if (count == *majority)
                continue;
            for (int number : lines)
                sink_.add({HazardKind::oddRow, number, 0,
                           fmt::format("{} value{} where most rows have {}", count,
                                       count == 1 ? "" : "s", *majority)});
        }
    }

private:
    const InstructionSet &set_;
    PlaceSink &sink_;
    MajorityCount rowCounts_;
    std::map<int, std::vector<int>> linesByCount_;
};

} // namespace

std::unique_ptr<Detector> oddRowDetector(const InstructionSet &set, PlaceSink &sink)
{
    return std::make_unique<OddRow>(set, sink);
}

} // namespace corvane::inspect
