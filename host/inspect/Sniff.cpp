/*
 * Sniff.cpp - the steps of sniff, in order, and the proposal they make.
 */
#include "Sniff.h"

#include <fmt/format.h>

#include "InstructionWriter.h"
#include "SniffPlan.h"

namespace corvane::inspect {

host::Expected<Proposal> sniffSample(const FileSample &sample,
                                     const std::optional<std::string> &title)
{
    SniffPlan plan{sample, analyseLayout(sample)};
    plan.rows = dataRows(plan.layout);
    if (plan.rows.empty())
        return host::unexpected(fmt::format("{}: no data found (no line holds numbers)",
                                            sample.name));
    plan.set.titleName = title.value_or("");
    if (!plan.layout.commentMarker.empty()) {
        plan.set.comment = plan.layout.commentMarker;
        plan.set.useComment = true;
    }
    findSizeRow(plan);
    findColumns(plan);
    findNamedSizes(plan);
    findNames(plan);
    findTitle(plan);
    findMissing(plan);
    findDataMarkers(plan);
    if (plan.set.titleSearch != SearchMode::none)
        plan.set.titleName = InstructionSet{}.titleName; /* not written: the default */

    Proposal proposal;
    proposal.set = plan.set;
    proposal.explanation = explain(plan);
    std::vector<std::string> comments{fmt::format("Proposed by corvane sniff for {}:", sample.name)};
    comments.insert(comments.end(), proposal.explanation.begin(), proposal.explanation.end());
    proposal.text = writeInstructionSet(plan.set, comments);
    return proposal;
}

host::Expected<Proposal> sniffFile(const std::string &path, const std::optional<std::string> &title)
{
    auto sample = sampleFile(path);
    if (!sample)
        return host::unexpected(sample.error());
    return sniffSample(*sample, title);
}

} // namespace corvane::inspect
