/*
 * VariablesDialog.h - the variable import dialog ("Variable Import
 * Instructions", dialog 4): how the current instruction set finds its
 * variable names, and the way to the choice of variables to load.
 */
#ifndef TW_VARIABLESDIALOG_H
#define TW_VARIABLESDIALOG_H

#include <cstdint>

#include "CvnAPI.h"
#include "VarList.h"

namespace corvane::cvnutildataio {

extern LgIndex_t Dialog4Manager; /* host dialog id; CVNGUI_BAD_ID until built */

/* Creates the modal dialog once; later calls do nothing. */
void BuildDialog4(LgIndex_t ParentDialogID);
/* Applies the sensitivities of the built dialog: the scan controls in
   scan mode (the width only with "Fixed"), the names in enter mode, the
   "Select Variables to Load..." button when a data file is chosen. */
void RefreshDialog4Sensitivities();
/* True when the dialog's radio box reads "Enter Variable Names". */
bool TW_VariableNamesEntered();
/* Replaces *Names and *Count by the names typed into the dialog (see
   TW_ParseEnteredVarNames); returns their number. */
int32_t GetEnteredVarNames(TW_Variable_s **Names, int32_t *Count);

} // namespace corvane::cvnutildataio

#endif
