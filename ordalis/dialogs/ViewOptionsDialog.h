/*
 * ViewOptionsDialog.h - the view options dialog ("View Options", dialog 2).
 */
#ifndef TW_VIEWOPTIONSDIALOG_H
#define TW_VIEWOPTIONSDIALOG_H

#include "CvnAPI.h"

namespace corvane::cvnutildataio {

extern LgIndex_t Dialog2Manager; /* host dialog id; CVNGUI_BAD_ID until built */

/* Creates the modal dialog once; later calls do nothing. */
void BuildDialog2(LgIndex_t ParentDialogID);

} // namespace corvane::cvnutildataio

#endif
