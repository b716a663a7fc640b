/*
 * Hazard.cpp - the kinds of places, the table of detectors and what the
 * detectors share.
 */
#include "Hazard.h"

#include <fmt/format.h>

namespace corvane::inspect {

const char *hazardId(HazardKind kind)
{
    switch (kind) {
    case HazardKind::notANumber:
        return "not-a-number";
    case HazardKind::readInPart:
        return "read-in-part";
    case HazardKind::filledRow:
        return "filled-row";
    case HazardKind::numericName:
        return "numeric-name";
    case HazardKind::outsideData:
        return "outside-data";
    case HazardKind::oddRow:
        return "odd-row";
    default:
        return "zone-size";
    }
}

const char *hazardTitle(HazardKind kind)
{
    switch (kind) {
    case HazardKind::notANumber:
        return "tokens that are not numbers";
    case HazardKind::readInPart:
        return "numbers read only in part";
    case HazardKind::filledRow:
        return "rows with fewer or more values than variables";
    case HazardKind::numericName:
        return "variable names that look like numbers";
    case HazardKind::outsideData:
        return "numeric lines outside the data section";
    case HazardKind::oddRow:
        return "rows whose value count differs from most rows";
    default:
        return "zones of different sizes";
    }
}

std::vector<std::unique_ptr<Detector>> makeDetectors(const InstructionSet &set, PlaceSink &sink)
{
    std::vector<std::unique_ptr<Detector>> detectors;
    for (auto make : {notANumberDetector, readInPartDetector, filledRowDetector,
                      numericNameDetector, outsideDataDetector, oddRowDetector, zoneSizeDetector})
        detectors.push_back(make(set, sink));
    return detectors;
}

namespace {

std::string_view trimmed(std::string_view text)
{
    size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos)
        return {};
    size_t last = text.find_last_not_of(" \t");
    return text.substr(first, last - first + 1);
}

} // namespace

PartialNumber partialNumber(const Cell &cell)
{
    const NumberScan &scan = cell.scan;
    std::string_view text = trimmed(cell.text);
    if (scan.accepted) {
        if (scan.dExponent)
            return PartialNumber::dExponent;
        if (scan.noDigits)
            return PartialNumber::loneSign;
        if (!trimmed(std::string_view(cell.text).substr(scan.end)).empty())
            return PartialNumber::innerBlank;
        return PartialNumber::none;
    }
    if (isDecimalCommaNumber(text))
        return PartialNumber::decimalComma;
    if (text.size() >= 2 && (text.front() == '"' || text.front() == '\'')) {
        std::string_view inside = text.substr(1);
        if (inside.back() == text.front())
            inside.remove_suffix(1);
        if (readLoaderNumber(inside) || isDecimalCommaNumber(inside))
            return PartialNumber::quoted;
    }
    size_t first = text.find_first_not_of("([{<");
    size_t last = text.find_last_not_of(")]}>%");
    if (first != std::string_view::npos && last != std::string_view::npos && last >= first &&
        (first > 0 || last + 1 < text.size()) &&
        readLoaderNumber(text.substr(first, last - first + 1)))
        return PartialNumber::bracketed;
    return PartialNumber::none;
}

std::string fillText(const InstructionSet &set)
{
    if (set.useBlankCellValue)
        return "the blank value " + numberText(set.blankCellValue);
    return "0";
}

std::string afterDroppedText(const TracedLine &line, size_t cellIndex)
{
    if (cellIndex == line.looked)
        return "the rest of the line was not read (the question about it was answered No)";
    long after = 0;
    for (size_t i = cellIndex + 1; i < line.looked; ++i)
        if (line.cut.cells[i].read())
            ++after;
    if (after == 0)
        return "no value came after it";
    if (after == 1)
        return "the value after it moved left";
    return fmt::format("the {} values after it moved left", after);
}

void MajorityCount::add(int count)
{
    ++counts_[count];
    ++rows_;
}

std::optional<int> MajorityCount::majority() const
{
    for (const auto &[count, seen] : counts_)
        if (seen * 2 > rows_)
            return count;
    return std::nullopt;
}

} // namespace corvane::inspect
