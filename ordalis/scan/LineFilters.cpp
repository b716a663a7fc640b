/*
 * LineFilters.cpp - line-level work of the scan and the preview: global
 * filters, blank and numeric classification, and cutting a line into values.
 *
 * Classification runs on a 256-entry character table (C-locale classes) so
 * that the scan can classify a line in one pass. Not re-entrant: the filter
 * output buffer and the line's value array are shared by every call.
 */
#include "LineFilters.h"

#include <cctype>
#include <cstdint>
#include <cstdio>
#include <cstring>

#include "DoubleArray.h"
#include "DataTokenizer.h"
#include "NumberScan.h"
#include "NumList.h"
#include "StringUtil.h"

namespace corvane::cvnutildataio {

/* Character classes of the classification table. */
enum {
    CharClass_Digit = 1,      /* 0-9 */
    CharClass_Letter = 2,     /* A-Z, a-z */
    CharClass_OtherLetter = 4 /* a letter other than e/E */
};

/* Class bits per unsigned character; built once, never changed. */
static const struct CharTable_s {
    unsigned char Class[256];
    CharTable_s() : Class()
    {
        for (int c = '0'; c <= '9'; c++)
            Class[c] = CharClass_Digit;
        for (int c = 'A'; c <= 'Z'; c++) {
            unsigned char Bits = CharClass_Letter | (c == 'E' ? 0 : CharClass_OtherLetter);
            Class[c] = Bits;
            Class[c + ('a' - 'A')] = Bits;
        }
    }
} CharTable;

/* Output of TW_PreprocessLine, copied back over its input. */
static char FilterBuffer[TW_MAX_LINE_LENGTH + 1];

/* Upper bound of a comment marker that TW_PreprocessLine accepts. */
#define TW_MAX_MARKER_LENGTH 256

/* The question asked once per line for a token that is not a number. */
static const char MalformedQuestion[] =
    "Possible malformed numeric data values were found on line %d\n"
    "Please check this line of the file to be sure that numeric data is of the correct "
    "form.\nDo you want to continue processing this line?";

/* OR of the class bits of the Length characters of Line. Data lines hold
   digits, blanks, signs, points and exponent letters: eight characters at a
   time are checked to be below 0x40 or e/E, and a digit is then looked for
   with two additions (no carry crosses such a byte). Other words go through
   the table. A letter other than e/E settles both answers: the walk stops. */
static unsigned ClassBitsOfLine(const char *Line, size_t Length)
{
    const uint64_t Ones = 0x0101010101010101ULL;
    const uint64_t High = 0x8080808080808080ULL;
    const uint64_t Low7 = 0x7F7F7F7F7F7F7F7FULL;
    const unsigned char *P = (const unsigned char *)Line;
    const unsigned char *Class = CharTable.Class;
    unsigned Bits = 0;
    size_t I = 0;
    for (; I + 8 <= Length; I += 8) {
        uint64_t Word;
        memcpy(&Word, P + I, sizeof(Word));
        /* High bit set for every byte at or above 0x40 (a carry may flag a
           neighbour too, which only sends the word to the table). */
        uint64_t Above = ((Word + 0x40 * Ones) | Word) & High;
        if (Above != 0) {
            /* High bit set exactly for the bytes that are e or E. */
            uint64_t X = (Word | 0x20 * Ones) ^ (0x65 * Ones);
            uint64_t IsE = ~(((X & Low7) + Low7) | X) & High;
            if ((Above & ~IsE) != 0) {
                for (size_t K = 0; K < 8; K++)
                    Bits |= Class[P[I + K]];
                if (Bits & CharClass_OtherLetter)
                    return Bits;
                continue;
            }
            Bits |= CharClass_Letter;
        }
        if ((Word + 0x50 * Ones) & ~(Word + 0x46 * Ones) & High)
            Bits |= CharClass_Digit;
    }
    for (; I < Length; I++)
        Bits |= Class[P[I]];
    return Bits;
}

static bool BitsAreNumeric(unsigned Bits)
{
    return (Bits & CharClass_Digit) != 0 && (Bits & CharClass_OtherLetter) == 0;
}

/* Stops at the first letter or digit: on a data line that is a few
   characters in. */
bool TW_IsBlankLine(const char *Line)
{
    for (const unsigned char *P = (const unsigned char *)Line; *P; P++)
        if (CharTable.Class[*P] != 0)
            return false;
    return true;
}

bool TW_IsNumericLine(const char *Line)
{
    return BitsAreNumeric(ClassBitsOfLine(Line, strlen(Line)));
}

/* The comment test comes before the copy of a character, the line-skip test
   after it; both look at the input, and columns count input characters, so
   a dropped column neither shifts later columns nor hides a marker. */
void TW_PreprocessLine(char *Line, const TW_GlobalFilters_s *Filters)
{
    bool UseComment = Filters->UseComment && Filters->CommentLength >= 1 &&
                      Filters->CommentLength <= TW_MAX_MARKER_LENGTH;
    bool UseSkip = Filters->UseKeyword && Filters->KeywordLength != 0;
    bool UseColumns = Filters->UseColumns;
    size_t CommentLength = UseComment ? (size_t)Filters->CommentLength : 0;
    size_t SkipLength = UseSkip ? (size_t)Filters->KeywordLength : 0;
    /* First characters folded once: the full comparison runs only where the
       first character already matches. */
    int CommentFirst = UseComment ? toupper((unsigned char)Filters->Comment[0]) : 0;
    int SkipFirst = UseSkip ? toupper((unsigned char)Filters->Keyword[0]) : 0;
    size_t Out = 0;
    int32_t Column = 1;

    for (const char *P = Line; *P; P++, Column++) {
        int Upper = toupper((unsigned char)*P);
        if (UseComment && Upper == CommentFirst &&
            Str_ustrncmp(P, Filters->Comment, CommentLength) == 0)
            break;
        if (!UseColumns || !TW_NumIsInRange(Column, &Filters->Columns))
            FilterBuffer[Out++] = *P;
        if (UseSkip && Upper == SkipFirst &&
            Str_ustrncmp(P, Filters->Keyword, SkipLength) == 0) {
            Out = 0;
            break;
        }
    }
    FilterBuffer[Out] = '\0';
    memcpy(Line, FilterBuffer, Out + 1);
}

/* Blank-cell mode: every occurrence of Delimiter ends a cell, so empty cells
   give the blank value. A delimiter as the last character gives no trailing
   blank. Cells are terminated in place. */
static void ScanCells(char *Line, char Delimiter, double BlankValue, TW_DoubleArray_s *Values)
{
    char *P = Line;
    for (;;) {
        while (*P == ' ' || *P == '\t')
            P++;
        char *End = strchr(P, Delimiter);
        if (End != NULL)
            *End = '\0';
        const char *Cursor = P;
        double Value;
        if (!Str_ScanForDouble(&Cursor, &Value))
            Value = BlankValue;
        TW_DoubleArrayAdd(Values, Value);
        if (End == NULL || End[1] == '\0')
            break;
        P = End + 1;
    }
}

/* Asks whether to go on with a line that holds a malformed value; true
   for Yes. */
static bool ContinueMalformedLine(int32_t LineNumber)
{
    char Question[sizeof(MalformedQuestion) + 16];
    snprintf(Question, sizeof(Question), MalformedQuestion, (int)LineNumber);
    return CvnUtilDialogMessageBox(Question, MessageBox_YesNo);
}

/* One token's part in token mode: its value is appended, or, for a token
   that is not a number, the user is asked once per line whether to go on
   (unless such tokens are ignored). False when the answer is No: the rest
   of the line is dropped. Room: the array has room for every value the
   line can hold. */
static bool TakeToken(bool IsNumber, double Value, int32_t LineNumber,
                      const TW_ConfigInstructions_s *Instr, bool *Asked, bool Room,
                      TW_DoubleArray_s *Values)
{
    if (IsNumber) {
        if (Room)
            TW_DoubleArrayAddWithRoom(Values, Value);
        else
            TW_DoubleArrayAdd(Values, Value);
        return true;
    }
    if (Instr->IgnoreNonNumericTokens || *Asked)
        return true;
    *Asked = true;
    return ContinueMalformedLine(LineNumber);
}

/* Delimited kinds: each token is read where it stands in the line (the
   same tokens TW_strtok would cut, read by the same number scanner), so
   every character is looked at once. LineEnd is where the line's NUL
   stands. */
static void ScanDelimitedTokens(const char *Line, const char *LineEnd, const bool *Delim,
                                int32_t LineNumber, const TW_ConfigInstructions_s *Instr,
                                TW_DoubleArray_s *Values)
{
    bool Asked = false;
    /* A token takes a character and its delimiter another. */
    bool Room = TW_DoubleArrayHasRoom(Values, (LineEnd - Line) / 2 + 1);
    const unsigned char *P = (const unsigned char *)Line;
    for (;;) {
        while (Delim[*P]) /* NUL is no kind's delimiter */
            P++;
        if (*P == '\0')
            return;
        double Value;
        const char *Cursor = (const char *)P;
        bool IsNumber = TW_ScanTokenForDouble(&Cursor, Delim, LineEnd, &Value);
        if (!TakeToken(IsNumber, Value, LineNumber, Instr, &Asked, Room, Values))
            return;
        P = (const unsigned char *)Cursor;
        while (*P != '\0' && !Delim[*P])
            P++;
    }
}

/* Fixed-width fields, from TW_strtok. */
static void ScanFixedFields(char *Line, int32_t LineNumber, const TW_ConfigInstructions_s *Instr,
                            TW_DoubleArray_s *Values)
{
    bool Asked = false;
    for (char *Token = TW_strtok(Line, Delimiter_Fixed, Instr->DataWidth, false); Token != NULL;
         Token = TW_strtok(NULL, Delimiter_Fixed, Instr->DataWidth, false)) {
        const char *Cursor = Token;
        double Value;
        bool IsNumber = Str_ScanForDouble(&Cursor, &Value);
        if (!TakeToken(IsNumber, Value, LineNumber, Instr, &Asked, false, Values))
            return;
    }
}

/* Token mode: the numbers among the tokens of the line's delimiter kind; a
   kind out of range gives no tokens. */
static void ScanTokens(char *Line, size_t Length, int32_t LineNumber,
                       const TW_ConfigInstructions_s *Instr, TW_DoubleArray_s *Values)
{
    if (const bool *Delim = TW_DelimiterTable(Instr->DataDelimiter))
        ScanDelimitedTokens(Line, Line + Length, Delim, LineNumber, Instr, Values);
    else if (Instr->DataDelimiter == Delimiter_Fixed)
        ScanFixedFields(Line, LineNumber, Instr, Values);
}

/* The values of the line last cut by TW_ScanLineForNumericData, emptied at
   each call. Made at the first call after start-up or a release, freed by
   TW_LineFiltersRelease. */
static TW_DoubleArray_s *GlobalLineBuffer = NULL;

bool TW_LineFiltersStart()
{
    if (GlobalLineBuffer == NULL)
        GlobalLineBuffer = TW_DoubleArrayAlloc();
    return GlobalLineBuffer != NULL;
}

void TW_LineFiltersRelease()
{
    TW_DoubleArrayDealloc(&GlobalLineBuffer);
}

bool TW_ScanLineForNumericData(char *Line, int32_t LineNumber,
                               const TW_ConfigInstructions_s *Instr, const double **Values,
                               int32_t *Count)
{
    return TW_ScanSizedLineForNumericData(Line, strlen(Line), LineNumber, Instr, Values, Count);
}

bool TW_ScanSizedLineForNumericData(char *Line, size_t Length, int32_t LineNumber,
                                    const TW_ConfigInstructions_s *Instr, const double **Values,
                                    int32_t *Count)
{
    if (!TW_LineFiltersStart()) {
        *Values = NULL;
        *Count = 0;
        return false;
    }
    /* Emptied by count only: the buffer is reused line after line. */
    GlobalLineBuffer->Count = 0;

    const TW_GlobalFilters_s *Filters = &Instr->GlobalFilters;
    if (Filters->UseBlankCellValue &&
        (Instr->DataDelimiter == Delimiter_Semicolon || Instr->DataDelimiter == Delimiter_Comma))
        ScanCells(Line, Instr->DataDelimiter == Delimiter_Semicolon ? ';' : ',',
                  Filters->BlankCellValue, GlobalLineBuffer);
    else
        ScanTokens(Line, Length, LineNumber, Instr, GlobalLineBuffer);

    *Values = GlobalLineBuffer->Values;
    *Count = GlobalLineBuffer->Count;
    return true;
}

} // namespace corvane::cvnutildataio
