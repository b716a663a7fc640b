/*
 * TW_Alloc.h - the add-on's standard-allocator calls, with failure injection.
 *
 * Every malloc/calloc/realloc of the add-on goes through these wrappers so
 * that tests can make the n-th call fail and reach each "Out of memory" path.
 * Outside tests they are the plain standard functions.
 */
#ifndef TW_ALLOC_H
#define TW_ALLOC_H

#include <cstddef>

namespace corvane::cvnutildataio {

/* A single block larger than half the machine's memory is refused (NULL)
   before anything is asked of the system: the values it would hold could
   not be handed to the host as well, and such a request would more likely
   end the process than fail. */
void *TW_Malloc(size_t Size);
void *TW_Calloc(size_t Count, size_t Size);
void *TW_Realloc(void *Block, size_t Size);
void TW_Free(void *Block);
/* True when a block of Bytes is within half the machine's memory. */
bool TW_AllocationFits(size_t Bytes);

/* Test hook: the N-th allocation from now on (1 = the next) returns NULL;
   0 switches injection off. For whole runs the environment variable
   ORDALIS_FAIL_ALLOCATION=N does the same from the add-on's first
   allocation on, and ORDALIS_ALLOCATION_COUNT_FILE=PATH has the number of
   allocations made written to PATH when the add-on is unloaded. */
void TW_AllocFailAt(long N);
/* Test hook: number of allocations made since the last TW_AllocFailAt. */
long TW_AllocCount();

} // namespace corvane::cvnutildataio

#endif
