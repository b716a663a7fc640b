/*
 * TW_Alloc.cpp - the add-on's allocator wrappers with failure injection.
 */
#include "TW_Alloc.h"

#include <cstdlib>

namespace corvane::cvnutildataio {

static long FailAt = 0; /* the call number that fails; 0 = none (tests set it) */
static long Calls = 0;  /* calls since the last TW_AllocFailAt */

/* True when this call is the one a test asked to fail. */
static bool ShouldFail()
{
    ++Calls;
    return FailAt != 0 && Calls == FailAt;
}

void *TW_Malloc(size_t Size)
{
    return ShouldFail() ? nullptr : malloc(Size);
}

void *TW_Calloc(size_t Count, size_t Size)
{
    return ShouldFail() ? nullptr : calloc(Count, Size);
}

void *TW_Realloc(void *Block, size_t Size)
{
    return ShouldFail() ? nullptr : realloc(Block, Size);
}

void TW_Free(void *Block)
{
    free(Block);
}

void TW_AllocFailAt(long N)
{
    FailAt = N;
    Calls = 0;
}

long TW_AllocCount()
{
    return Calls;
}

} // namespace corvane::cvnutildataio
