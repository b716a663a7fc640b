/*
 * RunOutputs.h - what a run that loaded data sets leaves behind: the
 * outputs (-o) and the layout (--save-layout), and one summary line per
 * data set on standard output.
 */
#ifndef CORVANE_CLI_RUNOUTPUTS_H
#define CORVANE_CLI_RUNOUTPUTS_H

#include <cstdio>
#include <span>
#include <string>
#include <vector>

#include "CommandLine.h"
#include "DataModel.h"
#include "Expected.h"

namespace corvane::cli {

/* Writes the data sets to every output and their loads to the layout (none
   when the path is empty): all to temporary files first, then all renamed,
   so that a failing one leaves none of them behind. */
host::Expected<void> writeOutputs(const std::vector<OutputSpec> &outputs,
                                  const std::string &layoutPath,
                                  std::span<const host::DataSet> sets);

/* One line per data set: title, variables, zones and points, e.g.
   "Two probe traverses": 2 variables, 2 zones, 5 points */
void printSummary(std::FILE *out, std::span<const host::DataSet> sets);

/* The end of a run that succeeded: the command's outputs and layout
   written, then the summary printed on out. The error says which file could
   not be written (and nothing is printed). */
host::Expected<void> deliver(const Command &cmd, std::span<const host::DataSet> sets,
                             std::FILE *out);

/* The end of a run whose steps ended with status: an add-on that left the
   host lock taken fails the run (unless dialogs are still up, which hold
   it); a run that succeeded then delivers the data sets made from
   firstNew on. Failures are said on err. The run's exit status. */
int concludeRun(const Command &cmd, int status, std::size_t firstNew, bool dialogsUp,
                std::FILE *out, std::FILE *err);

} // namespace corvane::cli

#endif
