/*
 * LineFilters.h - line-level work of the scan and the preview: global
 * filters, blank and numeric classification, and cutting a line into values.
 * Not re-entrant (static output buffer, module-wide value array).
 */
#ifndef TW_LINEFILTERS_H
#define TW_LINEFILTERS_H

#include <cstddef>
#include <cstdint>

#include "Instructions.h"

namespace corvane::cvnutildataio {

/* True when the line holds no letter or digit. */
bool TW_IsBlankLine(const char *Line);
/* Replaces Line (at most 64000 characters) by its filtered form. */
void TW_PreprocessLine(char *Line, const TW_GlobalFilters_s *Filters);
/* True when the line holds a digit and no letter other than e/E. */
bool TW_IsNumericLine(const char *Line);
/* Makes the module's value array when it is missing; false after "Out of
   memory". Called at start-up, and again by every cut. */
bool TW_LineFiltersStart();
/* Frees the module's value array (at the host's quit). */
void TW_LineFiltersRelease();
/* Cuts Line into values, kept in the module's value array: *Values stays
   valid until the next call. LineNumber (1-based) is used in the question
   text. Only blank-cell mode writes into the line (and it always gives a
   value). False, with no values, when the value array cannot be made
   ("Out of memory" was shown); every further line would fail the same
   way. */
bool TW_ScanLineForNumericData(char *Line, int32_t LineNumber,
                               const TW_ConfigInstructions_s *Instr, const double **Values,
                               int32_t *Count);
/* TW_ScanLineForNumericData of a line whose length (strlen) the caller
   knows. */
bool TW_ScanSizedLineForNumericData(char *Line, size_t Length, int32_t LineNumber,
                                    const TW_ConfigInstructions_s *Instr, const double **Values,
                                    int32_t *Count);

} // namespace corvane::cvnutildataio

#endif
