/*
 * Reader.h - the instruction-set text reader: the keyword table, the
 * tokenizer, the section parser and instruction-set files.
 */
#ifndef TW_READER_H
#define TW_READER_H

#include "Instructions.h"

namespace corvane::cvnutildataio {

#define TW_MAGIC_LINE "#!CORVANE_TABWISE"

/* Parses Text into Rec (filled with defaults by the caller). FileName is
   used only in messages. A syntax error shows one dialog and ends the parse
   with Rec holding what was read before it. */
void ScanInstructionSet(const char *FileName, const char *Text, TW_ConfigInstructions_s *Rec);
/* True when the first non-blank line of the file holds "#!CORVANE_TABWISE". */
bool IsInstructionSetFile(const char *Path);
/* Reads the file into a new record *Rec. False (after a message) when the
   file cannot be read; a syntax error inside does not make it fail. */
bool LoadConfigFile(const char *Path, TW_ConfigInstructions_s **Rec);

} // namespace corvane::cvnutildataio

#endif
