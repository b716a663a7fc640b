/*
 * VariablesDialog.h - the variable import dialog ("Variable Import Instructions", dialog 4).
 */
#ifndef TW_VARIABLESDIALOG_H
#define TW_VARIABLESDIALOG_H

#include "CvnAPI.h"

namespace corvane::cvnutildataio {

extern LgIndex_t Dialog4Manager; /* host dialog id; CVNGUI_BAD_ID until built */

/* Creates the modal dialog once; later calls do nothing. */
void BuildDialog4(LgIndex_t ParentDialogID);

} // namespace corvane::cvnutildataio

#endif
