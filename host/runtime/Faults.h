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
/* Called by every host allocation: true when this one must fail. */
bool hostAllocationFails();

/* Live host objects (strings, string lists, sets, argument lists) not yet
   released: tests check that a path released what it made. */
long liveHostObjects();
void trackHostObject(int delta);

} // namespace corvane::host

#endif
