/*
 * DoubleArray.h - growable array of doubles (one variable of one zone, or
 * the values of one scanned line). Grows by a fixed step of 7919 values.
 */
#ifndef TW_DOUBLEARRAY_H
#define TW_DOUBLEARRAY_H

#include <cstdint>

namespace corvane::cvnutildataio {

#define TW_DOUBLEARRAY_STEP 7919

typedef struct {
    int32_t Count;  /* values stored */
    double *Values; /* heap buffer */
} TW_DoubleArray_s;

/* New empty array with room for 7919 values; NULL after "Out of memory". */
TW_DoubleArray_s *TW_DoubleArrayAlloc();
void TW_DoubleArrayDealloc(TW_DoubleArray_s **Array);
bool TW_DoubleArrayFill(TW_DoubleArray_s *Array, int32_t N, double Value);
int32_t TW_DoubleArrayGetSize(const TW_DoubleArray_s *Array);
double *TW_DoubleArrayGetArray(const TW_DoubleArray_s *Array);
double TW_DoubleArrayGetAt(const TW_DoubleArray_s *Array, int32_t Index);
/* Empties the array to a fresh 7919-value buffer. If that buffer cannot be
   made the record itself is released: the caller must not use it again. */
void TW_DoubleArrayRemoveAll(TW_DoubleArray_s *Array);
/* Frees the buffer for good: Count becomes 0 and Values NULL. The array can
   then only be deallocated. */
void TW_DoubleArrayReleaseValues(TW_DoubleArray_s *Array);

/* The growth step of TW_DoubleArrayAdd, run right after the value that made
   Count a multiple of the step was stored. */
bool TW_DoubleArrayGrowAfterAdd(TW_DoubleArray_s *Array);

/* False after "Out of memory"; the array then holds what it held before.
   Inline: the scan stores every value of a file twice through it, and only
   a value that fills the buffer costs a call (the buffer always has room
   for one more value). */
inline bool TW_DoubleArrayAdd(TW_DoubleArray_s *Array, double Value)
{
    Array->Values[Array->Count++] = Value;
    if (__builtin_expect(Array->Count % TW_DOUBLEARRAY_STEP != 0, 1))
        return true;
    return TW_DoubleArrayGrowAfterAdd(Array);
}

/* True when N more values can be appended before the buffer would have to
   grow; those can go in with TW_DoubleArrayAddWithRoom. */
inline bool TW_DoubleArrayHasRoom(const TW_DoubleArray_s *Array, int64_t N)
{
    return Array->Count % TW_DOUBLEARRAY_STEP + N < TW_DOUBLEARRAY_STEP;
}

/* Appends a value TW_DoubleArrayHasRoom made room for: no growth step to
   test for. */
inline void TW_DoubleArrayAddWithRoom(TW_DoubleArray_s *Array, double Value)
{
    Array->Values[Array->Count++] = Value;
}

} // namespace corvane::cvnutildataio

#endif
