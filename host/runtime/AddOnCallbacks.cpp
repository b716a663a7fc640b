/*
 * AddOnCallbacks.cpp - the state-change and quit-query callbacks of
 * add-ons, and quitting the host through them.
 */
#include "AddOnRegistry.h"
#include "AddOns.h"

namespace corvane::host {

namespace detail {

AddOnCallbacks &addOnCallbacks()
{
    static AddOnCallbacks callbacks;
    return callbacks;
}

void resetAddOnCallbacks()
{
    addOnCallbacks() = AddOnCallbacks{};
}

} // namespace detail

/* Asks the quit queries in registration order and stops at the first that
   refuses. A callback may register others while it runs, so the lists are
   copied first. */
bool quit()
{
    const detail::AddOnCallbacks callbacks = detail::addOnCallbacks();
    for (QueryQuitCallback_pf query : callbacks.quitQuery)
        if (!query())
            return false;
    for (StateChangeCallback_pf callback : callbacks.stateChange)
        callback(StateChange_Quit, 0);
    return true;
}

} // namespace corvane::host

extern "C" {

void CvnUtilStateChangeAddCallback(StateChangeCallback_pf Callback)
{
    if (Callback)
        corvane::host::detail::addOnCallbacks().stateChange.push_back(Callback);
}

void CvnUtilQuitAddQueryCallback(QueryQuitCallback_pf Callback)
{
    if (Callback)
        corvane::host::detail::addOnCallbacks().quitQuery.push_back(Callback);
}

} // extern "C"
