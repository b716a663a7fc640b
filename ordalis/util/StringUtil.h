/*
 * StringUtil.h - string and token utilities: the tokeniser, case-insensitive
 * comparison and search, trimming, bounded copies, file-name cropping, the
 * number scanners and growing host strings.
 *
 * Not re-entrant: TW_strtok and Str_ustrstr keep static state.
 */
#ifndef TW_STRINGUTIL_H
#define TW_STRINGUTIL_H

#include <cstdio>
#include <string>

#include "CvnAPI.h"

namespace corvane::cvnutildataio {

/* Delimiter kinds; each value's name is its keyword in instruction text. */
typedef enum {
    Delimiter_Auto = 1,
    Delimiter_Tab = 2,
    Delimiter_Space = 3,
    Delimiter_Semicolon = 4,
    Delimiter_Comma = 5,
    Delimiter_Fixed = 6
} TW_Delimiter_e;

#define TW_MAX_LINE_LENGTH 64000 /* longest data-file line supported */

/* Next token of Line (NULL continues the current line with the saved kind
   and width); NULL when none is left. Tokenising may modify Line. */
char *TW_strtok(char *Line, TW_Delimiter_e Delimiter, int Width, bool HonourQuotes);

/* strncmp / strcmp ignoring ASCII case; NULL sorts first, two NULLs equal. */
int Str_ustrncmp(const char *S1, const char *S2, size_t N);
int Str_ustrcmp(const char *S1, const char *S2);
/* Non-NULL when Pattern occurs in String ignoring case. The result points
   into a static copy: use it only as found / not found. */
const char *Str_ustrstr(const char *String, const char *Pattern);

/* True when S is not empty and holds only spaces and tabs. */
bool IsAllSpaces(const char *S);
/* New host string without leading/trailing spaces and tabs. */
char *TrimString(const char *S);
void TW_Strcpy(char *Dest, const char *Source);
/* Copies at most N-1 characters and always terminates. */
void TW_Strncpy(char *Dest, const char *Source, size_t N);
/* *Result becomes a new host string: Name shortened with "..." to fit
   MaxLength. */
void TW_CropFileName(const char *Name, char **Result, int MaxLength);

/* Number scanners; the cursor moves over what was consumed. */
bool Str_ScanForDouble(const char **Cursor, double *Value);
/* Str_ScanForDouble of the token from *Cursor to the first character Delim
   (a TW_DelimiterTable) marks or the end of the string; the line is not
   cut, the cursor moves as Str_ScanForDouble moves it. */
bool TW_ScanTokenForDouble(const char **Cursor, const bool *Delim, double *Value);
/* The 256 flags of the characters that TW_strtok cuts at for Kind (not
   FIXED); NULL for a kind without delimiter characters. */
const bool *TW_DelimiterTable(TW_Delimiter_e Kind);
bool Str_ScanForLgIndex(const char **Cursor, LgIndex_t *Value);
void Str_RemoveWhiteSpace(const char **Cursor);
void Str_RemoveThroughEndOfLine(const char **Cursor);

/* Growing host strings. Str_TackOnString releases the old string even when
   the new one cannot be made (then *String is NULL). */
void Str_TackOnString(char **String, const char *Text);
bool Str_ReplaceString(char **String, const char *Text);

/* Splits Path; each non-NULL output receives at most 255 characters. */
void TW_splitpath(const char *Path, char *Drive, char *Dir, char *FName, char *Ext);

} // namespace corvane::cvnutildataio

namespace corvane::filesystem {
/* fopen of FileName in Mode; NULL on failure. */
FILE *fileOpen(const std::string &FileName, const std::string &Mode);
} // namespace corvane::filesystem

#endif
