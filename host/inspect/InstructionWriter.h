/*
 * InstructionWriter.h - an InstructionSet written as the text of a .twc
 * file: the first line, comment lines, then the sections with what differs
 * from a new set's defaults spelt out.
 */
#ifndef CORVANE_INSPECT_INSTRUCTIONWRITER_H
#define CORVANE_INSPECT_INSTRUCTIONWRITER_H

#include <string>
#include <vector>

#include "InstructionSet.h"

namespace corvane::inspect {

/* The set's text; each comment becomes a "# " line after the first line. */
std::string writeInstructionSet(const InstructionSet &set,
                                const std::vector<std::string> &comments = {});

/* text in double quotes as the set language writes it (\" and \\). */
std::string quoted(const std::string &text);

} // namespace corvane::inspect

#endif
