/*
 * Hazard.h - a place where the loaded numbers may differ from what the
 * file means, its kinds, and the detectors that find them in a replayed
 * scan (one per kind, each in a file of its own).
 */
#ifndef CORVANE_INSPECT_HAZARD_H
#define CORVANE_INSPECT_HAZARD_H

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "InstructionSet.h"
#include "ScanTrace.h"

namespace corvane::inspect {

enum class HazardKind { notANumber, readInPart, filledRow, numericName, outsideData, oddRow, zoneSize };
inline constexpr HazardKind hazardKinds[] = {
    HazardKind::notANumber,  HazardKind::readInPart,  HazardKind::filledRow,
    HazardKind::numericName, HazardKind::outsideData, HazardKind::oddRow,
    HazardKind::zoneSize};

/* "not-a-number", ...: the kind's name in JSON. */
const char *hazardId(HazardKind kind);
/* "tokens that are not numbers", ...: the kind's heading in the summary. */
const char *hazardTitle(HazardKind kind);

struct Place {
    HazardKind kind = HazardKind::notANumber;
    int line = 0;
    int column = 0; /* 0: the whole line */
    std::string text;
    bool operator==(const Place &) const = default;
};

/* Where the detectors put what they find. */
class PlaceSink {
public:
    virtual ~PlaceSink() = default;
    virtual void add(Place place) = 0;
};

/* Looks at every traced line, then at the summary. */
class Detector : public TraceListener {
public:
    void line(const TracedLine &) override {}
    virtual void finish(const TraceSummary &summary) { (void)summary; }
};

/* The detectors of every kind, for one check of a file under set, putting
   places into sink. */
std::vector<std::unique_ptr<Detector>> makeDetectors(const InstructionSet &set, PlaceSink &sink);

std::unique_ptr<Detector> notANumberDetector(const InstructionSet &set, PlaceSink &sink);
std::unique_ptr<Detector> readInPartDetector(const InstructionSet &set, PlaceSink &sink);
std::unique_ptr<Detector> filledRowDetector(const InstructionSet &set, PlaceSink &sink);
std::unique_ptr<Detector> numericNameDetector(const InstructionSet &set, PlaceSink &sink);
std::unique_ptr<Detector> outsideDataDetector(const InstructionSet &set, PlaceSink &sink);
std::unique_ptr<Detector> oddRowDetector(const InstructionSet &set, PlaceSink &sink);
std::unique_ptr<Detector> zoneSizeDetector(const InstructionSet &set, PlaceSink &sink);

/* ------------------------------------------------ helpers the detectors share */

/* How a token that is a number was written so that the loader reads it
   otherwise than meant, or does not read it. */
enum class PartialNumber { none, dExponent, loneSign, innerBlank, decimalComma, quoted, bracketed };
PartialNumber partialNumber(const Cell &cell);

/* "the blank value -999" or "0": what fills a missing value. */
std::string fillText(const InstructionSet &set);

/* What became of the values after a token the loader did not read, on a
   data line: "no value came after it", "the 2 values after it moved left",
   or that the rest of the line was not read. */
std::string afterDroppedText(const TracedLine &line, size_t cellIndex);

/* The value counts of data rows: the count that more than half of them
   have, if one does. */
class MajorityCount {
public:
    void add(int count);
    std::optional<int> majority() const;

private:
    std::map<int, long long> counts_;
    long long rows_ = 0;
};

/* A kept list of lines with a bound: a detector that decides at the end
   keeps the lines it may report. */
inline constexpr size_t keptLinesLimit = 100000;

} // namespace corvane::inspect

#endif
