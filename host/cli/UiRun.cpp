/*
 * UiRun.cpp - one scripted dialog run, from the parsed command to the exit
 * status.
 */
#include "UiRun.h"

#include <algorithm>
#include <memory>
#include <span>

#include <fmt/format.h>

#include "AddOns.h"
#include "DataModel.h"
#include "Gui.h"
#include "GuiState.h"
#include "HostShutdown.h"
#include "Lock.h"
#include "RunOutputs.h"
#include "Script.h"
#include "ScriptRunUi.h"
#include "ScriptRunner.h"
#include "TranscriptFile.h"

namespace corvane::cli {

namespace {

/* The loader a user picks from the host's load menu: the first one
   registered with a loader-selected callback. */
const host::Loader *menuLoader()
{
    const auto &all = host::loaders();
    auto found = std::find_if(all.begin(), all.end(), [](const host::Loader &loader) {
        return loader.selectedCallback != nullptr;
    });
    return found != all.end() ? &*found : nullptr;
}

/* Opens the loader, then runs the lines in order; at the first step that
   fails, or that raised a box nothing answered, says why on err and stops. */
int runSteps(ScriptRunner &runner, ScriptRunUi &ui, const std::vector<script::Line> &lines,
             const std::string &scriptName, const std::string &loaderName, std::FILE *err)
{
    auto failed = [&](const host::Expected<void> &done) -> std::optional<std::string> {
        std::optional<std::string> problem = ui.takeProblem();
        if (!done)
            return done.error();
        return problem;
    };
    if (auto why = failed(runner.open())) {
        fmt::print(err, "corvane: {}: opening {}: {}\n", scriptName, loaderName, *why);
        return exitFailure;
    }
    for (const script::Line &line : lines) {
        if (auto why = failed(runner.run(line.step))) {
            fmt::print(err, "corvane: {}:{}: {}\n", scriptName, line.number, *why);
            return exitFailure;
        }
    }
    return exitSuccess;
}

} // namespace

int runUi(const Command &cmd, const Io &io)
{
    auto lines = script::parse(cmd.scriptText, cmd.scriptFile);
    if (!lines) {
        std::fputs(usageMessage(lines.error()).c_str(), io.err);
        return exitUsage;
    }
    auto transcript = TranscriptFile::open(cmd.transcript);
    if (!transcript) {
        std::fputs(usageMessage(transcript.error()).c_str(), io.err);
        return exitUsage;
    }
    auto ui = std::make_shared<ScriptRunUi>(io.err, cmd.quiet, transcript->writer());
    host::ScopedUserInterface scoped(ui);

    std::string addOnPath = cmd.addOnPath.empty() ? host::defaultAddOnPath() : cmd.addOnPath;
    if (auto loaded = host::loadAddOn(addOnPath); !loaded) {
        fmt::print(io.err, "corvane: {}\n", loaded.error());
        host::shutDown();
        return exitFailure;
    }
    const host::Loader *loader = menuLoader();
    if (loader == nullptr) {
        fmt::print(io.err, "corvane: {} registered no loader with a dialog to open\n", addOnPath);
        host::shutDown();
        return exitFailure;
    }
    std::string loaderName = loader->name; /* the list may change while the loader runs */

    std::size_t before = host::dataSets().size();
    ScriptRunner runner(*ui, loaderName, before);
    int status = runSteps(runner, *ui, *lines, cmd.scriptFile, loaderName, io.err);
    status = concludeRun(cmd, status, before, !host::gui::snapshot().dialogs.empty(), io.out,
                         io.err);
    host::shutDown();
    return status;
}

} // namespace corvane::cli
