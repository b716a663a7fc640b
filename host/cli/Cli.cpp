/*
 * Cli.cpp - one run of the command line, from the parsed command to the
 * exit status.
 */
#include "Cli.h"

#include <cerrno>
#include <cstring>
#include <memory>
#include <span>

#include <fmt/format.h>

#include "AddOns.h"
#include "CommandLine.h"
#include "ConsoleUi.h"
#include "DataModel.h"
#include "DataOutput.h"
#include "Layout.h"
#include "OutputFile.h"

namespace corvane::cli {
namespace {

struct FileCloser {
    void operator()(std::FILE *file) const { std::fclose(file); }
};
using FilePtr = std::unique_ptr<std::FILE, FileCloser>;

/* The points of every zone together. */
LgIndex_t pointCount(const host::DataSet &set)
{
    LgIndex_t points = 0;
    for (const auto &zone : set.zones)
        points += zone.points();
    return points;
}

/* One line per data set on standard output: title, variables, zones. */
void printSummary(std::FILE *out, std::span<const host::DataSet> sets)
{
    for (const auto &set : sets) {
        fmt::print(out, "{}: {} variable{}, {} zone{}, {} point{}\n", jsonString(set.title),
                   set.variables.size(), set.variables.size() == 1 ? "" : "s",
                   set.zones.size(), set.zones.size() == 1 ? "" : "s", pointCount(set),
                   pointCount(set) == 1 ? "" : "s");
    }
}

/* Writes every output and the layout: all to temporary files first, then
   all renamed, so that a failing one leaves none of them behind. */
host::Expected<void> writeOutputs(const Command &cmd, std::span<const host::DataSet> sets)
{
    std::vector<OutputFile> files;
    for (const auto &output : cmd.outputs) {
        auto file = OutputFile::create(output.path);
        if (!file)
            return host::unexpected(file.error());
        if (output.format == OutputFormat::json)
            writeJson((*file).stream(), sets);
        else
            writeCsv((*file).stream(), sets);
        files.push_back(std::move(*file));
    }
    if (!cmd.saveLayout.empty()) {
        auto file = OutputFile::create(cmd.saveLayout);
        if (!file)
            return host::unexpected(file.error());
        writeLayout((*file).stream(), sets);
        files.push_back(std::move(*file));
    }
    for (auto &file : files) {
        if (auto done = file.commit(); !done)
            return done;
    }
    return {};
}

/* Replays the loads in order, stopping at the first that fails. */
bool replayAll(const std::vector<host::LoaderInstructions> &loads, std::FILE *err)
{
    for (const auto &load : loads) {
        auto result = host::replayLoad(load.loader, load.strings);
        if (!result) {
            fmt::print(err, "corvane: {}\n", result.error());
            return false;
        }
        if (!*result)
            return false;
    }
    return true;
}

int runCommand(const Command &cmd, const Io &io)
{
    std::vector<host::LoaderInstructions> loads;
    if (cmd.kind == CommandKind::replay) {
        auto layout = readLayout(cmd.layoutFile);
        if (!layout) {
            std::fputs(usageMessage(layout.error()).c_str(), io.err);
            return exitUsage;
        }
        loads = std::move(*layout);
    } else {
        loads.push_back({"Ordalis Loader", {cmd.dataFile, cmd.instructions}});
    }

    FilePtr transcript;
    if (!cmd.transcript.empty()) {
        transcript.reset(std::fopen(cmd.transcript.c_str(), "w"));
        if (!transcript) {
            std::fputs(usageMessage(fmt::format("cannot write --transcript {}: {}",
                                                cmd.transcript, std::strerror(errno)))
                           .c_str(),
                       io.err);
            return exitUsage;
        }
    }

    host::ConsoleOptions options;
    options.answers = cmd.answers;
    options.policy = cmd.policy;
    options.cancelAt = cmd.cancelAt;
    options.quiet = cmd.quiet;
    options.in = io.in;
    options.err = io.err;
    if (transcript) {
        options.onEvent = [file = transcript.get()](const host::UiEvent &event) {
            fmt::print(file, "{}\n", host::toJsonLine(event));
            std::fflush(file);
        };
    }
    host::ScopedUserInterface ui(std::make_shared<host::ConsoleUi>(std::move(options)));

    std::string addOnPath = cmd.addOnPath.empty() ? host::defaultAddOnPath() : cmd.addOnPath;
    if (auto loaded = host::loadAddOn(addOnPath); !loaded) {
        fmt::print(io.err, "corvane: {}\n", loaded.error());
        host::resetAddOns();
        return exitFailure;
    }

    size_t before = host::dataSets().size();
    int status = replayAll(loads, io.err) ? exitSuccess : exitFailure;
    if (status == exitSuccess) {
        auto made = std::span(host::dataSets()).subspan(before);
        if (auto written = writeOutputs(cmd, made); !written) {
            fmt::print(io.err, "corvane: {}\n", written.error());
            status = exitFailure;
        } else {
            printSummary(io.out, made);
        }
    }
    host::quit();
    host::resetAddOns();
    return status;
}

} // namespace

int run(const std::vector<std::string> &args, Io io)
{
    if (!io.in)
        io.in = stdin;
    if (!io.out)
        io.out = stdout;
    if (!io.err)
        io.err = stderr;
    auto parsed = parseCommandLine(args);
    if (auto *stop = std::get_if<ParseStop>(&parsed)) {
        std::fputs(stop->out.c_str(), io.out);
        std::fputs(stop->err.c_str(), io.err);
        return stop->status;
    }
    int status = runCommand(std::get<Command>(parsed), io);
    std::fflush(io.out);
    return status;
}

} // namespace corvane::cli
