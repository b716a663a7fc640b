/*
 * CheckRun.cpp - one run of corvane check.
 */
#include "CheckRun.h"

#include <memory>
#include <set>
#include <span>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include "AddOns.h"
#include "ConsoleUi.h"
#include "Lock.h"
#include "Replay.h"
#include "RunOutputs.h"
#include "StoredLoad.h"

namespace corvane::cli {
namespace {

/* The load as corvane load makes it; the index of its data set among the
   host's, or nothing after the loader's messages. stopped: lines whose
   question was answered No. */
std::optional<size_t> load(const Command &cmd, const Io &io, std::set<int> &stopped)
{
    host::ConsoleOptions options = consoleOptions(cmd, io);
    long boxes = 0;
    options.onEvent = [&boxes, &stopped](const host::UiEvent &event) {
        if (event.kind == host::UiEvent::Kind::error || event.kind == host::UiEvent::Kind::message)
            ++boxes;
        if (auto line = inspect::stoppedLine(event))
            stopped.insert(*line);
    };
    auto console = std::make_shared<host::ConsoleUi>(std::move(options));
    host::ScopedUserInterface ui(console);

    if (!loadCommandAddOn(cmd, io))
        return std::nullopt;
    size_t before = host::dataSets().size();
    auto told = [&boxes, &console] { return boxes + console->cancelsPressed(); };
    bool loadedData = replayAll({{"Ordalis Loader", {cmd.dataFile, cmd.instructions}}}, told,
                                io.err);
    if (auto imbalance = host::lockImbalance()) {
        fmt::print(io.err, "corvane: {}\n", *imbalance);
        loadedData = false;
    }
    std::optional<size_t> made;
    if (loadedData && host::dataSets().size() > before)
        made = host::dataSets().size() - 1;
    host::quit();
    host::resetAddOns();
    return made;
}

nlohmann::json dataSetJson(const host::DataSet &set)
{
    LgIndex_t points = 0;
    for (const auto &zone : set.zones)
        points += zone.points();
    return {{"title", set.title},
            {"variables", set.variables},
            {"zones", set.zones.size()},
            {"points", points}};
}

} // namespace

int runCheck(const Command &cmd, const Io &io)
{
    std::set<int> stopped;
    auto index = load(cmd, io, stopped);
    if (!index)
        return exitFailure;
    const host::DataSet &made = host::dataSets()[*index];

    auto report = inspect::checkStoredLoad({cmd.dataFile, cmd.instructions}, stopped);
    if (!report) {
        fmt::print(io.err, "corvane: cannot check: {}\n", report.error());
        return exitFailure;
    }
    if (cmd.json) {
        nlohmann::json out = inspect::reportJson(*report);
        out["dataSet"] = dataSetJson(made);
        fmt::print(io.out, "{}\n", out.dump(2));
    } else {
        printSummary(io.out, std::span(&made, 1));
        std::fputs(inspect::reportText(*report).c_str(), io.out);
    }
    return report->found() > 0 ? exitFound : exitSuccess;
}

} // namespace corvane::cli
