/*
 * Library.h - the instruction-set library: the directory of .twc files and
 * the 64 in-memory entries the main dialog works with (entry 0 = unsaved).
 */
#ifndef TW_LIBRARY_H
#define TW_LIBRARY_H

#include "Instructions.h"

namespace corvane::cvnutildataio {

/* *Dir becomes a new host string: $ORDALIS_DIR, else
   <home>/addonconfig/tabwise. False after "Out of memory". */
bool GetBaseInstructionSetDir(char **Dir);
void FillInstructionSetArray();
bool AddConfigToInstructionSetArray(TW_ConfigInstructions_s *Set);
void DeleteConfigFromInstructionSetArray(int Index);
bool FileNameExistsInInstructionSetArray(const char *Path);
void ClearInstructionSetArray(bool AskToSave);
TW_ConfigInstructions_s *GetCurConfigPtr();

} // namespace corvane::cvnutildataio

#endif
