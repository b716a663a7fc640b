/*
 * InstructionLexer.cpp - splits instruction text into tokens: words looked up in
 * the keyword table, numbers, quoted strings with escapes, number lists,
 * braces and equals signs; comments run from "#" to the end of the line.
 */
#include "InstructionLexer.h"

#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstring>

#include "AddOnHost.h"
#include "NumberScan.h"
#include "StringUtil.h"

namespace corvane::cvnutildataio {

typedef struct {
    const char *Name;
    const char *Synonym;
    const char *Synonym2;
    int32_t Id;
} TW_KeywordRow_s;

/* Every word of the language with its spellings; the words that name a
   value of an enumeration are spelled by that enumeration's table. Looked up in this order,
   the first row that matches wins; the row with a NULL name ends it. */
static const TW_KeywordRow_s KeywordTable[] = {
    {"CONFIGFNAME", "CONFIGFILENAME", "CONFIG", Keyword_ConfigFName},
    {"VERSION", NULL, NULL, Keyword_Version},
    {"FILEEXT", NULL, NULL, Keyword_FileExt},
    {"FILEDESC", NULL, NULL, Keyword_FileDesc},
    {"TITLE", NULL, NULL, Keyword_Title},
    {"SEARCH", NULL, NULL, Keyword_Search},
    {TW_KeywordOf(SearchModeKeywords, SearchMode_None), NULL, NULL, Keyword_None},
    {"NAME", NULL, NULL, Keyword_Name},
    {TW_KeywordOf(SearchModeKeywords, SearchMode_Line), NULL, NULL, Keyword_Line},
    {"DELIMITER", NULL, NULL, Keyword_Delimiter},
    {"FORMAT", NULL, NULL, Keyword_Format},
    {TW_KeywordOf(DataFormatKeywords, DataFormat_IJKBlock), "BLOCK", NULL, Keyword_IJKBlock},
    {TW_KeywordOf(DataFormatKeywords, DataFormat_IJKPoint), "POINT", NULL, Keyword_IJKPoint},
    {TW_KeywordOf(DelimiterKeywords, Delimiter_Auto), NULL, NULL, Keyword_Auto},
    {TW_KeywordOf(DelimiterKeywords, Delimiter_Tab), NULL, NULL, Keyword_Tab},
    {TW_KeywordOf(DelimiterKeywords, Delimiter_Space), NULL, NULL, Keyword_Space},
    {TW_KeywordOf(DelimiterKeywords, Delimiter_Semicolon), NULL, NULL, Keyword_Semicolon},
    {TW_KeywordOf(DelimiterKeywords, Delimiter_Comma), NULL, NULL, Keyword_Comma},
    {TW_KeywordOf(DelimiterKeywords, Delimiter_Fixed), NULL, NULL, Keyword_Fixed},
    {"WIDTH", NULL, NULL, Keyword_Width},
    {"VARIABLES", NULL, NULL, Keyword_Variables},
    {"NAMES", NULL, NULL, Keyword_Names},
    {"STARTLINE", NULL, NULL, Keyword_StartLine},
    {"ENDLINE", NULL, NULL, Keyword_EndLine},
    {"LOADED", NULL, NULL, Keyword_Loaded},
    {"DATA", NULL, NULL, Keyword_Data},
    {"CREATEMULTIPLEZONES", NULL, NULL, Keyword_CreateMultipleZones},
    {"IGNORENONNUMERICTOKENS", NULL, NULL, Keyword_IgnoreNonNumericTokens},
    {"IMPORT", NULL, NULL, Keyword_Import},
    {"STARTID", NULL, NULL, Keyword_StartId},
    {TW_KeywordOf(FileMarkerKeywords, FileMarker_FirstNumericLine), NULL, NULL, Keyword_FirstNumericLine},
    {TW_KeywordOf(FileMarkerKeywords, FileMarker_FirstNonNumericLine), NULL, NULL, Keyword_FirstNonNumericLine},
    {TW_KeywordOf(SearchModeKeywords, SearchMode_Keyword), NULL, NULL, Keyword_Keyword},
    {"ENDID", NULL, NULL, Keyword_EndId},
    {TW_KeywordOf(FileMarkerKeywords, FileMarker_EOF), NULL, NULL, Keyword_EOF},
    {"DIMENSION", NULL, NULL, Keyword_Dimension},
    {"IMAX", NULL, NULL, Keyword_IMax},
    {"JMAX", NULL, NULL, Keyword_JMax},
    {"KMAX", NULL, NULL, Keyword_KMax},
    {"COMMENT", NULL, NULL, Keyword_Comment},
    {"GLOBALFILTERS", NULL, NULL, Keyword_GlobalFilters},
    {"USEBLANKCELLVALUE", NULL, NULL, Keyword_UseBlankCellValue},
    {"BLANKCELLVALUE", NULL, NULL, Keyword_BlankCellValue},
    {"COLUMNS", NULL, NULL, Keyword_Columns},
    {"ROWS", NULL, NULL, Keyword_Rows},
    {"END", NULL, NULL, Keyword_End},
    {"TRUE", "YES", "T", Keyword_True},
    {"FALSE", "NO", "F", Keyword_False},
    {NULL, NULL, NULL, Keyword_EndOfTable},
};

/* The word being looked up; overwritten by every word read. */
static char WordBuffer[1024];
/* Formatted message texts; overwritten by every message. */
static char MessageBuffer[3100];
static char DetailBuffer[200];

#define TW_SYNTAX_ERROR_FRAME                                                          \
    "Ordalis Loader:\nSyntax error processing instruction set file \"%s\" on or about " \
    "line %d:\n%s\n\nProcessing of this configuration file has stopped at this line."

/* Id of Word in the keyword table, Keyword_Unknown when no row spells it. */
static int32_t LookUpKeyword(const char *Word)
{
    for (const TW_KeywordRow_s *Row = KeywordTable; Row->Name != NULL; Row++) {
        if (Str_ustrcmp(Word, Row->Name) == 0 ||
            (Row->Synonym != NULL && Str_ustrcmp(Word, Row->Synonym) == 0) ||
            (Row->Synonym2 != NULL && Str_ustrcmp(Word, Row->Synonym2) == 0))
            return Row->Id;
    }
    return Keyword_Unknown;
}

const char *KeywordName(int32_t Id)
{
    for (const TW_KeywordRow_s *Row = KeywordTable; Row->Name != NULL; Row++)
        if (Row->Id == Id)
            return Row->Name;
    return NULL;
}

static const char *StreamName(const TW_ConfigFileStream_s *S)
{
    return S->FileName != NULL ? S->FileName : "";
}

void InitConfigFileStream(TW_ConfigFileStream_s *S, const char *FileName, const char *Text)
{
    memset(S, 0, sizeof(*S));
    S->FileName = FileName;
    S->Position = Text != NULL ? Text : "";
    S->LineNumber = 0;
    S->ShowErrors = true;
    S->KeywordId = Keyword_Unknown;
}

void ShowSyntaxError(TW_ConfigFileStream_s *S, const char *Detail)
{
    if (!S->ShowErrors)
        return;
    snprintf(MessageBuffer, sizeof(MessageBuffer), TW_SYNTAX_ERROR_FRAME, StreamName(S),
             (int)S->LineNumber, Detail);
    ShowDialogErrorMessage(MessageBuffer);
    S->ShowErrors = false;
}

void ShowExpected(TW_ConfigFileStream_s *S, const char *What)
{
    snprintf(DetailBuffer, sizeof(DetailBuffer), "Expected %s.", What);
    ShowSyntaxError(S, DetailBuffer);
}

void TW_GetToken(const char **Cursor, size_t MaxLength, char *Dest)
{
    size_t Length = 0;
    const char *P = *Cursor;
    while (Length + 1 < MaxLength && isalpha((unsigned char)*P))
        Dest[Length++] = *P++;
    Dest[Length] = '\0';
    *Cursor = P;
}

/* Reads the quoted string that starts at the double quote under the cursor
   into StringValue. Escapes: \" and \\ give the character, \, is kept as
   both characters, anything else is dropped after a warning. */
static TW_Token_e ReadQuotedString(TW_ConfigFileStream_s *S)
{
    const char *P = S->Position + 1;
    size_t Length = 0;
    bool TooLong = false;

    for (;;) {
        char C = *P;
        char Out[2];
        int NumOut = 0;

        if (C == '\0') {
            S->StringValue[Length] = '\0';
            S->Position = P;
            ShowSyntaxError(S, "Expected closing double quote");
            return Token_Error;
        }
        if (C == '"') {
            P++;
            break;
        }
        if (C == '\\') {
            char Next = P[1];
            if (Next == '\0') {
                P++; /* the text ends inside the string */
                continue;
            }
            P += 2;
            if (Next == '\n')
                S->LineNumber++;
            if (Next == '"' || Next == '\\') {
                Out[NumOut++] = Next;
            } else if (Next == ',') {
                Out[NumOut++] = '\\';
                Out[NumOut++] = ',';
            } else {
                snprintf(MessageBuffer, sizeof(MessageBuffer),
                         "Tabwise instruction set file \"%s\":\nEscaped character \\%c is not "
                         "a legal within a string and will be ignored",
                         StreamName(S), Next);
                CvnUtilDialogMessageBox(MessageBuffer, MessageBox_Warning);
            }
        } else {
            if (C == '\n')
                S->LineNumber++;
            Out[NumOut++] = C;
            P++;
        }

        for (int I = 0; I < NumOut; I++) {
            if (Length < TW_MAX_STRING_LENGTH) {
                S->StringValue[Length++] = Out[I];
            } else if (!TooLong) {
                TooLong = true;
                ShowSyntaxError(S, "Maximum string length exceeded");
            }
        }
    }

    S->StringValue[Length] = '\0';
    S->Position = P;
    return Token_String;
}

/* Reads the number under the cursor: as a double when the whole token is
   one, else as the integer at its start. */
static TW_Token_e ReadNumber(TW_ConfigFileStream_s *S)
{
    const char *Cursor = S->Position;
    double Value = 0.0;
    if (Str_ScanForDouble(&Cursor, &Value)) {
        double Floor = std::floor(Value);
        S->DoubleValue = Value;
        if (!(Floor > -9.2e18)) /* also NaN */
            S->IntValue = INT64_MIN;
        else if (Floor >= 9.2e18)
            S->IntValue = INT64_MAX;
        else
            S->IntValue = (LgIndex_t)Floor;
        S->Position = Cursor;
        return Token_Number;
    }

    Cursor = S->Position;
    LgIndex_t Integer = 0;
    if (Str_ScanForLgIndex(&Cursor, &Integer)) {
        S->IntValue = Integer;
        S->DoubleValue = (double)Integer;
        S->Position = Cursor;
        return Token_Number;
    }
    /* Step over what was looked at so that the reader always moves on. */
    S->Position = Cursor > S->Position ? Cursor : S->Position + 1;
    return Token_Error;
}

TW_Token_e Advance(TW_ConfigFileStream_s *S)
{
    S->KeywordId = Keyword_NotAWord;

    for (;;) {
        char C = *S->Position;
        if (C == '\0')
            return Token_EndOfText;
        if (C == '#') {
            Str_RemoveThroughEndOfLine(&S->Position);
            if (S->Position[-1] == '\n')
                S->LineNumber++;
            continue;
        }
        if (!isspace((unsigned char)C))
            break;
        if (C == '\n')
            S->LineNumber++;
        S->Position++;
    }

    char C = *S->Position;
    if (C == '\'') {
        S->Position++;
        ShowSyntaxError(S, "Strings must be enclosed in double quotes. Strings enclosed in "
                           "single quotes are not valid");
        return Token_Error;
    }
    if (C == '[') {
        char *Message = NULL;
        if (ReadNumList(&S->Position, &S->NumList, true, &Message))
            return Token_NumList;
        if (Message != NULL) {
            ShowSyntaxError(S, Message);
            CvnUtilStringDealloc(&Message);
        }
        return Token_Error;
    }
    if (C == '"')
        return ReadQuotedString(S);
    if (isdigit((unsigned char)C) || C == '+' || C == '-' || C == '.')
        return ReadNumber(S);
    if (isalpha((unsigned char)C)) {
        TW_GetToken(&S->Position, sizeof(WordBuffer), WordBuffer);
        S->KeywordId = LookUpKeyword(WordBuffer);
        if (S->KeywordId == Keyword_Unknown)
            return Token_Error;
        if (S->KeywordId == Keyword_True || S->KeywordId == Keyword_False) {
            S->BoolValue = S->KeywordId == Keyword_True;
            return Token_Boolean;
        }
        return Token_Keyword;
    }

    S->Position++;
    switch (C) {
    case '=':
        return Token_Equals;
    case '{':
        return Token_OpenBrace;
    case '}':
        return Token_CloseBrace;
    default:
        return Token_Error;
    }
}

bool AssignString(TW_ConfigFileStream_s *S, char *Dest, size_t Size)
{
    if (Advance(S) != Token_Equals) {
        ShowExpected(S, "'='");
        return false;
    }
    if (Advance(S) != Token_String) {
        ShowExpected(S, "double quoted string");
        return false;
    }
    TW_Strncpy(Dest, S->StringValue, Size);
    return true;
}

bool AssignLgIndex(TW_ConfigFileStream_s *S, int32_t *Dest)
{
    if (Advance(S) != Token_Equals || Advance(S) != Token_Number) {
        ShowSyntaxError(S, "Expected integer");
        return false;
    }
    LgIndex_t Value = S->IntValue;
    if (Value < 1) {
        snprintf(MessageBuffer, sizeof(MessageBuffer),
                 "Out of range integer found on or about line %d. This value will be changed "
                 "to 1.",
                 (int)S->LineNumber);
        CvnUtilDialogMessageBox(MessageBuffer, MessageBox_Warning);
        Value = 1;
    }
    *Dest = Value > INT32_MAX ? INT32_MAX : (int32_t)Value;
    return true;
}

} // namespace corvane::cvnutildataio
