/*
 * Sniff.h - an instruction set proposed for a data file never seen
 * before, as a careful user would write it, with the explanation of each
 * line range's role and of every choice sniff was unsure of.
 */
#ifndef CORVANE_INSPECT_SNIFF_H
#define CORVANE_INSPECT_SNIFF_H

#include <optional>
#include <string>
#include <vector>

#include "Expected.h"
#include "FileSample.h"
#include "InstructionSet.h"

namespace corvane::inspect {

struct Proposal {
    InstructionSet set;
    std::vector<std::string> explanation; /* one line each */
    std::string text; /* the set's text, the explanation in comments at its top */
};

/* The proposal for the sample; title, when given, is the data set's
   title. The error says why there is none (no line holds numbers). */
host::Expected<Proposal> sniffSample(const FileSample &sample,
                                     const std::optional<std::string> &title = std::nullopt);

/* The same for the file at path. */
host::Expected<Proposal> sniffFile(const std::string &path,
                                   const std::optional<std::string> &title = std::nullopt);

} // namespace corvane::inspect

#endif
