/*
 * NumList.h - number lists: up to 32 inclusive ranges of 1-based numbers,
 * text form "[nn-nn,...]" with "end" for an open upper bound.
 */
#ifndef TW_NUMLIST_H
#define TW_NUMLIST_H

#include <cstdint>

namespace corvane::cvnutildataio {

#define TW_MAX_NUM_RANGES 32

typedef struct {
    int32_t Min;
    int32_t Max; /* inclusive; 0 = up to the end */
} TW_NumRange_s;

typedef struct {
    int32_t NumRanges; /* 0 = empty */
    TW_NumRange_s Ranges[TW_MAX_NUM_RANGES];
} TW_NumList_s;

/* Parses a list at *Cursor and advances it. With ErrMsg given, *ErrMsg is
   NULL at the start and a host string ("Error message") on an error; the
   caller releases it. A failed parse keeps the ranges read before it. */
bool ReadNumList(const char **Cursor, TW_NumList_s *List, bool ExpectClosingBracket,
                 char **ErrMsg);
bool TW_NumIsInRange(int32_t Number, const TW_NumList_s *List);
/* The list without brackets, in a static buffer the next call overwrites. */
const char *Export_GetNumList(const TW_NumList_s *List);
/* Appends KEYWORD=[...] and a blank (file layout: a leading blank and a
   trailing newline) to the growing host string *Out. */
void PrintList(char **Out, const char *Keyword, const TW_NumList_s *List, bool Compact);

} // namespace corvane::cvnutildataio

#endif
