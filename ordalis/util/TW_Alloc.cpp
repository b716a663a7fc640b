/*
 * TW_Alloc.cpp - the add-on's allocator wrappers with failure injection.
 */
#include "TW_Alloc.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <unistd.h>

namespace corvane::cvnutildataio {

static long FailAt = 0; /* the call number that fails; 0 = none (tests set it) */
static long Calls = 0;  /* calls since the last TW_AllocFailAt */

/* Writes the number of allocations made to the file that
   ORDALIS_ALLOCATION_COUNT_FILE names, when the add-on is unloaded. */
static void WriteAllocationCount()
{
    if (const char *Path = getenv("ORDALIS_ALLOCATION_COUNT_FILE")) {
        if (FILE *File = fopen(Path, "w")) {
            fprintf(File, "%ld\n", Calls);
            fclose(File);
        }
    }
}

/* True when this call is the one a test asked to fail. */
static bool ShouldFail()
{
    static bool FromEnvironment = false; /* ORDALIS_FAIL_ALLOCATION was read */
    if (!FromEnvironment) {
        FromEnvironment = true;
        if (const char *N = getenv("ORDALIS_FAIL_ALLOCATION"))
            FailAt = atol(N) > 0 ? atol(N) : 0;
        if (getenv("ORDALIS_ALLOCATION_COUNT_FILE") != nullptr)
            atexit(WriteAllocationCount);
    }
    ++Calls;
    return FailAt != 0 && Calls == FailAt;
}

bool TW_AllocationFits(size_t Bytes)
{
    /* Half the machine's memory in bytes, asked once; ORDALIS_ALLOCATION_LIMIT_MB
       lowers it for runs that must stay within a memory budget (the fuzz
       harnesses). */
    static size_t Limit = 0;
    if (Limit == 0) {
        long Pages = sysconf(_SC_PHYS_PAGES);
        long PageSize = sysconf(_SC_PAGESIZE);
        Limit = Pages > 0 && PageSize > 0 ? (size_t)Pages / 2 * (size_t)PageSize : SIZE_MAX;
        if (const char *Megabytes = getenv("ORDALIS_ALLOCATION_LIMIT_MB"))
            if (atol(Megabytes) > 0 && (size_t)atol(Megabytes) < Limit >> 20)
                Limit = (size_t)atol(Megabytes) << 20;
    }
    return Bytes <= Limit;
}

void *TW_Malloc(size_t Size)
{
    return ShouldFail() || !TW_AllocationFits(Size) ? nullptr : malloc(Size);
}

void *TW_Calloc(size_t Count, size_t Size)
{
    if (ShouldFail() || (Size != 0 && Count > SIZE_MAX / Size) || !TW_AllocationFits(Count * Size))
        return nullptr;
    return calloc(Count, Size);
}

void *TW_Realloc(void *Block, size_t Size)
{
    return ShouldFail() || !TW_AllocationFits(Size) ? nullptr : realloc(Block, Size);
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
