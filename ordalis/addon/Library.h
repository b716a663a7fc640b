/*
 * Library.h - the instruction-set library: the directory of .twc files,
 * the 64 in-memory entries the main dialog works with (entry 0 = unsaved),
 * and the set of the last load from the dialog.
 */
#ifndef TW_LIBRARY_H
#define TW_LIBRARY_H

#include "Instructions.h"

namespace corvane::cvnutildataio {

#define TW_MAX_CONFIGS 64 /* entries of the library, entry 0 included */

extern TW_ConfigInstructions_s *GlobalConfigInfoArray[TW_MAX_CONFIGS];
extern TW_ConfigInstructions_s *LastUsedConfig;

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
