/*
 * Replay.h - stored loads replayed through their loaders, in order, as a
 * host replaying a layout does.
 */
#ifndef CORVANE_CLI_REPLAY_H
#define CORVANE_CLI_REPLAY_H

#include <cstdio>
#include <functional>
#include <vector>

#include "Cli.h"
#include "CommandLine.h"
#include "ConsoleUi.h"
#include "DataModel.h"

namespace corvane::cli {

/* Replays the loads in order, stopping at the first that fails. told
   counts what the user was told or did so far (boxes shown, Cancel
   pressed): a load that fails without either (the loader may fail
   silently, for instance when the host had no memory for an argument list)
   is reported here, so that no run fails without a word. */
bool replayAll(const std::vector<host::LoaderInstructions> &loads,
               const std::function<long()> &told, std::FILE *err);

/* The console's options for a run of cmd: its answers, answer policy,
   cancel point and quietness, on the run's streams; onEvent is left to
   the caller. */
host::ConsoleOptions consoleOptions(const Command &cmd, const Io &io);

/* Loads the add-on cmd names (by default the one beside the host library);
   false after saying why on io.err, with the host's add-ons reset. */
bool loadCommandAddOn(const Command &cmd, const Io &io);

} // namespace corvane::cli

#endif
