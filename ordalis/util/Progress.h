/*
 * Progress.h - the progress check of long work (the scan and the transfer)
 * and the cancel flag it leaves behind.
 */
#ifndef TW_PROGRESS_H
#define TW_PROGRESS_H

#include "CvnAPI.h"

namespace corvane::cvnutildataio {

/* Set when the user pressed Cancel in a progress box; cleared by whoever
   starts a load, a scan for the preview or a variable scan. A cancel is
   silent: callers tell it from a failure by this flag. */
extern Boolean_t GlobalCancelled;

/* Clamps Percent to 100, asks the host's progress box, sets GlobalCancelled
   to the negated answer and returns the answer (false: the user
   cancelled). */
bool TW_CheckPercentDone(int Percent);

} // namespace corvane::cvnutildataio

#endif
