/*
 * RunOutputs.cpp - the outputs, layout and summary of a run.
 */
#include "RunOutputs.h"

#include <fmt/format.h>

#include "DataOutput.h"
#include "Layout.h"
#include "Lock.h"
#include "OutputFile.h"

namespace corvane::cli {

namespace {

/* The points of every zone together. */
LgIndex_t pointCount(const host::DataSet &set)
{
    LgIndex_t points = 0;
    for (const auto &zone : set.zones)
        points += zone.points();
    return points;
}

const char *plural(std::size_t count)
{
    return count == 1 ? "" : "s";
}

} // namespace

host::Expected<void> writeOutputs(const std::vector<OutputSpec> &outputs,
                                  const std::string &layoutPath,
                                  std::span<const host::DataSet> sets)
{
    std::vector<OutputFile> files;
    for (const auto &output : outputs) {
        auto file = OutputFile::create(output.path);
        if (!file)
            return host::unexpected(file.error());
        if (output.format == OutputFormat::json)
            writeJson(file->stream(), sets);
        else
            writeCsv(file->stream(), sets);
        files.push_back(std::move(*file));
    }
    if (!layoutPath.empty()) {
        auto file = OutputFile::create(layoutPath);
        if (!file)
            return host::unexpected(file.error());
        writeLayout(file->stream(), sets);
        files.push_back(std::move(*file));
    }
    for (auto &file : files) {
        if (auto done = file.commit(); !done)
            return done;
    }
    return {};
}

void printSummary(std::FILE *out, std::span<const host::DataSet> sets)
{
    for (const auto &set : sets) {
        auto points = static_cast<std::size_t>(pointCount(set));
        fmt::print(out, "{}: {} variable{}, {} zone{}, {} point{}\n", jsonString(set.title),
                   set.variables.size(), plural(set.variables.size()), set.zones.size(),
                   plural(set.zones.size()), points, plural(points));
    }
}

host::Expected<void> deliver(const Command &cmd, std::span<const host::DataSet> sets,
                             std::FILE *out)
{
    if (auto written = writeOutputs(cmd.outputs, cmd.saveLayout, sets); !written)
        return written;
    printSummary(out, sets);
    return {};
}

int concludeRun(const Command &cmd, int status, std::size_t firstNew, bool dialogsUp,
                std::FILE *out, std::FILE *err)
{
    if (auto imbalance = host::lockImbalance(); imbalance && !dialogsUp) {
        fmt::print(err, "corvane: {}\n", *imbalance);
        status = exitFailure;
    }
    if (status == exitSuccess) {
        auto made = std::span(host::dataSets()).subspan(firstNew);
        if (auto delivered = deliver(cmd, made, out); !delivered) {
            fmt::print(err, "corvane: {}\n", delivered.error());
            status = exitFailure;
        }
    }
    return status;
}

} // namespace corvane::cli
