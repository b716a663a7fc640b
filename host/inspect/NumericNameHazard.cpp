/*
 * NumericNameHazard.cpp - variable names read from the file that look like
 * numbers: the names line may have been a data line.
 */
#include <fmt/format.h>

#include "Hazard.h"

namespace corvane::inspect {
namespace {

class NumericName : public Detector {
public:
    explicit NumericName(PlaceSink &sink) : sink_(sink) {}

    void finish(const TraceSummary &summary) override
    {
        for (const NameToken &name : summary.fileNames) {
            if (readLoaderNumber(name.text) || meantNumber(name.text))
                sink_.add({HazardKind::numericName, name.line, name.column,
                           fmt::format("the variable name \"{}\" looks like a number: was a "
                                       "data line taken for the names?",
                                       name.text)});
        }
    }

private:
    PlaceSink &sink_;
};

} // namespace

std::unique_ptr<Detector> numericNameDetector(const InstructionSet &, PlaceSink &sink)
{
    return std::make_unique<NumericName>(sink);
}

} // namespace corvane::inspect
