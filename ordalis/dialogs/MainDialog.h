/*
 * MainDialog.h - the main import dialog ("Ordalis Loader", dialog 1): the
 * chosen data file, the dialog's construction and its launch.
 */
#ifndef TW_MAINDIALOG_H
#define TW_MAINDIALOG_H

#include "CvnAPI.h"

namespace corvane::cvnutildataio {

extern LgIndex_t Dialog1Manager; /* host dialog id; CVNGUI_BAD_ID until built */

/* Makes FileName (or, with NULL and AskUser, a file the user picks) the
   chosen data file. True on success. */
bool ResetFile(const char *FileName, bool AskUser);
/* Creates the modal dialog once; later calls do nothing. */
void BuildDialog1(LgIndex_t ParentDialogID);

} // namespace corvane::cvnutildataio

#endif
