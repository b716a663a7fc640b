/*
 * SniffRun.h - corvane sniff: the instruction set proposed for a data file,
 * written or printed with its explanation; and load --sniff, which loads
 * with it.
 */
#ifndef CORVANE_CLI_SNIFFRUN_H
#define CORVANE_CLI_SNIFFRUN_H

#include "Cli.h"
#include "CommandLine.h"

namespace corvane::cli {

/* Proposes the set for cmd.dataFile: with -o writes it there and prints
   the explanation, else prints the set (its explanation in comments).
   exitSuccess, or exitFailure with the reason on err (the file cannot be
   read, holds no data, the set cannot be written). */
int runSniff(const Command &cmd, const Io &io);

/* load --sniff: makes the proposed set cmd's instructions; false after
   saying on err why there is none. */
bool useSniffedSet(Command &cmd, const Io &io);

} // namespace corvane::cli

#endif
