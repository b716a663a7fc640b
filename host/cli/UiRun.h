/*
 * UiRun.h - corvane ui --script: the loader's dialogs driven by a script,
 * as a user would drive them.
 */
#ifndef CORVANE_CLI_UIRUN_H
#define CORVANE_CLI_UIRUN_H

#include "Cli.h"
#include "CommandLine.h"

namespace corvane::cli {

/* Loads the add-on, opens its loader as a user picking it from the load
   menu, runs the script's steps in order and stops at the first that
   fails; then writes the outputs of a run that succeeded and quits the
   add-on, leaving the dialogs still up as they are until the host ends.
   The exit status: exitSuccess, exitFailure (a step failed, the add-on or
   an output), exitUsage (the script cannot be parsed, the transcript not
   written). */
int runUi(const Command &cmd, const Io &io);

} // namespace corvane::cli

#endif
