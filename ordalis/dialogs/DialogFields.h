/*
 * DialogFields.h - reading and checking the dialogs' text fields: integer
 * fields validated by the host (which reports a bad entry under the field's
 * name), and text copied into an instruction set's fixed-size fields.
 */
#ifndef TW_DIALOGFIELDS_H
#define TW_DIALOGFIELDS_H

#include <cstddef>
#include <cstdint>

#include "CvnAPI.h"

namespace corvane::cvnutildataio {

#define TW_MAX_INT32 2147483647

/* The check of an integer field while the user types, the whole of an
   integer field's callback: TRUE when the field holds an integer from Min
   to Max; otherwise (after the host's message naming FieldName) the field
   is reset to 1 and the result is FALSE. Brackets its work with the
   add-on lock. */
LgIndex_t TW_CheckIntegerField(LgIndex_t FieldID, const char *FieldName, LgIndex_t Min,
                               LgIndex_t Max);
/* Stores the field's integer in *Value when it is one from Min to Max and
   returns true; otherwise shows the host's message naming FieldName,
   leaves *Value as it was and returns false. */
bool TW_GetValidInteger(LgIndex_t FieldID, const char *FieldName, LgIndex_t Min, LgIndex_t Max,
                        int32_t *Value);
/* Copies the text field's text into Dest (at most Size - 1 characters,
   always terminated); an empty text when the host gives none. */
void TW_GetFieldText(LgIndex_t FieldID, char *Dest, size_t Size);

} // namespace corvane::cvnutildataio

#endif
