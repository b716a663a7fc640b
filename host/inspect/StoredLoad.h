/*
 * StoredLoad.h - check of a load as the host stores it with its data set:
 * the loader-instruction strings (the data file, then the instruction set's
 * text or a CONFIGFNAME reference to a set file), for the command line and
 * for front ends that show the report after a load.
 */
#ifndef CORVANE_INSPECT_STOREDLOAD_H
#define CORVANE_INSPECT_STOREDLOAD_H

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "CheckReport.h"
#include "Expected.h"
#include "Transcript.h"

namespace corvane::inspect {

/* The instruction text a loader-instruction string stands for: the string
   itself, or the content of the file a CONFIGFNAME reference names (the
   reference read as the loader reads it). The error names the file. */
host::Expected<std::string> instructionText(const std::string &instructions);

/* The check of the stored load strings; stoppedLines as for checkFile.
   The error says why: too few strings, a set file that cannot be read, a
   set that does not read, a data file that cannot be read. */
host::Expected<CheckReport> checkStoredLoad(const std::vector<std::string> &strings,
                                            const std::set<int> &stoppedLines = {});

/* The line of the loader's question about a malformed value when the event
   is that question answered No (the load stopped taking values there), for
   the stoppedLines of a check. */
std::optional<int> stoppedLine(const host::UiEvent &event);

} // namespace corvane::inspect

#endif
