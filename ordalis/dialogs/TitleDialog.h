/*
 * TitleDialog.h - the title dialog ("Dataset Title", dialog 3): where the
 * current instruction set takes the data set's title from.
 */
#ifndef TW_TITLEDIALOG_H
#define TW_TITLEDIALOG_H

#include "CvnAPI.h"

namespace corvane::cvnutildataio {

extern LgIndex_t Dialog3Manager; /* host dialog id; CVNGUI_BAD_ID until built */

/* Creates the modal dialog once; later calls do nothing. */
void BuildDialog3(LgIndex_t ParentDialogID);
/* Makes each control of the built dialog sensitive exactly when its
   radio item (or, for the width, the delimiter "Fixed") is chosen. */
void RefreshDialog3Sensitivities();

} // namespace corvane::cvnutildataio

#endif
