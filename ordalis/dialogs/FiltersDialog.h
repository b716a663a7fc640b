/*
 * FiltersDialog.h - the general filters dialog ("General Filters", dialog 6).
 */
#ifndef TW_FILTERSDIALOG_H
#define TW_FILTERSDIALOG_H

#include "CvnAPI.h"

namespace corvane::cvnutildataio {

extern LgIndex_t Dialog6Manager; /* host dialog id; CVNGUI_BAD_ID until built */

/* Creates the modal dialog once; later calls do nothing. */
void BuildDialog6(LgIndex_t ParentDialogID);

} // namespace corvane::cvnutildataio

#endif
