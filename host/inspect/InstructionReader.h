/*
 * InstructionReader.h - instruction-set text (the file layout of a .twc
 * file or the compact layout stored with a load) read into an
 * InstructionSet, following the loader's language: sections in braces,
 * KEY = value assignments, keywords in any case, '#' comments.
 */
#ifndef CORVANE_INSPECT_INSTRUCTIONREADER_H
#define CORVANE_INSPECT_INSTRUCTIONREADER_H

#include <string_view>

#include "Expected.h"
#include "InstructionSet.h"

namespace corvane::inspect {

/* The set the text describes, from the defaults up. Where the loader
   would stop at a syntax error, the error is "line N: what was expected"
   (lines counted from 1). */
host::Expected<InstructionSet> readInstructionSet(std::string_view text);

} // namespace corvane::inspect

#endif
