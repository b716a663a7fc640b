/*
 * EnteredVarNames.h - the variable names a user types into the variables
 * dialog: the typed text cut into variable-name entries.
 */
#ifndef TW_ENTEREDVARNAMES_H
#define TW_ENTEREDVARNAMES_H

#include <cstdint>

#include "VarList.h"

namespace corvane::cvnutildataio {

/* Cuts Text into names and replaces *Names (freed first) by a new array
   of them; returns their number, which is also stored in *Count.
   Line feeds, commas and white space before a name are skipped; a name
   runs up to the next NUL, line feed or comma, at most 128 characters
   (the rest up to the separator is dropped). A name ended by a line feed
   or comma loses its trailing white space; the last name of the text is
   kept as typed. Duplicates are kept. Each entry is selected, with column
   width length + 2. When the array cannot be made: "Out of memory",
   *Names NULL while *Count still holds the number of names. When not even
   the working string list can be made: "Out of memory" and the process
   ends with status 0. */
int32_t TW_ParseEnteredVarNames(const char *Text, TW_Variable_s **Names, int32_t *Count);

} // namespace corvane::cvnutildataio

#endif
