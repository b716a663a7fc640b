/*
 * Cli.cpp - one run of the command line, from the parsed command to the
 * exit status.
 */
#include "Cli.h"

#include <functional>
#include <memory>
#include <span>

#include <fmt/format.h>

#include "AddOns.h"
#include "BrowserRun.h"
#include "CheckRun.h"
#include "CommandLine.h"
#include "ConsoleUi.h"
#include "DataModel.h"
#include "Faults.h"
#include "Layout.h"
#include "Replay.h"
#include "Lock.h"
#include "RunOutputs.h"
#include "SniffRun.h"
#include "TranscriptFile.h"
#include "UiRun.h"

namespace corvane::cli {
namespace {

/* Loads or replays: the loader's replay callback, without dialogs. */
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

    auto transcript = TranscriptFile::open(cmd.transcript);
    if (!transcript) {
        std::fputs(usageMessage(transcript.error()).c_str(), io.err);
        return exitUsage;
    }

    host::ConsoleOptions options = consoleOptions(cmd, io);
    long boxes = 0; /* error and message boxes shown */
    options.onEvent = [&boxes, write = transcript->writer()](const host::UiEvent &event) {
        if (event.kind == host::UiEvent::Kind::error || event.kind == host::UiEvent::Kind::message)
            ++boxes;
        if (write)
            write(event);
    };
    auto console = std::make_shared<host::ConsoleUi>(std::move(options));
    host::ScopedUserInterface ui(console);

    if (!loadCommandAddOn(cmd, io))
        return exitFailure;

    size_t before = host::dataSets().size();
    auto told = [&boxes, &console] { return boxes + console->cancelsPressed(); };
    int status = replayAll(loads, told, io.err) ? exitSuccess : exitFailure;
    status = concludeRun(cmd, status, before, false, io.out, io.err);
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
    Command &cmd = std::get<Command>(parsed);
    if (cmd.kind == CommandKind::sniff)
        return runSniff(cmd, io);
    if (cmd.sniff && !useSniffedSet(cmd, io))
        return exitFailure;
    host::resetLock();
    host::failHostAllocationFromEnvironment();
    int status = cmd.kind == CommandKind::ui        ? runUi(cmd, io)
                 : cmd.kind == CommandKind::browser ? server::runBrowser(cmd, io)
                 : cmd.kind == CommandKind::check   ? runCheck(cmd, io)
                                                    : runCommand(cmd, io);
    host::reportHostAllocationsToEnvironment();
    std::fflush(io.out);
    return status;
}

} // namespace corvane::cli
