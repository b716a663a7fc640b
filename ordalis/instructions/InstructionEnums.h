/*
 * InstructionEnums.h - the enumerations of an instruction set (search
 * modes, data-section markers, data formats), each in one table of its
 * values, keywords and dialog labels. The delimiter kinds have theirs in
 * util/Delimiter.h.
 */
#ifndef TW_INSTRUCTIONENUMS_H
#define TW_INSTRUCTIONENUMS_H

#include "CvnAPI.h"
#include "Delimiter.h"
#include "KeywordTable.h"

namespace corvane::cvnutildataio {

typedef enum {
    SearchMode_None = 0,
    SearchMode_Line = 1,
    SearchMode_Keyword = 2
} TW_SearchMode_e;

typedef enum {
    FileMarker_FirstNonNumericLine = 0,
    FileMarker_FirstNumericLine = 1,
    FileMarker_Line = 2,
    FileMarker_Keyword = 3,
    FileMarker_EOF = 4
} TW_FileMarker_e;

inline constexpr TW_EnumKeyword_s SearchModeKeywords[] = {
    {SearchMode_None, "NONE", NULL},
    {SearchMode_Line, "LINE", NULL},
    {SearchMode_Keyword, "KEYWORD", NULL},
};
inline constexpr TW_EnumTable_s SearchModeTable = {
    SearchModeKeywords, sizeof(SearchModeKeywords) / sizeof(SearchModeKeywords[0])};

inline constexpr TW_EnumKeyword_s FileMarkerKeywords[] = {
    {FileMarker_FirstNonNumericLine, "FIRSTNONNUMERICLINE", NULL},
    {FileMarker_FirstNumericLine, "FIRSTNUMERICLINE", NULL},
    {FileMarker_Line, "LINE", NULL},
    {FileMarker_Keyword, "KEYWORD", NULL},
    {FileMarker_EOF, "EOF", NULL},
};
inline constexpr TW_EnumTable_s FileMarkerTable = {
    FileMarkerKeywords, sizeof(FileMarkerKeywords) / sizeof(FileMarkerKeywords[0])};

/* The host's data formats; the finite-element ones are written, never
   read. */
inline constexpr TW_EnumKeyword_s DataFormatKeywords[] = {
    {DataFormat_IJKBlock, "IJKBLOCK", NULL},
    {DataFormat_IJKPoint, "IJKPOINT", NULL},
    {DataFormat_FEBlock, "FEBLOCK", NULL},
    {DataFormat_FEPoint, "FEPOINT", NULL},
};
inline constexpr TW_EnumTable_s DataFormatTable = {
    DataFormatKeywords, sizeof(DataFormatKeywords) / sizeof(DataFormatKeywords[0])};

/* The keyword of Value in Rows, for constant tables built from these
   (the lexer's word list); NULL when there is none. */
template <size_t N>
constexpr const char *TW_KeywordOf(const TW_EnumKeyword_s (&Rows)[N], int Value)
{
    for (size_t Row = 0; Row < N; Row++)
        if (Rows[Row].Value == Value)
            return Rows[Row].Keyword;
    return NULL;
}

} // namespace corvane::cvnutildataio

#endif
