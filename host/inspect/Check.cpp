/*
 * Check.cpp - one check: the scan replayed with every detector listening.
 */
#include "Check.h"

#include "Hazard.h"
#include "ScanTrace.h"

namespace corvane::inspect {
namespace {

/* Hands every traced line to each detector in turn. */
class Detectors : public TraceListener {
public:
    explicit Detectors(std::vector<std::unique_ptr<Detector>> detectors)
        : detectors_(std::move(detectors)) {}
    void line(const TracedLine &line) override
    {
        for (auto &detector : detectors_)
            detector->line(line);
    }
    void finish(const TraceSummary &summary)
    {
        for (auto &detector : detectors_)
            detector->finish(summary);
    }

private:
    std::vector<std::unique_ptr<Detector>> detectors_;
};

} // namespace

host::Expected<CheckReport> checkFile(const std::string &path, const std::string &file,
                                      const InstructionSet &set,
                                      const std::set<int> &stoppedLines)
{
    ReportBuilder builder;
    Detectors detectors(makeDetectors(set, builder));
    auto summary = traceScan(path, set, stoppedLines, detectors);
    if (!summary)
        return host::unexpected(summary.error());
    detectors.finish(*summary);
    return builder.build(file);
}

} // namespace corvane::inspect
