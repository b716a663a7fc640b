/*
 * ReadInPartHazard.cpp - numbers of data lines that the loader reads only
 * in part or otherwise than written: a D exponent, a lone sign, a cell with
 * an inner blank, a decimal comma, a number in quotes or brackets, and a
 * decimal comma that the automatic delimiter splits into two values.
 */
#include <fmt/format.h>

#include "Hazard.h"

namespace corvane::inspect {
namespace {

std::string_view inside(std::string_view text)
{
    size_t first = text.find_first_not_of(" \t\"'");
    size_t last = text.find_last_not_of(" \t\"'");
    return first == std::string_view::npos ? text : text.substr(first, last - first + 1);
}

class ReadInPart : public Detector {
public:
    ReadInPart(const InstructionSet &set, PlaceSink &sink) : set_(set), sink_(sink) {}

    void line(const TracedLine &line) override
    {
        if (line.role != LineRole::data)
            return;
        const auto &cells = line.cut.cells;
        for (size_t i = 0; i < cells.size() && i <= line.looked; ++i) {
            if (auto text = describe(line, i); !text.empty())
                sink_.add({HazardKind::readInPart, line.number,
                           line.line.columnOf(cells[i].offset), text});
        }
        if (set_.dataDelimiter == Delimiter::automatic)
            splitDecimalCommas(line);
    }

private:
    /* What happened to a cell that is not read, and why: the blank value
       in its place, or dropped. */
    std::string notRead(const TracedLine &line, size_t index, std::string_view why) const
    {
        if (line.cut.blankCellMode)
            return fmt::format("was read as {} ({})", fillText(set_), why);
        return fmt::format("was not read ({}); {}", why, afterDroppedText(line, index));
    }

    std::string describe(const TracedLine &line, size_t index) const
    {
        const Cell &cell = line.cut.cells[index];
        switch (partialNumber(cell)) {
        case PartialNumber::dExponent:
            return fmt::format("\"{}\" was read as {}: a D exponent is not read (it means {})",
                               cell.text, numberText(cell.scan.value),
                               numberText(meantNumber(cell.text).value_or(0)));
        case PartialNumber::loneSign:
            return fmt::format("a lone \"{}\" was read as 0", cell.text);
        case PartialNumber::innerBlank:
            return fmt::format("\"{}\" was read as {}: only the first number of a cell is read",
                               cell.text, numberText(cell.scan.value));
        case PartialNumber::decimalComma:
            return fmt::format("\"{}\" {}", inside(cell.text),
                               notRead(line, index, "a decimal comma"));
        case PartialNumber::quoted:
            return fmt::format("{} {}", cell.text, notRead(line, index, "a number in quotes"));
        case PartialNumber::bracketed:
            return fmt::format("\"{}\" {}", cell.text,
                               notRead(line, index, "a number with a bracket or %"));
        default:
            return {};
        }
    }

    /* In a line whose values are separated by blanks, tabs or semicolons,
       digits joined by one comma are a decimal comma that the automatic
       delimiter cuts into two values. */
    void splitDecimalCommas(const TracedLine &line)
    {
        const std::string &text = line.line.text;
        size_t first = text.find_first_not_of(" \t");
        size_t last = text.find_last_not_of(" \t");
        if (first == std::string::npos ||
            text.substr(first, last - first + 1).find_first_of(" \t;") == std::string::npos)
            return;
        size_t at = 0;
        while (at < text.size()) {
            at = text.find_first_not_of(" \t;", at);
            if (at == std::string::npos)
                break;
            size_t end = text.find_first_of(" \t;", at);
            std::string_view run = std::string_view(text).substr(
                at, end == std::string::npos ? std::string::npos : end - at);
            if (isDecimalCommaNumber(run)) {
                size_t comma = run.find(',');
                double before = readLoaderNumber(run.substr(0, comma)).value_or(0);
                double after = readLoaderNumber(run.substr(comma + 1)).value_or(0);
                sink_.add({HazardKind::readInPart, line.number, line.line.columnOf(at),
                           fmt::format("\"{}\" was read as two values, {} and {} (a decimal "
                                       "comma)",
                                       run, numberText(before), numberText(after))});
            }
            at = end;
        }
    }

    const InstructionSet &set_;
    PlaceSink &sink_;
};

} // namespace

std::unique_ptr<Detector> readInPartDetector(const InstructionSet &set, PlaceSink &sink)
{
    return std::make_unique<ReadInPart>(set, sink);
}

} // namespace corvane::inspect
