/*
 * Faults.cpp - allocation-failure injection and the count of live host
 * objects, shared by every host allocation.
 */
#include "Faults.h"

#include <cstdio>
#include <cstdlib>

namespace corvane::host {

namespace {
long failAt = 0;       /* allocation number that fails (0 = none); set by failHostAllocationAt */
long allocations = 0;  /* allocations since the last failHostAllocationAt */
long liveObjects = 0;  /* host objects made and not yet released */
} // namespace

void failHostAllocationAt(long n)
{
    failAt = n < 0 ? 0 : n;
    allocations = 0;
}

void failHostAllocationFromEnvironment()
{
    if (const char *n = std::getenv("CORVANE_FAIL_HOST_ALLOCATION"))
        failHostAllocationAt(std::atol(n));
}

void reportHostAllocationsToEnvironment()
{
    if (const char *path = std::getenv("CORVANE_HOST_ALLOCATION_COUNT_FILE"))
        if (std::FILE *file = std::fopen(path, "w")) {
            std::fprintf(file, "%ld\n", allocations);
            std::fclose(file);
        }
}

long hostAllocationCount()
{
    return allocations;
}

bool hostAllocationFails()
{
    ++allocations;
    return failAt > 0 && allocations == failAt;
}

long liveHostObjects()
{
    return liveObjects;
}

void trackHostObject(int delta)
{
    liveObjects += delta;
}

} // namespace corvane::host
