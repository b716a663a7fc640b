/*
 * HostObjects.h - the life of the host's handle objects (string lists,
 * sets, argument lists), for the runtime's own use: made and released with
 * failure injection and live-object counts, grown without letting an
 * out-of-memory escape through the C calls.
 */
#ifndef CORVANE_HOST_HOSTOBJECTS_H
#define CORVANE_HOST_HOSTOBJECTS_H

#include <new>

#include "CvnAPI.h"
#include "Faults.h"

namespace corvane::host {

/* A new empty object, counted as live; nullptr when the allocation fails
   (injected or real). */
template <class T>
T *newHostObject()
{
    if (hostAllocationFails())
        return nullptr;
    auto *object = new (std::nothrow) T;
    if (object != nullptr)
        trackHostObject(+1);
    return object;
}

/* Releases *object made by newHostObject and clears the pointer; accepts
   NULL and a NULL object. */
template <class T>
void deleteHostObject(T **object)
{
    if (object == nullptr || *object == nullptr)
        return;
    delete *object;
    *object = nullptr;
    trackHostObject(-1);
}

/* Runs change; FALSE when it ran out of memory, else TRUE. */
template <class Change>
Boolean_t changeWithoutThrowing(Change &&change)
{
    try {
        change();
    } catch (const std::bad_alloc &) {
        return FALSE;
    }
    return TRUE;
}

} // namespace corvane::host

#endif
