/*
 * Lock.h - the nestable add-on lock, with a check for tests that every
 * start was finished.
 */
#ifndef CORVANE_HOST_LOCK_H
#define CORVANE_HOST_LOCK_H

#include <optional>
#include <string>

namespace corvane::host {

/* Current nesting depth of CvnUtilLockStart/LockOn pairs. */
int lockDepth();
/* Number of CvnUtilLockFinish/LockOff calls without a matching start. */
int unbalancedLockFinishes();
void resetLock();
/* What is wrong with the lock when an add-on left it taken or finished it
   more often than it started it; nothing when it is balanced. Front ends
   report it at the end of a run. */
std::optional<std::string> lockImbalance();

} // namespace corvane::host

#endif
