/*
 * Writer.h - the instruction-set writer, in the file layout (banners,
 * comments) and the compact layout stored with loader instructions.
 */
#ifndef TW_WRITER_H
#define TW_WRITER_H

#include "Instructions.h"

namespace corvane::cvnutildataio {

/* Enumeration names as written; "# error" for a value out of range. */
const char *Export_GetSearchModeString(TW_SearchMode_e Mode);
const char *Export_GetDelimiterString(TW_Delimiter_e Delimiter);
const char *Export_GetFileMarkerString(TW_FileMarker_e Marker);
const char *Export_GetDataFormat(DataFormat_e Format);

/* Appends Rec as text to the growing host string *Out. Always TRUE. */
bool PrintInstructionSet(const TW_ConfigInstructions_s *Rec, bool Compact, char **Out);
/* Writes the file layout to Path; false after a message when it cannot be
   opened. */
bool SaveConfigFile(const char *Path, const TW_ConfigInstructions_s *Rec);

} // namespace corvane::cvnutildataio

#endif
