/*
 * CheckRun.h - corvane check: a load as corvane load makes it, then every
 * place where the loaded numbers may differ from what the file means.
 */
#ifndef CORVANE_CLI_CHECKRUN_H
#define CORVANE_CLI_CHECKRUN_H

#include "Cli.h"
#include "CommandLine.h"

namespace corvane::cli {

/* Loads cmd.dataFile with cmd's instructions (questions answered as for
   load), then checks it: the summary or, with --json, every place on
   standard output. exitSuccess when nothing was found, exitFound when
   something was, exitFailure when the load failed or the set cannot be
   read. */
int runCheck(const Command &cmd, const Io &io);

} // namespace corvane::cli

#endif
