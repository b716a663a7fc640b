/*
 * NumberScan.h - the number scanners: what counts as a number in a data
 * file, the integers of instruction text and number lists, and the cursor
 * movers of the instruction reader.
 */
#ifndef TW_NUMBERSCAN_H
#define TW_NUMBERSCAN_H

#include "CvnAPI.h"

namespace corvane::cvnutildataio {

/* The cursor moves over what was consumed. */
bool Str_ScanForDouble(const char **Cursor, double *Value);
/* Str_ScanForDouble of the token from *Cursor to the first character Delim
   (a TW_DelimiterTable) marks or the end of the string; the line is not
   cut, the cursor moves as Str_ScanForDouble moves it. LineEnd points at the
   string's NUL. */
bool TW_ScanTokenForDouble(const char **Cursor, const bool *Delim, const char *LineEnd,
                           double *Value);
bool Str_ScanForLgIndex(const char **Cursor, LgIndex_t *Value);
void Str_RemoveWhiteSpace(const char **Cursor);
void Str_RemoveThroughEndOfLine(const char **Cursor);

} // namespace corvane::cvnutildataio

#endif
