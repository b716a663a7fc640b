/*
 * OutsideDataHazard.cpp - lines outside the data section that look like
 * data: numeric lines, and rows with as many tokens as most data rows, at
 * least half of them numbers and the others short (NaN, MM, ---): a header
 * line of numbers passed over by a start line, an end line (which is not
 * part of the data), rows before the first numeric line (a NaN makes a line
 * not numeric), lines after a full zone. Also the other way round: a first
 * numeric line of whole numbers that a blank line parts from the data after
 * it, taken for data (sizes or a count in a header).
 */
#include <cmath>

#include <fmt/format.h>

#include "Hazard.h"

namespace corvane::inspect {
namespace {

class OutsideData : public Detector {
public:
    OutsideData(const InstructionSet &set, PlaceSink &sink) : set_(set), sink_(sink) {}

    void line(const TracedLine &line) override
    {
        firstLineApart(line);
        if (line.role == LineRole::data) {
            rowCounts_.add(line.values);
            return;
        }
        if (line.role != LineRole::beforeData && line.role != LineRole::startMarker &&
            line.role != LineRole::endMarker && line.role != LineRole::afterData)
            return;
        DataCut cut = cutDataLine(line.line.text, set_);
        int numbers = 0;
        bool wordy = false; /* a token that is neither number nor short marker */
        for (const Cell &cell : cut.cells) {
            numbers += cell.read() ? 1 : 0;
            wordy = wordy || (!cell.read() && cell.text.size() > 4);
        }
        if (wordy)
            numbers = 0;
        if ((line.numeric || numbers > 0) && kept_.size() < keptLinesLimit)
            kept_.push_back({line.number, line.role, line.numeric,
                             static_cast<int>(cut.cells.size()), numbers});
    }

    void finish(const TraceSummary &summary) override
    {
        auto majority = rowCounts_.majority();
        for (const Kept &kept : kept_) {
            bool dataLike =
                majority && kept.tokens == *majority && kept.numbers * 2 >= kept.tokens;
            if (!kept.numeric && !dataLike)
                continue;
            std::string subject = kept.numeric ? "numeric line" : "row like the data rows";
            sink_.add({HazardKind::outsideData, kept.number, 0, describe(kept, subject, summary)});
        }
    }

private:
    /* The first data line, when its values are whole numbers and a blank
       line parts it from the next data line: a header line (sizes, a
       count) that the first numeric line took for data. */
    void firstLineApart(const TracedLine &line)
    {
        if (first_.decided)
            return;
        if (first_.number == 0) {
            if (line.role != LineRole::data)
                return;
            first_.number = line.number;
            first_.whole = wholeNumbers(line);
            first_.decided = !first_.whole || set_.start.kind != Marker::firstNumericLine;
            return;
        }
        if (line.role == LineRole::blank) {
            first_.apart = true;
            return;
        }
        first_.decided = true;
        if (line.role == LineRole::data && first_.apart)
            sink_.add({HazardKind::outsideData, first_.number, 0,
                       "numeric line taken for data, though a blank line parts it from the data "
                       "after it: a header line (sizes, a count)?"});
    }

    static bool wholeNumbers(const TracedLine &line)
    {
        for (size_t i = 0; i < line.looked; ++i) {
            const Cell &cell = line.cut.cells[i];
            if (!cell.read() || cell.scan.value != std::floor(cell.scan.value))
                return false;
        }
        return true;
    }

    struct FirstLine {
        int number = 0;
        bool whole = false;
        bool apart = false;
        bool decided = false;
    };

    struct Kept {
        int number;
        LineRole role;
        bool numeric;
        int tokens;
        int numbers;
    };

    std::string describe(const Kept &kept, const std::string &subject,
                         const TraceSummary &summary) const
    {
        switch (kept.role) {
        case LineRole::beforeData:
            return fmt::format("{} before the data section, which starts at line {}", subject,
                               summary.firstDataLine);
        case LineRole::startMarker:
            return fmt::format("{} holds the start keyword and was not read", subject);
        case LineRole::endMarker:
            if (set_.end.kind == Marker::line)
                return fmt::format("{} was not read: the end line {} is not part of the data "
                                   "section",
                                   subject, set_.end.line);
            return fmt::format("{} ended the data section and was not read", subject);
        default:
            return fmt::format("{} after the data section, which ends at line {}", subject,
                               summary.lastDataLine);
        }
    }

    const InstructionSet &set_;
    PlaceSink &sink_;
    MajorityCount rowCounts_;
    std::vector<Kept> kept_;
    FirstLine first_;
};

} // namespace

std::unique_ptr<Detector> outsideDataDetector(const InstructionSet &set, PlaceSink &sink)
{
    return std::make_unique<OutsideData>(set, sink);
}

} // namespace corvane::inspect
