/*
 * BrowserRun.h - corvane ui without --script: the loader's dialogs in a
 * browser.
 */
#ifndef CORVANE_SERVER_BROWSERRUN_H
#define CORVANE_SERVER_BROWSERRUN_H

#include "Cli.h"
#include "CommandLine.h"

namespace corvane::server {

/* Serves the browser front end on 127.0.0.1 (cmd.port, 0: a free one),
   prints "Open URL" on io.out, opens the browser unless cmd.noOpen, loads
   the add-on and runs until SIGINT or SIGTERM; then stops the server,
   answers a waiting box as cancelled or No and quits the add-on. The exit
   status: exitSuccess after a signal, exitFailure when the server could
   not listen or the add-on not load, exitUsage when the transcript cannot
   be written. */
int runBrowser(const cli::Command &cmd, const cli::Io &io);

} // namespace corvane::server

#endif
