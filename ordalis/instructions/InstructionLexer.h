/*
 * InstructionLexer.h - the instruction-text lexer behind the reader: the reader
 * state, token codes, keyword ids, Advance and the assignment helpers.
 * Internal to the instructions module.
 *
 * Not re-entrant: Advance reads words into one static buffer.
 */
#ifndef TW_INSTRUCTIONLEXER_H
#define TW_INSTRUCTIONLEXER_H

#include <cstddef>
#include <cstdint>

#include "Instructions.h"

namespace corvane::cvnutildataio {

#define TW_MAX_STRING_LENGTH 1024 /* longest quoted string kept */

/* What Advance found. */
typedef enum {
    Token_EndOfText = 0,
    Token_Number = 1,
    Token_String = 2,
    Token_Keyword = 3,
    Token_OpenBrace = 4,
    Token_CloseBrace = 5,
    Token_Equals = 6,
    Token_Boolean = 7,
    Token_NumList = 8,
    Token_Error = 9
} TW_Token_e;

/* Ids of the keyword table's rows. */
typedef enum {
    Keyword_NotAWord = -1, /* the last token was not a word at all */
    Keyword_Version = 0,
    Keyword_FileExt = 1,
    Keyword_FileDesc = 2,
    Keyword_Title = 3,
    Keyword_Search = 4,
    Keyword_Name = 5,
    Keyword_Format = 6,
    Keyword_IJKBlock = 7,
    Keyword_IJKPoint = 8,
    Keyword_Line = 9,
    Keyword_None = 10,
    Keyword_Delimiter = 11,
    Keyword_Auto = 12,
    Keyword_Tab = 13,
    Keyword_Space = 14,
    Keyword_Semicolon = 15,
    Keyword_Comma = 16,
    Keyword_Fixed = 17,
    Keyword_Width = 18,
    Keyword_EOF = 19,
    Keyword_Loaded = 20,
    Keyword_Variables = 21,
    Keyword_Names = 22,
    Keyword_StartLine = 23,
    Keyword_EndLine = 24,
    Keyword_Data = 25,
    Keyword_CreateMultipleZones = 26,
    Keyword_IgnoreNonNumericTokens = 27,
    Keyword_Import = 28,
    Keyword_StartId = 29,
    Keyword_FirstNumericLine = 30,
    Keyword_FirstNonNumericLine = 31,
    Keyword_Keyword = 32,
    Keyword_EndId = 33,
    Keyword_Dimension = 34,
    Keyword_IMax = 35,
    Keyword_JMax = 36,
    Keyword_KMax = 37,
    Keyword_GlobalFilters = 38,
    Keyword_UseBlankCellValue = 39,
    Keyword_BlankCellValue = 40,
    Keyword_Comment = 41,
    Keyword_Columns = 42,
    Keyword_Rows = 43,
    Keyword_End = 44,
    Keyword_True = 45,
    Keyword_False = 46,
    Keyword_ConfigFName = 47,
    Keyword_Unknown = 48,
    Keyword_EndOfTable = 255
} TW_KeywordId_e;

/* One read of instruction text. */
typedef struct {
    const char *FileName;    /* name used in messages */
    const char *Position;    /* cursor into the text */
    int32_t LineNumber;      /* newlines passed so far, from 0 */
    bool ShowErrors;         /* cleared after the first syntax-error dialog */
    LgIndex_t IntValue;      /* last number, floored */
    char StringValue[TW_MAX_STRING_LENGTH + 1]; /* last quoted string */
    int32_t KeywordId;       /* id of the last word (Keyword_Unknown if none) */
    bool BoolValue;          /* last TRUE/FALSE */
    TW_NumList_s NumList;    /* last bracketed number list */
    double DoubleValue;      /* last number */
} TW_ConfigFileStream_s;

/* Starts a read of Text; FileName (may be NULL) only names it in messages. */
void InitConfigFileStream(TW_ConfigFileStream_s *S, const char *FileName, const char *Text);

/* Reads the next token and leaves its value in the stream. Errors it finds
   itself (quotes, strings, number lists) are shown as syntax errors; an
   unknown word gives Token_Error silently with KeywordId Keyword_Unknown. */
TW_Token_e Advance(TW_ConfigFileStream_s *S);

/* The main spelling of the keyword with that id (synonyms are read as
   it), or NULL for an id no row carries. */
const char *KeywordName(int32_t Id);

/* Shows Detail in the syntax-error frame, once per read. */
void ShowSyntaxError(TW_ConfigFileStream_s *S, const char *Detail);
/* Shows "Expected <What>." as a syntax error. */
void ShowExpected(TW_ConfigFileStream_s *S, const char *What);

/* Reads "= quoted string" into Dest (at most Size-1 characters). False after
   a syntax error; Dest is then unchanged. */
bool AssignString(TW_ConfigFileStream_s *S, char *Dest, size_t Size);
/* Reads "= number" into Dest (floored). A value below 1 is stored as 1 after
   a warning. False after "Expected integer"; Dest is then unchanged. */
bool AssignLgIndex(TW_ConfigFileStream_s *S, int32_t *Dest);

/* Copies the run of letters at *Cursor (at most MaxLength-1 of them) into
   Dest, terminates it and moves the cursor over what was copied. */
void TW_GetToken(const char **Cursor, size_t MaxLength, char *Dest);

} // namespace corvane::cvnutildataio

#endif
