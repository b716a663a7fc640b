/*
 * DataTokenizer.h - TW_strtok, the tokeniser of data, title and variable
 * lines: a delimiter kind per call, fixed-width columns and optionally
 * quoted tokens.
 *
 * Not re-entrant: one line is tokenised at a time (a tokenisation in
 * progress is lost when another line is started).
 */
#ifndef TW_DATATOKENIZER_H
#define TW_DATATOKENIZER_H

#include "Delimiter.h"

namespace corvane::cvnutildataio {

/* Next token of Line (NULL continues the current line with the saved kind
   and width); NULL when none is left. Tokenising may modify Line. */
char *TW_strtok(char *Line, TW_Delimiter_e Delimiter, int Width, bool HonourQuotes);

/* The 256 flags of the characters that TW_strtok cuts at for Kind (not
   FIXED); NULL for a kind without delimiter characters. */
const bool *TW_DelimiterTable(TW_Delimiter_e Kind);

} // namespace corvane::cvnutildataio

#endif
