/*
 * VariableSelectionDialog.h - the variable selection dialog ("Variables to load", dialog 7).
 */
#ifndef TW_VARIABLESELECTIONDIALOG_H
#define TW_VARIABLESELECTIONDIALOG_H

#include "CvnAPI.h"

namespace corvane::cvnutildataio {

extern LgIndex_t Dialog7Manager; /* host dialog id; CVNGUI_BAD_ID until built */

/* Creates the modal dialog once; later calls do nothing. */
void BuildDialog7(LgIndex_t ParentDialogID);

} // namespace corvane::cvnutildataio

#endif
