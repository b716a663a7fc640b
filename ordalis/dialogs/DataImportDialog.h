/*
 * DataImportDialog.h - the data import dialog ("Data Import Instructions", dialog 5).
 */
#ifndef TW_DATAIMPORTDIALOG_H
#define TW_DATAIMPORTDIALOG_H

#include "CvnAPI.h"

namespace corvane::cvnutildataio {

extern LgIndex_t Dialog5Manager; /* host dialog id; CVNGUI_BAD_ID until built */

/* Creates the modal dialog once; later calls do nothing. */
void BuildDialog5(LgIndex_t ParentDialogID);

} // namespace corvane::cvnutildataio

#endif
