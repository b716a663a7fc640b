/*
 * InstructionSetList.h - the main dialog's list of instruction sets and the
 * buttons that manage it: New, Load..., Save..., Rename..., Delete and the
 * "Show Full Path" toggle.
 */
#ifndef TW_INSTRUCTIONSETLIST_H
#define TW_INSTRUCTIONSETLIST_H

#include "CvnAPI.h"
#include "Instructions.h"

namespace corvane::cvnutildataio {

/* The list of dialog 1; CVNGUI_BAD_ID until the dialog is built. */
extern LgIndex_t InstrSet_SLST_D1;
/* The list shows full paths (true) or file names (false). */
extern bool MainDialog_ShowFullPath;

/* Refills the list from the library: one item per set until the first
   empty entry, its full path or file name, with " *" behind a modified
   set. Selects the item selected before (KeepSelection) or item 1. */
void DlgUpdateConfigFileListBox(bool KeepSelection, bool ShowFullPath);
/* Asks for a file name ("untitled.twc" in the library folder proposed for
   a set never saved, else its own file) and saves Set there, after asking
   before overwriting another file. The set then belongs to that file. */
void DlgSaveConfigFile(TW_ConfigInstructions_s *Set);

/* Callbacks of the list and its controls. */
void InstrSet_SLST_D1_CB(const LgIndex_t *Item);
void New_BTN_D1_CB(void);
void Load_BTN_D1_CB(void);
void Save_BTN_D1_CB(void);
void Rename_BTN_D1_CB(void);
void Delete_BTN_D1_CB(void);
void ShowISPath_TOG_D1_CB(const LgIndex_t *Value);

} // namespace corvane::cvnutildataio

#endif
