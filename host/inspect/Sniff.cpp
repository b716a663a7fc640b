/*
 * Sniff.cpp - the steps of sniff, in order, and the proposal they make.
 */
#include "Sniff.h"

#include <fmt/format.h>

#include "InstructionWriter.h"
#include "SniffPlan.h"

namespace corvane::inspect {
namespace {

/* The longest quoted text of a set that the loader reads whole. */
constexpr size_t maxSetText = 1024;

/* The length of NAMES: the names, their commas (escaped ones twice). */
size_t namesLength(const std::vector<std::string> &names)
{
    size_t length = names.empty() ? 0 : names.size() - 1;
    for (const std::string &name : names)
        for (char c : name)
            length += c == ',' || c == '"' || c == '\\' ? 2 : 1;
    return length;
}

/* Whether some variable's column holds numbers the loader reads right. */
bool anyLoadable(const SniffPlan &plan)
{
    for (size_t column : plan.variables)
        if (plan.columns[column].kind == Column::number && !plan.columns[column].wrong)
            return true;
    return false;
}

} // namespace

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
    if (!anyLoadable(plan))
        return host::unexpected(fmt::format(
            "{}: no column holds numbers the loader can read (see lines {}-{})", sample.name,
            plan.line(plan.firstRow()).number, plan.line(plan.lastRow()).number));
    findNamedSizes(plan);
    findNames(plan);
    if (plan.set.namesSearch == SearchMode::none && namesLength(plan.set.names) > maxSetText)
        return host::unexpected(fmt::format("{}: {} variables are more than a set can name",
                                            sample.name, plan.set.names.size()));
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
