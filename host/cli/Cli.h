/*
 * Cli.h - the corvane command line as a function: what main() runs, and
 * what tests call in process.
 */
#ifndef CORVANE_CLI_CLI_H
#define CORVANE_CLI_CLI_H

#include <cstdio>
#include <string>
#include <vector>

namespace corvane::cli {

/* The streams of a run; null means the process's own. */
struct Io {
    std::FILE *in = nullptr;
    std::FILE *out = nullptr;
    std::FILE *err = nullptr;
};

/* Runs the command line args (args[0] is the program name): loads the
   add-on, replays the loads, writes the outputs, quits the add-on.
   Returns the exit status (exitSuccess, exitFailure, exitUsage). Throws
   only what the standard library throws (std::bad_alloc and the like). */
int run(const std::vector<std::string> &args, Io io = {});

} // namespace corvane::cli

#endif
