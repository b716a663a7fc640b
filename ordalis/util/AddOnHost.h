/*
 * AddOnHost.h - the add-on's standing with the host, for every layer: its
 * name, the id the host gave it (for the host lock), the platform flag of
 * the dialogs' text controls, and the error box that reports failures where
 * they happen.
 */
#ifndef TW_ADDONHOST_H
#define TW_ADDONHOST_H

#include "CvnAPI.h"

namespace corvane::cvnutildataio {

/* The loader's name: registered with the host, given at data-set creation,
   stored with the loader instructions, and named in messages. */
#define TW_LOADER_NAME "Ordalis Loader"

/* The id from CvnUtilAddOnRegister, passed to every CvnUtilLockStart and
   CvnUtilLockFinish; set once at start-up. */
extern AddOn_pa AddOnID;
/* The host's text controls hold at most 32000 characters; never set true
   by this host, read by the dialogs' text output. */
extern Boolean_t IsWin95;

/* Shows Text in the host's modal error box. */
void ShowDialogErrorMessage(const char *Text);

} // namespace corvane::cvnutildataio

#endif
