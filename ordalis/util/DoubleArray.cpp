/*
 * DoubleArray.cpp - growable array of doubles. The buffer grows by the
 * fixed step TW_DOUBLEARRAY_STEP (7919 values): right after the value that
 * makes Count a multiple of the step is stored, the buffer is enlarged to
 * Count + step values, so there is always room for the next value.
 */
#include "DoubleArray.h"

#include "CvnAPI.h"
#include "TW_Alloc.h"

namespace corvane::cvnutildataio {

static const char *const OutOfMemory = "Out of memory";

static inline size_t BytesFor(int64_t Values)
{
    return static_cast<size_t>(Values) * sizeof(double);
}

TW_DoubleArray_s *TW_DoubleArrayAlloc()
{
    TW_DoubleArray_s *Array = static_cast<TW_DoubleArray_s *>(TW_Malloc(sizeof(TW_DoubleArray_s)));
    if (Array == nullptr) {
        CvnUtilDialogErrMsg(OutOfMemory);
        return nullptr;
    }
    Array->Count = 0;
    Array->Values = static_cast<double *>(TW_Malloc(BytesFor(TW_DOUBLEARRAY_STEP)));
    if (Array->Values == nullptr) {
        CvnUtilDialogErrMsg(OutOfMemory);
        TW_Free(Array);
        return nullptr;
    }
    return Array;
}

void TW_DoubleArrayDealloc(TW_DoubleArray_s **Array)
{
    if (Array == nullptr || *Array == nullptr)
        return;
    TW_Free((*Array)->Values);
    TW_Free(*Array);
    *Array = nullptr;
}

/* Enlarges a full buffer (Count a multiple of the step) by one step. On
   failure shows "Out of memory", takes the last value back and leaves the
   buffer as it is, so the array holds what it held before the add. */
bool TW_DoubleArrayGrowAfterAdd(TW_DoubleArray_s *Array)
{
    /* A count that would not fit is refused before the allocator is asked. */
    double *Values = Array->Count > INT32_MAX - TW_DOUBLEARRAY_STEP
                         ? nullptr
                         : static_cast<double *>(TW_Realloc(
                               Array->Values,
                               BytesFor(static_cast<int64_t>(Array->Count) + TW_DOUBLEARRAY_STEP)));
    if (Values == nullptr) {
        CvnUtilDialogErrMsg(OutOfMemory);
        Array->Count--;
        return false;
    }
    Array->Values = Values;
    return true;
}

/* Appends Value N times; N <= 0 changes nothing. A fill whose count would
   not fit in 32 bits, or whose values would not fit in the memory the
   allocator allows, is refused before anything grows. The buffer is
   enlarged once, to where step-by-step growth would have taken it, so a
   large fill costs one reallocation instead of one per step; when that
   fails the array is left as it was. */
bool TW_DoubleArrayFill(TW_DoubleArray_s *Array, int32_t N, double Value)
{
    if (N <= 0)
        return true;
    int64_t Final = (int64_t)Array->Count + N;
    if (Final > INT32_MAX - TW_DOUBLEARRAY_STEP || !TW_AllocationFits(BytesFor(Final))) {
        CvnUtilDialogErrMsg(OutOfMemory);
        return false;
    }
    int64_t Steps = Final / TW_DOUBLEARRAY_STEP;
    if (Steps != Array->Count / TW_DOUBLEARRAY_STEP) {
        double *Values = static_cast<double *>(
            TW_Realloc(Array->Values, BytesFor((Steps + 1) * TW_DOUBLEARRAY_STEP)));
        if (Values == nullptr) {
            CvnUtilDialogErrMsg(OutOfMemory);
            return false;
        }
        Array->Values = Values;
    }
    for (int64_t I = Array->Count; I < Final; I++)
        Array->Values[I] = Value;
    Array->Count = static_cast<int32_t>(Final);
    return true;
}

int32_t TW_DoubleArrayGetSize(const TW_DoubleArray_s *Array)
{
    return Array->Count;
}

double *TW_DoubleArrayGetArray(const TW_DoubleArray_s *Array)
{
    return Array->Values;
}

double TW_DoubleArrayGetAt(const TW_DoubleArray_s *Array, int32_t Index)
{
    return Array->Values[Index];
}

void TW_DoubleArrayRemoveAll(TW_DoubleArray_s *Array)
{
    TW_Free(Array->Values);
    Array->Count = 0;
    Array->Values = static_cast<double *>(TW_Malloc(BytesFor(TW_DOUBLEARRAY_STEP)));
    if (Array->Values == nullptr) {
        CvnUtilDialogErrMsg(OutOfMemory);
        TW_Free(Array);
    }
}

void TW_DoubleArrayReleaseValues(TW_DoubleArray_s *Array)
{
    TW_Free(Array->Values);
    Array->Values = nullptr;
    Array->Count = 0;
}

} // namespace corvane::cvnutildataio
