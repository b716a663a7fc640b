/*
 * Progress.cpp - the progress check and the cancel flag.
 */
#include "Progress.h"

namespace corvane::cvnutildataio {

Boolean_t GlobalCancelled = FALSE;

bool TW_CheckPercentDone(int Percent)
{
    if (Percent > 100)
        Percent = 100;
    bool GoOn = CvnUtilDialogCheckPercentDone(Percent) != FALSE;
    GlobalCancelled = GoOn ? FALSE : TRUE;
    return GoOn;
}

} // namespace corvane::cvnutildataio
