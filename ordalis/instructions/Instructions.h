/*
 * Instructions.h - the instruction-set record: how one kind of data file is
 * read. Creation with defaults, reset, copy and release.
 */
#ifndef TW_INSTRUCTIONS_H
#define TW_INSTRUCTIONS_H

#include <cstdint>

#include "CvnAPI.h"
#include "Delimiter.h"
#include "InstructionEnums.h"
#include "NumList.h"
#include "VarList.h"

namespace corvane::cvnutildataio {

typedef struct {
    TW_FileMarker_e Marker;
    char Keyword[257];
    int32_t Line; /* 1-based */
} TW_FileMarker_s;

typedef struct {
    bool Auto; /* sizes come from the data; IMax..KMax ignored */
    int32_t IMax;
    int32_t JMax;
    int32_t KMax;
} TW_Dimension_s;

typedef struct {
    TW_SearchMode_e SearchMode;
    int32_t NumNames;
    TW_Variable_s *Names; /* NumNames entries (malloc), NULL when empty */
    Set_s *LoadedVars;    /* 1-based variables to load; empty = all */
    int32_t StartLine;
    int32_t EndLine;
    TW_Delimiter_e Delimiter;
    int32_t Width;
} TW_Variables_s;

typedef struct {
    bool UseComment;
    bool UseKeyword;
    bool UseColumns;
    bool UseRows;
    char Comment[257];
    LgIndex_t CommentLength; /* set by the scan */
    char Keyword[257];
    LgIndex_t KeywordLength; /* set by the scan */
    TW_NumList_s Columns;    /* character columns to drop */
    TW_NumList_s Rows;       /* lines to ignore */
    bool UseBlankCellValue;
    double BlankCellValue;
} TW_GlobalFilters_s;

typedef struct {
    int32_t Version;
    char FileExt[1025];
    char FileDesc[1025];
    TW_SearchMode_e TitleSearchMode;
    char TitleName[1025];
    int32_t TitleLine;
    char TitleKeyword[257];
    TW_Delimiter_e TitleDelimiter;
    int32_t TitleWidth;
    TW_Variables_s Variables;
    bool IgnoreNonNumericTokens;
    TW_FileMarker_s StartId;
    TW_FileMarker_s EndId;
    DataFormat_e Format;
    TW_Delimiter_e DataDelimiter;
    int32_t DataWidth;
    TW_Dimension_s Dimension;
    bool CreateMultipleZones;
    char ZoneKeyword[257];
    TW_GlobalFilters_s GlobalFilters;
    char ConfigFileName[1001];
    char DisplayName[1001];
    char FilePath[1001];
    bool IsModified;
    bool IsNew;
} TW_ConfigInstructions_s;

/* New record with every default; NULL after "Out of memory. Unable to
   allocate import parameters structure". */
TW_ConfigInstructions_s *ImportInstructionsAlloc();
/* Writes the defaults into Rec without freeing its old Names or set. */
void SetConfigToDefault(TW_ConfigInstructions_s *Rec);
/* Copies Source into *Dest (allocated when NULL); Dest keeps its own
   DisplayName, FilePath and LoadedVars set object. */
void CopyInstructionSet(TW_ConfigInstructions_s **Dest, const TW_ConfigInstructions_s *Source);
/* Frees the record under the host lock; *Rec becomes NULL. NULL accepted. */
void ImportInstructionsDealloc(TW_ConfigInstructions_s **Rec);
/* Frees a separately allocated variables record; *Vars becomes NULL. */
void VariablesDealloc(TW_Variables_s **Vars);
void CopyVarInfo(TW_Variables_s *Dest, const TW_Variables_s *Source);

} // namespace corvane::cvnutildataio

#endif
