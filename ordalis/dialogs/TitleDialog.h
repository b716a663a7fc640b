/*
 * TitleDialog.h - the title dialog ("Dataset Title", dialog 3).
 */
#ifndef TW_TITLEDIALOG_H
#define TW_TITLEDIALOG_H

#include "CvnAPI.h"

namespace corvane::cvnutildataio {

extern LgIndex_t Dialog3Manager; /* host dialog id; CVNGUI_BAD_ID until built */

/* Creates the modal dialog once; later calls do nothing. */
void BuildDialog3(LgIndex_t ParentDialogID);

} // namespace corvane::cvnutildataio

#endif
