/*
 * StringUtil.h - string utilities: case-insensitive comparison and search,
 * trimming, bounded copies, file-name cropping and splitting, and growing
 * host strings.
 *
 * Not re-entrant: Str_ustrstr keeps its upper-cased copies in static
 * buffers.
 */
#ifndef TW_STRINGUTIL_H
#define TW_STRINGUTIL_H

#include <cstddef>

#include "CvnAPI.h"

namespace corvane::cvnutildataio {

#define TW_MAX_LINE_LENGTH 64000 /* longest data-file line supported */

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

/* Growing host strings. Str_TackOnString releases the old string even when
   the new one cannot be made (then *String is NULL). */
void Str_TackOnString(char **String, const char *Text);
bool Str_ReplaceString(char **String, const char *Text);

/* Splits Path; each non-NULL output receives at most 255 characters. */
void TW_splitpath(const char *Path, char *Drive, char *Dir, char *FName, char *Ext);

} // namespace corvane::cvnutildataio

#endif
