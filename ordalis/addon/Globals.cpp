/*
 * Globals.cpp - the add-on's global state. Set at start-up by
 * InitCvnAddOn113, freed at the host's quit state change.
 */
#include "Globals.h"

namespace corvane::cvnutildataio {

AddOn_pa AddOnID = nullptr;               /* from CvnUtilAddOnRegister */
Boolean_t IsWin95 = FALSE;                /* never set true */
Boolean_t GlobalCancelled = FALSE;        /* set by progress checks, cleared per load */
TW_DoubleArray_s *GlobalLineBuffer = nullptr;  /* one scanned line's values */
TW_ConfigInstructions_s *LastUsedConfig = nullptr; /* set of the last dialog load */
TW_ConfigInstructions_s *GlobalConfigInfoArray[TW_MAX_CONFIGS] = {}; /* the library */
TW_FileInfo_s *GlobalFileInfo = nullptr;  /* chosen file of the open main dialog */

void ShowDialogErrorMessage(const char *Text)
{
    CvnUtilDialogErrMsg(Text);
}

} // namespace corvane::cvnutildataio
