/*
 * Check.h - where a load of a data file under an instruction set may give
 * other numbers than the file means: the loader's scan replayed on the
 * host and every detector run over it.
 */
#ifndef CORVANE_INSPECT_CHECK_H
#define CORVANE_INSPECT_CHECK_H

#include <set>
#include <string>

#include "CheckReport.h"
#include "Expected.h"
#include "InstructionSet.h"

namespace corvane::inspect {

/* The report for the file at path (named file in the report) under set;
   stoppedLines: the lines whose question about a malformed value was
   answered No in the load. The error says why the file cannot be read. */
host::Expected<CheckReport> checkFile(const std::string &path, const std::string &file,
                                      const InstructionSet &set,
                                      const std::set<int> &stoppedLines = {});

} // namespace corvane::inspect

#endif
