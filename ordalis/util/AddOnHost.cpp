/*
 * AddOnHost.cpp - the add-on's id, its platform flag and its error box.
 */
#include "AddOnHost.h"

namespace corvane::cvnutildataio {

AddOn_pa AddOnID = nullptr; /* from CvnUtilAddOnRegister at start-up */
Boolean_t IsWin95 = FALSE;  /* never set true */

void ShowDialogErrorMessage(const char *Text)
{
    CvnUtilDialogErrMsg(Text);
}

} // namespace corvane::cvnutildataio
