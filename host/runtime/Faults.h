/*
 * Faults.h - allocation-failure injection for tests: make the n-th host
 * allocation (strings, string lists, sets, argument lists) fail.
 */
#ifndef CORVANE_HOST_FAULTS_H
#define CORVANE_HOST_FAULTS_H

namespace corvane::host {

/* The n-th host allocation from now on (1 = the next) fails; 0 = never. */
void failHostAllocationAt(long n);
/* Host allocations made since the last failHostAllocationAt. */
long hostAllocationCount();
/* Test hook for whole runs: when the environment variable
   CORVANE_FAIL_HOST_ALLOCATION holds a number N > 0, the N-th host
   allocation from now on fails. */
void failHostAllocationFromEnvironment();
/* Writes hostAllocationCount() to the file that the environment variable
   CORVANE_HOST_ALLOCATION_COUNT_FILE names, if any (the end of a run). */
void reportHostAllocationsToEnvironment();
/* Called by every host allocation (strings, string lists, sets, argument
   lists, the fields of a zone): true when this one must fail. */
bool hostAllocationFails();

/* Live host objects (strings, string lists, sets, argument lists) not yet
   released: tests check that a path released what it made. */
long liveHostObjects();
void trackHostObject(int delta);

} // namespace corvane::host

#endif
