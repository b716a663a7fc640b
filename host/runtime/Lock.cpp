/*
 * Lock.cpp - the host lock. The host runs every add-on call on one thread,
 * so the lock is a nesting counter; what matters is that every start is
 * finished, which tests check through lockDepth().
 */
#include "Lock.h"

#include "CvnAPI.h"

namespace corvane::host {

namespace {
int depth = 0;      /* starts not yet finished; reset by resetLock */
int unbalanced = 0; /* finishes that found the lock already free; reset by resetLock */

void lockEnter()
{
    ++depth;
}

void lockLeave()
{
    if (depth == 0)
        ++unbalanced;
    else
        --depth;
}
} // namespace

int lockDepth()
{
    return depth;
}

int unbalancedLockFinishes()
{
    return unbalanced;
}

void resetLock()
{
    depth = 0;
    unbalanced = 0;
}

std::optional<std::string> lockImbalance()
{
    if (depth > 0)
        return "an add-on left the host lock taken (" + std::to_string(depth) +
               " start(s) not finished)";
    if (unbalanced > 0)
        return "an add-on finished the host lock " + std::to_string(unbalanced) +
               " time(s) without starting it";
    return std::nullopt;
}

} // namespace corvane::host

extern "C" {

void CvnUtilLockOn(void)
{
    corvane::host::lockEnter();
}

void CvnUtilLockOff(void)
{
    corvane::host::lockLeave();
}

void CvnUtilLockStart(AddOn_pa /*AddOnID*/)
{
    corvane::host::lockEnter();
}

void CvnUtilLockFinish(AddOn_pa /*AddOnID*/)
{
    corvane::host::lockLeave();
}

} // extern "C"
