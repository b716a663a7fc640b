/*
 * NumList.cpp - number lists: the "[nn-nn,...]" parser, the membership test
 * and the two printers (plain, for dialog fields; KEYWORD=[...], for
 * instruction text).
 */
#include "NumList.h"

#include <cstdio>
#include <cstring>

#include "CvnAPI.h"
#include "NumberScan.h"
#include "StringUtil.h"

namespace corvane::cvnutildataio {

/* Room for any list: 32 ranges of two 11-character numbers, a "-" and a
   ",". A shorter buffer would cut long lists, and a list cut in the filter
   dialog's field would be stored back cut. */
#define TW_NUMLIST_TEXT_SIZE (TW_MAX_NUM_RANGES * 24 + 1)

/* Export_GetNumList's result; overwritten by each call. */
static char NumListText[TW_NUMLIST_TEXT_SIZE];

/* Sets *ErrMsg (when wanted) to a host copy of Text; false for the caller
   to return. */
static bool Fail(char **ErrMsg, const char *Text)
{
    if (ErrMsg != nullptr && Text != nullptr) {
        *ErrMsg = CvnUtilStringAlloc(static_cast<LgIndex_t>(strlen(Text)), "Error message");
        if (*ErrMsg != nullptr)
            strcpy(*ErrMsg, Text);
    }
    return false;
}

static inline bool IsDecimalDigit(char C)
{
    return C >= '0' && C <= '9';
}

/* "[" and "," separate ranges anywhere (repeats allowed); a range is N or
   N-M or N-END (END in any case, stored as Max 0); a number beyond a 32-bit
   integer is an invalid integer. Ranges are neither
   checked, sorted nor merged. Ranges past the 32 slots are read but not
   stored. A missing upper bound after "-" fails without a message. */
bool ReadNumList(const char **Cursor, TW_NumList_s *List, bool ExpectClosingBracket,
                 char **ErrMsg)
{
    List->NumRanges = 0;
    if (ErrMsg != nullptr)
        *ErrMsg = nullptr;
    TW_NumRange_s Spare; /* where ranges past the last slot go */
    for (;;) {
        Str_RemoveWhiteSpace(Cursor);
        char C = **Cursor;
        if (C == '\0') {
            if (ExpectClosingBracket)
                return Fail(ErrMsg, "Expected ending bracket (])");
            return true;
        }
        if (C == ']' && ExpectClosingBracket) {
            (*Cursor)++;
            return true;
        }
        if (C == ',' || C == '[') {
            (*Cursor)++;
            continue;
        }
        if (!IsDecimalDigit(C))
            return Fail(ErrMsg, "Invalid character in number list");

        TW_NumRange_s *Range =
            List->NumRanges < TW_MAX_NUM_RANGES ? &List->Ranges[List->NumRanges] : &Spare;
        LgIndex_t Number = 0;
        if (!Str_ScanForLgIndex(Cursor, &Number) || Number > INT32_MAX)
            return Fail(ErrMsg, "Invalid integer in number range");
        Range->Min = static_cast<int32_t>(Number);

        Str_RemoveWhiteSpace(Cursor);
        if (**Cursor != '-') {
            Range->Max = Range->Min;
        } else {
            (*Cursor)++;
            Str_RemoveWhiteSpace(Cursor);
            if (Str_ustrncmp(*Cursor, "END", 3) == 0) {
                *Cursor += 3;
                Range->Max = 0;
            } else {
                if (!Str_ScanForLgIndex(Cursor, &Number))
                    return false;
                if (Number > INT32_MAX || Number < INT32_MIN)
                    return Fail(ErrMsg, "Invalid integer in number range");
                Range->Max = static_cast<int32_t>(Number);
            }
        }
        if (List->NumRanges < TW_MAX_NUM_RANGES)
            List->NumRanges++;
    }
}

bool TW_NumIsInRange(int32_t Number, const TW_NumList_s *List)
{
    for (int32_t I = 0; I < List->NumRanges; I++) {
        const TW_NumRange_s *Range = &List->Ranges[I];
        if (Range->Min <= Number && (Range->Max == 0 || Number <= Range->Max))
            return true;
    }
    return false;
}

/* "1-5,7,10-end": a range whose Max equals its Min is one number. */
const char *Export_GetNumList(const TW_NumList_s *List)
{
    NumListText[0] = '\0';
    size_t Used = 0;
    for (int32_t I = 0; I < List->NumRanges && Used < TW_NUMLIST_TEXT_SIZE - 1; I++) {
        const TW_NumRange_s *Range = &List->Ranges[I];
        char Piece[40];
        if (Range->Max == Range->Min)
            snprintf(Piece, sizeof Piece, "%s%d", I > 0 ? "," : "", Range->Min);
        else if (Range->Max == 0)
            snprintf(Piece, sizeof Piece, "%s%d-end", I > 0 ? "," : "", Range->Min);
        else
            snprintf(Piece, sizeof Piece, "%s%d-%d", I > 0 ? "," : "", Range->Min, Range->Max);
        snprintf(NumListText + Used, TW_NUMLIST_TEXT_SIZE - Used, "%s", Piece);
        Used += strlen(NumListText + Used);
    }
    return NumListText;
}

/* Compact: "KEY=[1-5,7,10-end] "; file layout: " KEY=[...] " and a newline.
   An open end is always written "-end", even behind a Min of 0. */
void PrintList(char **Out, const char *Keyword, const TW_NumList_s *List, bool Compact)
{
    if (!Compact)
        Str_TackOnString(Out, " ");
    char Piece[300];
    snprintf(Piece, sizeof Piece, "%s=", Keyword);
    Str_TackOnString(Out, Piece);
    Str_TackOnString(Out, "[");
    for (int32_t I = 0; I < List->NumRanges; I++) {
        const TW_NumRange_s *Range = &List->Ranges[I];
        if (I > 0)
            Str_TackOnString(Out, ",");
        if (Range->Max == 0)
            snprintf(Piece, sizeof Piece, "%d-end", Range->Min);
        else if (Range->Max != Range->Min)
            snprintf(Piece, sizeof Piece, "%d-%d", Range->Min, Range->Max);
        else
            snprintf(Piece, sizeof Piece, "%d", Range->Min);
        Str_TackOnString(Out, Piece);
    }
    Str_TackOnString(Out, "] ");
    if (!Compact)
        Str_TackOnString(Out, "\n");
}

} // namespace corvane::cvnutildataio
