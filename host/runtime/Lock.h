/*
 * Lock.h - the nestable add-on lock, with a check for tests that every
 * start was finished.
 */
#ifndef CORVANE_HOST_LOCK_H
#define CORVANE_HOST_LOCK_H

namespace corvane::host {

/* Current nesting depth of CvnUtilLockStart/LockOn pairs. */
int lockDepth();
/* Number of CvnUtilLockFinish/LockOff calls without a matching start. */
int unbalancedLockFinishes();
void resetLock();

} // namespace corvane::host

#endif
