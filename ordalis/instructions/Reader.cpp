/*
 * Reader.cpp - the instruction-set parser: fills a record from the section
 * language (TITLE, VARIABLES, DATA with IMPORT and DIMENSION, GLOBALFILTERS),
 * recognises instruction-set files and loads one into a new record.
 *
 * A syntax error is shown once per read. Some errors end the parse at once
 * (the record keeps what was read before); others only skip the offending
 * token or leave the section, as noted at each case.
 */
#include "Reader.h"

#include <cctype>
#include <cstddef>
#include <cstdio>
#include <cstring>

#include "AddOnHost.h"
#include "FileOpen.h"
#include "InstructionLexer.h"
#include "StringUtil.h"
#include "TW_Alloc.h"
#include "WholeFile.h"

namespace corvane::cvnutildataio {

#define TW_MISSING_BRACE_DETAIL "Expected valid keyword or '}'"

/* Warning texts; overwritten by every warning. */
static char WarningBuffer[200];

/* How an "= word" value was read. */
typedef enum {
    WordValue_Ok,        /* a word; its id is in KeywordId */
    WordValue_NoEquals,  /* the "=" was missing (reported) */
    WordValue_NotAWord   /* "=" then something else (reported) */
} TW_WordValue_e;

/* Reads "=" and a word (a keyword, a boolean or an unknown word). */
static TW_WordValue_e ReadWordValue(TW_ConfigFileStream_s *S)
{
    if (Advance(S) != Token_Equals) {
        ShowExpected(S, "'='");
        return WordValue_NoEquals;
    }
    TW_Token_e Token = Advance(S);
    if (Token == Token_Keyword || Token == Token_Boolean ||
        (Token == Token_Error && S->KeywordId == Keyword_Unknown))
        return WordValue_Ok;
    ShowExpected(S, "keyword");
    return WordValue_NotAWord;
}

/* Reads "= TRUE|FALSE" into Dest. False after a syntax error. */
static bool AssignBoolean(TW_ConfigFileStream_s *S, bool *Dest)
{
    if (Advance(S) != Token_Equals) {
        ShowExpected(S, "'='");
        return false;
    }
    if (Advance(S) != Token_Boolean) {
        ShowExpected(S, "TRUE or FALSE");
        return false;
    }
    *Dest = S->BoolValue;
    return true;
}

/* The value of the word just read in Table; false when the word is not
   one of the table's keywords. */
static bool EnumValueOfWord(const TW_ConfigFileStream_s *S, const TW_EnumTable_s *Table,
                            int32_t *Value)
{
    return TW_EnumValue(Table, KeywordName(S->KeywordId), Value);
}

/* Shows "<Lead><the keywords of Values joined by Separator>" as a syntax
   error: the "one of" message of a word that is not among them. */
static void ShowExpectedOneOf(TW_ConfigFileStream_s *S, const char *Lead,
                              const TW_EnumTable_s *Table, const int32_t *Values, int32_t N,
                              const char *Separator)
{
    char Detail[200];
    char List[160];
    TW_EnumKeywordList(Table, Values, N, Separator, List, sizeof(List));
    snprintf(Detail, sizeof(Detail), "%s%s", Lead, List);
    ShowSyntaxError(S, Detail);
}

/* Reads "=" and a word of Table (any of its values) into *Value. A missing
   "=" is reported and the value kept; false (parse ends) for a word that
   is none of the table's keywords, after "Expected one of" with them all. */
static bool AssignEnum(TW_ConfigFileStream_s *S, const TW_EnumTable_s *Table, int32_t *Value)
{
    TW_WordValue_e Word = ReadWordValue(S);
    if (Word == WordValue_NoEquals)
        return true;
    if (Word == WordValue_NotAWord)
        return false;
    if (EnumValueOfWord(S, Table, Value))
        return true;
    int32_t All[16];
    int32_t N = 0;
    for (int32_t Row = 0; Row < Table->Count && N < 16; Row++)
        All[N++] = Table->Rows[Row].Value;
    ShowExpectedOneOf(S, "Expected one of ", Table, All, N, ",");
    return false;
}

static bool AssignSearchMode(TW_ConfigFileStream_s *S, TW_SearchMode_e *Mode)
{
    int32_t Value = *Mode;
    bool Ok = AssignEnum(S, &SearchModeTable, &Value);
    *Mode = (TW_SearchMode_e)Value;
    return Ok;
}

static bool AssignDelimiter(TW_ConfigFileStream_s *S, TW_Delimiter_e *Delimiter)
{
    int32_t Value = *Delimiter;
    bool Ok = AssignEnum(S, &DelimiterTable, &Value);
    *Delimiter = (TW_Delimiter_e)Value;
    return Ok;
}

/* Expects the "{" that opens a section. */
static bool ExpectOpenBrace(TW_ConfigFileStream_s *S)
{
    if (Advance(S) == Token_OpenBrace)
        return true;
    ShowExpected(S, "{");
    return false;
}

/* Reads the block that follows a STARTID or ENDID value. For a LINE or
   KEYWORD marker: "{", KEYWORD = string and LINE = integer in any number,
   "}". For any other marker the block is skipped through its "}". False
   (parse ends) after a syntax error. */
static bool ProcessFileMarker(TW_ConfigFileStream_s *S, TW_FileMarker_s *Marker)
{
    if (Marker->Marker != FileMarker_Line && Marker->Marker != FileMarker_Keyword) {
        for (;;) {
            TW_Token_e Token = Advance(S);
            if (Token == Token_CloseBrace)
                return true;
            if (Token == Token_EndOfText) {
                ShowSyntaxError(S, "Expected '}'");
                return false;
            }
        }
    }

    if (!ExpectOpenBrace(S))
        return false;
    for (;;) {
        TW_Token_e Token = Advance(S);
        if (Token == Token_CloseBrace)
            return true;
        if (Token == Token_EndOfText) {
            ShowSyntaxError(S, "Expected '}' before end of file");
            return false;
        }
        if (Token == Token_Keyword && S->KeywordId == Keyword_Keyword) {
            if (!AssignString(S, Marker->Keyword, sizeof(Marker->Keyword)))
                return false;
        } else if (Token == Token_Keyword && S->KeywordId == Keyword_Line) {
            if (!AssignLgIndex(S, &Marker->Line))
                return false;
        } else {
            ShowSyntaxError(S, "Expected KEYWORD = ... or LINE = ....");
            return false;
        }
    }
}

/* Puts the file-name pattern Value into Dest in its "*.ext" form: "*.x"
   stays, ".x" gets "*" in front, anything else (also "*" and "*x") gets
   "*." in front. */
static void NormaliseFileExt(const char *Value, char *Dest, size_t Size)
{
    const char *Prefix = "*.";
    if (strlen(Value) > 1 && Value[0] == '*') {
        if (Value[1] == '.')
            Prefix = "";
    } else if (Value[0] == '.') {
        Prefix = "*";
    }
    /* The record's field is as long as a string value, so a long pattern is
       cut at the end of the field. */
    size_t PrefixLength = strlen(Prefix);
    TW_Strncpy(Dest, Prefix, Size);
    TW_Strncpy(Dest + PrefixLength, Value, Size - PrefixLength);
}

/* Splits Text at its commas into List; a backslash before a comma keeps
   the comma in the name. An empty text gives no names. False when the list
   cannot grow. */
static bool SplitNames(const char *Text, StringList_s *List)
{
    char Piece[TW_MAX_STRING_LENGTH + 1];
    size_t Length = 0;

    if (*Text == '\0')
        return true;
    for (const char *P = Text;; P++) {
        if (*P == '\\' && P[1] == ',') {
            Piece[Length++] = ',';
            P++;
        } else if (*P == ',' || *P == '\0') {
            Piece[Length] = '\0';
            if (!CvnUtilStringListAppendString(List, Piece))
                return false;
            Length = 0;
            if (*P == '\0')
                return true;
        } else if (Length < TW_MAX_STRING_LENGTH) {
            Piece[Length++] = *P;
        }
    }
}

/* Replaces the variable names by the comma-separated names of Text. Each
   entry is selected and gets a preview width of its length plus 2. Leaves
   no names after "No variable names specified" or "Out of memory". */
static void AssignVariableNames(TW_ConfigFileStream_s *S, TW_Variables_s *Vars, const char *Text)
{
    TW_Free(Vars->Names);
    Vars->Names = NULL;
    Vars->NumNames = 0;

    StringList_s *List = CvnUtilStringListAlloc();
    if (List == NULL || !SplitNames(Text, List)) {
        ShowDialogErrorMessage("Out of memory");
        CvnUtilStringListDealloc(&List);
        return;
    }

    int32_t Count = (int32_t)CvnUtilStringListGetCount(List);
    if (Count == 0) {
        ShowSyntaxError(S, "No variable names specified");
        CvnUtilStringListDealloc(&List);
        return;
    }

    TW_Variable_s *Names = (TW_Variable_s *)TW_Calloc((size_t)Count, sizeof(TW_Variable_s));
    if (Names == NULL) {
        ShowDialogErrorMessage("Out of memory");
        CvnUtilStringListDealloc(&List);
        return;
    }
    for (int32_t I = 0; I < Count; I++) {
        char *Name = CvnUtilStringListGetString(List, I + 1);
        if (Name == NULL) {
            ShowDialogErrorMessage("Out of memory");
            TW_Free(Names);
            CvnUtilStringListDealloc(&List);
            return;
        }
        TW_Strncpy(Names[I].Name, Name, sizeof(Names[I].Name));
        Names[I].NameLength = (int32_t)strlen(Names[I].Name);
        Names[I].Selected = true;
        Names[I].ColumnWidth = Names[I].NameLength + 2;
        CvnUtilStringDealloc(&Name);
    }
    CvnUtilStringListDealloc(&List);
    Vars->Names = Names;
    Vars->NumNames = Count;
}

/* Reads the value of LOADED straight from the text (the "=" already read):
   blanks, tabs and double quotes are skipped; "[...]", quoted or not, gives
   the variable numbers, every run of digits being one; any other word on
   the line leaves the set empty, meaning all variables. The set is cleared
   first. */
static void ReadLoadedVariables(TW_ConfigFileStream_s *S, Set_s *Set)
{
    const char *P = S->Position;

    if (Set != NULL)
        CvnUtilSetClear(Set);
    while (*P == ' ' || *P == '\t' || *P == '"')
        P++;

    if (*P != '[') {
        while (*P != '\0' && !isspace((unsigned char)*P))
            P++;
        S->Position = P;
        return;
    }

    P++;
    while (*P != '\0' && *P != ']' && *P != '\n') {
        if (!isdigit((unsigned char)*P)) {
            P++;
            continue;
        }
        LgIndex_t Number = 0;
        while (isdigit((unsigned char)*P)) {
            if (Number < 1000000000000LL)
                Number = Number * 10 + (*P - '0');
            P++;
        }
        if (Number < 1) {
            snprintf(WarningBuffer, sizeof(WarningBuffer),
                     "Invalid skipped variable index on or about line %d.This value will be "
                     "ignored.",
                     (int)S->LineNumber);
            CvnUtilDialogMessageBox(WarningBuffer, MessageBox_Warning);
        } else if (Set != NULL) {
            CvnUtilSetAddMember(Set, Number, TRUE);
        }
    }
    if (*P == ']')
        P++;
    if (*P == '"') /* the quote closing a quoted list */
        P++;
    S->Position = P;
}

/* How a key of a section reads its value. */
typedef enum {
    Field_String,     /* "= quoted string" into a char array of Size */
    Field_LgIndex,    /* "= number" */
    Field_Boolean,    /* "= TRUE|FALSE" */
    Field_SearchMode, /* "= NONE|LINE|KEYWORD" */
    Field_Delimiter,  /* "= AUTO|TAB|..." */
    Field_Handler,    /* Handler reads the value */
    Field_Section     /* "{", then the keys of Section up to its "}" */
} TW_FieldKind_e;

struct TW_Section_s;

/* Reads one key's value into Rec. False when the parse must end. */
typedef bool (*TW_KeyHandler)(TW_ConfigFileStream_s *S, TW_ConfigInstructions_s *Rec);

/* One key a section accepts and where its value goes. */
typedef struct {
    TW_KeywordId_e KeywordId;
    TW_FieldKind_e Kind;
    size_t Offset;                 /* of the field in the record */
    size_t Size;                   /* of a Field_String destination */
    TW_KeyHandler Handler;         /* Field_Handler */
    const TW_Section_s *Section;   /* Field_Section */
} TW_SectionKey_s;

/* The keys of one section and the texts of its two syntax errors. */
struct TW_Section_s {
    const TW_SectionKey_s *Keys;
    size_t NumKeys;
    const char *NotAKeyword; /* NULL: anything but a keyword ends silently */
    const char *UnknownKey;  /* a keyword the section does not know */
};

#define TW_FIELD(Member) offsetof(TW_ConfigInstructions_s, Member)
#define TW_VARIABLE(Member) (TW_FIELD(Variables) + offsetof(TW_Variables_s, Member))
#define TW_DIMENSION(Member) (TW_FIELD(Dimension) + offsetof(TW_Dimension_s, Member))
#define TW_FILTER(Member) (TW_FIELD(GlobalFilters) + offsetof(TW_GlobalFilters_s, Member))
#define TW_KEY(Id, Kind, Offset, Size) {Id, Kind, Offset, Size, NULL, NULL}
#define TW_HANDLER(Id, Handler) {Id, Field_Handler, 0, 0, Handler, NULL}
#define TW_SECTION(Id, Section) {Id, Field_Section, 0, 0, NULL, &Section}
#define TW_COUNT(Array) (sizeof(Array) / sizeof((Array)[0]))

static bool ScanSection(TW_ConfigFileStream_s *S, TW_ConfigInstructions_s *Rec,
                        const TW_Section_s *Section);

/* Reads the value of Key into its field of Rec. False when the parse must
   end. */
static bool AssignKey(TW_ConfigFileStream_s *S, TW_ConfigInstructions_s *Rec,
                      const TW_SectionKey_s *Key)
{
    void *Field = (char *)Rec + Key->Offset;
    switch (Key->Kind) {
    case Field_String:
        return AssignString(S, (char *)Field, Key->Size);
    case Field_LgIndex:
        return AssignLgIndex(S, (int32_t *)Field);
    case Field_Boolean:
        return AssignBoolean(S, (bool *)Field);
    case Field_SearchMode:
        return AssignSearchMode(S, (TW_SearchMode_e *)Field);
    case Field_Delimiter:
        return AssignDelimiter(S, (TW_Delimiter_e *)Field);
    case Field_Handler:
        return Key->Handler(S, Rec);
    case Field_Section:
        return ExpectOpenBrace(S) && ScanSection(S, Rec, Key->Section);
    }
    return false;
}

/* Reads the keys of Section up to its "}" (or, at the top level, up to the
   first token that is no keyword). An unknown keyword is reported and
   skipped. False when the parse must end. */
static bool ScanSection(TW_ConfigFileStream_s *S, TW_ConfigInstructions_s *Rec,
                        const TW_Section_s *Section)
{
    for (;;) {
        TW_Token_e Token = Advance(S);
        if (Token != Token_Keyword) {
            if (Section->NotAKeyword != NULL && Token != Token_CloseBrace)
                ShowSyntaxError(S, Section->NotAKeyword);
            return true;
        }
        const TW_SectionKey_s *Key = NULL;
        for (size_t I = 0; I < Section->NumKeys && Key == NULL; I++) {
            if (Section->Keys[I].KeywordId == S->KeywordId)
                Key = &Section->Keys[I];
        }
        if (Key == NULL)
            ShowSyntaxError(S, Section->UnknownKey);
        else if (!AssignKey(S, Rec, Key))
            return false;
    }
}

static bool AssignNames(TW_ConfigFileStream_s *S, TW_ConfigInstructions_s *Rec)
{
    char Names[TW_MAX_STRING_LENGTH + 1];
    if (!AssignString(S, Names, sizeof(Names)))
        return false;
    AssignVariableNames(S, &Rec->Variables, Names);
    return true;
}

static bool AssignLoaded(TW_ConfigFileStream_s *S, TW_ConfigInstructions_s *Rec)
{
    if (Advance(S) != Token_Equals) {
        ShowExpected(S, "'='");
        return false;
    }
    ReadLoadedVariables(S, Rec->Variables.LoadedVars);
    return true;
}

static const TW_SectionKey_s TitleKeys[] = {
    TW_KEY(Keyword_Search, Field_SearchMode, TW_FIELD(TitleSearchMode), 0),
    TW_KEY(Keyword_Name, Field_String, TW_FIELD(TitleName), sizeof(TW_ConfigInstructions_s::TitleName) - 1),
    TW_KEY(Keyword_Line, Field_LgIndex, TW_FIELD(TitleLine), 0),
    TW_KEY(Keyword_Keyword, Field_String, TW_FIELD(TitleKeyword), sizeof(TW_ConfigInstructions_s::TitleKeyword)),
    TW_KEY(Keyword_Delimiter, Field_Delimiter, TW_FIELD(TitleDelimiter), 0),
    TW_KEY(Keyword_Width, Field_LgIndex, TW_FIELD(TitleWidth), 0),
};
static const TW_Section_s TitleSection = {TitleKeys, TW_COUNT(TitleKeys), TW_MISSING_BRACE_DETAIL,
                                          "Invalid keyword"};

static const TW_SectionKey_s VariablesKeys[] = {
    TW_KEY(Keyword_Search, Field_SearchMode, TW_VARIABLE(SearchMode), 0),
    TW_HANDLER(Keyword_Names, AssignNames),
    TW_HANDLER(Keyword_Loaded, AssignLoaded),
    TW_KEY(Keyword_StartLine, Field_LgIndex, TW_VARIABLE(StartLine), 0),
    TW_KEY(Keyword_EndLine, Field_LgIndex, TW_VARIABLE(EndLine), 0),
    TW_KEY(Keyword_Width, Field_LgIndex, TW_VARIABLE(Width), 0),
    TW_KEY(Keyword_Delimiter, Field_Delimiter, TW_VARIABLE(Delimiter), 0),
};
static const TW_Section_s VariablesSection = {VariablesKeys, TW_COUNT(VariablesKeys),
                                              TW_MISSING_BRACE_DETAIL, "Invalid keyword"};

/* The markers a STARTID (IsStart) or ENDID may name, and the ones its
   "one of" message lists: an end may also be EOF, which that message does
   not name. */
static const int32_t StartMarkers[] = {FileMarker_FirstNumericLine, FileMarker_Line,
                                       FileMarker_Keyword};
static const int32_t EndMarkers[] = {FileMarker_FirstNonNumericLine, FileMarker_Line,
                                     FileMarker_Keyword, FileMarker_EOF};
static const int32_t EndMarkersNamed = 3;

/* Reads a STARTID (IsStart) or ENDID value and its marker block. A value
   that is not one of the marker's kinds is reported and the marker keeps
   its kind; its block is read all the same. */
static bool AssignFileMarker(TW_ConfigFileStream_s *S, TW_FileMarker_s *Marker, bool IsStart)
{
    if (ReadWordValue(S) != WordValue_Ok)
        return false;
    const int32_t *Allowed = IsStart ? StartMarkers : EndMarkers;
    int32_t NumAllowed = IsStart ? TW_COUNT(StartMarkers) : TW_COUNT(EndMarkers);
    int32_t Value = 0;
    bool Known = EnumValueOfWord(S, &FileMarkerTable, &Value);
    bool Ok = false;
    for (int32_t I = 0; Known && I < NumAllowed; I++)
        Ok = Ok || Allowed[I] == Value;
    if (Ok)
        Marker->Marker = (TW_FileMarker_e)Value;
    else
        ShowExpectedOneOf(S, "Expected one of: ", &FileMarkerTable, Allowed,
                          IsStart ? NumAllowed : EndMarkersNamed, ",");
    return ProcessFileMarker(S, Marker);
}

static bool AssignStartId(TW_ConfigFileStream_s *S, TW_ConfigInstructions_s *Rec)
{
    return AssignFileMarker(S, &Rec->StartId, true);
}

static bool AssignEndId(TW_ConfigFileStream_s *S, TW_ConfigInstructions_s *Rec)
{
    return AssignFileMarker(S, &Rec->EndId, false);
}

/* FORMAT reads the ordered formats only, and names them point first. */
static const int32_t ReadFormats[] = {DataFormat_IJKPoint, DataFormat_IJKBlock};

static bool AssignFormat(TW_ConfigFileStream_s *S, TW_ConfigInstructions_s *Rec)
{
    if (ReadWordValue(S) != WordValue_Ok)
        return false;
    int32_t Value = 0;
    if (EnumValueOfWord(S, &DataFormatTable, &Value) &&
        (Value == DataFormat_IJKPoint || Value == DataFormat_IJKBlock)) {
        Rec->Format = (DataFormat_e)Value;
        return true;
    }
    ShowExpectedOneOf(S, "Expected one of ", &DataFormatTable, ReadFormats,
                      TW_COUNT(ReadFormats), ", ");
    return false;
}

static const TW_SectionKey_s ImportKeys[] = {
    TW_HANDLER(Keyword_StartId, AssignStartId),
    TW_HANDLER(Keyword_EndId, AssignEndId),
    TW_HANDLER(Keyword_Format, AssignFormat),
    TW_KEY(Keyword_Delimiter, Field_Delimiter, TW_FIELD(DataDelimiter), 0),
    TW_KEY(Keyword_Width, Field_LgIndex, TW_FIELD(DataWidth), 0),
};
static const TW_Section_s ImportSection = {ImportKeys, TW_COUNT(ImportKeys),
                                           TW_MISSING_BRACE_DETAIL, "Invalid keyword"};

static const TW_SectionKey_s DimensionKeys[] = {
    TW_KEY(Keyword_Auto, Field_Boolean, TW_DIMENSION(Auto), 0),
    TW_KEY(Keyword_CreateMultipleZones, Field_Boolean, TW_FIELD(CreateMultipleZones), 0),
    TW_KEY(Keyword_Keyword, Field_String, TW_FIELD(ZoneKeyword), sizeof(TW_ConfigInstructions_s::ZoneKeyword)),
    TW_KEY(Keyword_IMax, Field_LgIndex, TW_DIMENSION(IMax), 0),
    TW_KEY(Keyword_JMax, Field_LgIndex, TW_DIMENSION(JMax), 0),
    TW_KEY(Keyword_KMax, Field_LgIndex, TW_DIMENSION(KMax), 0),
};
static const TW_Section_s DimensionSection = {DimensionKeys, TW_COUNT(DimensionKeys),
                                              "Unknown syntax error or missing '}' ",
                                              "Expected one of AUTO,IMAX,JMAX,KMAX"};

static const TW_SectionKey_s DataKeys[] = {
    TW_KEY(Keyword_IgnoreNonNumericTokens, Field_Boolean, TW_FIELD(IgnoreNonNumericTokens), 0),
    TW_SECTION(Keyword_Import, ImportSection),
    TW_SECTION(Keyword_Dimension, DimensionSection),
};
static const TW_Section_s DataSection = {DataKeys, TW_COUNT(DataKeys), TW_MISSING_BRACE_DETAIL,
                                         "Invalid keyword found"};

/* Reads "= [list]" into List and sets Use to whether it holds a range. */
static bool AssignNumList(TW_ConfigFileStream_s *S, TW_NumList_s *List, bool *Use)
{
    if (Advance(S) != Token_Equals || Advance(S) != Token_NumList) {
        ShowExpected(S, "Number range in the form of [nn-nn,...]");
        return false;
    }
    *List = S->NumList;
    *Use = List->NumRanges > 0;
    return true;
}

/* Reads a filter string into Dest; the filter is used when it is not
   empty. */
static bool AssignFilterString(TW_ConfigFileStream_s *S, char *Dest, size_t Size, bool *Use)
{
    if (!AssignString(S, Dest, Size))
        return false;
    *Use = Dest[0] != '\0';
    return true;
}

static bool AssignFilterKeyword(TW_ConfigFileStream_s *S, TW_ConfigInstructions_s *Rec)
{
    TW_GlobalFilters_s *Filters = &Rec->GlobalFilters;
    return AssignFilterString(S, Filters->Keyword, sizeof(Filters->Keyword), &Filters->UseKeyword);
}

static bool AssignFilterComment(TW_ConfigFileStream_s *S, TW_ConfigInstructions_s *Rec)
{
    TW_GlobalFilters_s *Filters = &Rec->GlobalFilters;
    return AssignFilterString(S, Filters->Comment, sizeof(Filters->Comment), &Filters->UseComment);
}

static bool AssignColumns(TW_ConfigFileStream_s *S, TW_ConfigInstructions_s *Rec)
{
    return AssignNumList(S, &Rec->GlobalFilters.Columns, &Rec->GlobalFilters.UseColumns);
}

static bool AssignRows(TW_ConfigFileStream_s *S, TW_ConfigInstructions_s *Rec)
{
    return AssignNumList(S, &Rec->GlobalFilters.Rows, &Rec->GlobalFilters.UseRows);
}

/* Writing USEBLANKCELLVALUE switches blank-cell replacement on, whatever
   boolean it gives. */
static bool AssignUseBlankCellValue(TW_ConfigFileStream_s *S, TW_ConfigInstructions_s *Rec)
{
    bool Ignored = false;
    if (!AssignBoolean(S, &Ignored))
        return false;
    Rec->GlobalFilters.UseBlankCellValue = true;
    return true;
}

/* A blank-cell value also switches blank-cell replacement on. */
static bool AssignBlankCellValue(TW_ConfigFileStream_s *S, TW_ConfigInstructions_s *Rec)
{
    if (Advance(S) != Token_Equals || Advance(S) != Token_Number) {
        ShowExpected(S, "number");
        return false;
    }
    Rec->GlobalFilters.BlankCellValue = S->DoubleValue;
    Rec->GlobalFilters.UseBlankCellValue = true;
    return true;
}

static const TW_SectionKey_s GlobalFiltersKeys[] = {
    TW_HANDLER(Keyword_Keyword, AssignFilterKeyword),
    TW_HANDLER(Keyword_Comment, AssignFilterComment),
    TW_HANDLER(Keyword_Columns, AssignColumns),
    TW_HANDLER(Keyword_Rows, AssignRows),
    TW_HANDLER(Keyword_UseBlankCellValue, AssignUseBlankCellValue),
    TW_HANDLER(Keyword_BlankCellValue, AssignBlankCellValue),
};
static const TW_Section_s GlobalFiltersSection = {GlobalFiltersKeys, TW_COUNT(GlobalFiltersKeys),
                                                  "Unknown keyword or missing '}'",
                                                  "Invalid keyword"};

static bool AssignFileExt(TW_ConfigFileStream_s *S, TW_ConfigInstructions_s *Rec)
{
    char Value[TW_MAX_STRING_LENGTH + 1];
    if (!AssignString(S, Value, sizeof(Value)))
        return false;
    NormaliseFileExt(Value, Rec->FileExt, sizeof(Rec->FileExt));
    return true;
}

/* The top level. Anything but a keyword ends the text: the tokenizer has
   reported what it found wrong; an unknown word ends it silently.
   CONFIGFNAME is an invalid keyword here: references are resolved by the
   loader. */
static const TW_SectionKey_s TopLevelKeys[] = {
    TW_KEY(Keyword_Version, Field_LgIndex, TW_FIELD(Version), 0),
    TW_HANDLER(Keyword_FileExt, AssignFileExt),
    TW_KEY(Keyword_FileDesc, Field_String, TW_FIELD(FileDesc), sizeof(TW_ConfigInstructions_s::FileDesc)),
    TW_SECTION(Keyword_Title, TitleSection),
    TW_SECTION(Keyword_Variables, VariablesSection),
    TW_SECTION(Keyword_Data, DataSection),
    TW_SECTION(Keyword_GlobalFilters, GlobalFiltersSection),
};
static const TW_Section_s TopLevel = {TopLevelKeys, TW_COUNT(TopLevelKeys), NULL, "Invalid keyword"};

void ScanInstructionSet(const char *FileName, const char *Text, TW_ConfigInstructions_s *Rec)
{
    if (Text == NULL || Rec == NULL)
        return;

    TW_ConfigFileStream_s Stream;
    InitConfigFileStream(&Stream, FileName, Text);
    ScanSection(&Stream, Rec, &TopLevel);
}

/* True when Line holds nothing but white space. */
static bool IsBlankLine(const char *Line)
{
    for (; *Line != '\0'; Line++) {
        if (!isspace((unsigned char)*Line))
            return false;
    }
    return true;
}

bool IsInstructionSetFile(const char *Path)
{
    if (Path == NULL)
        return false;
    FILE *File = corvane::filesystem::fileOpen(Path, "r");
    if (File == NULL)
        return false;

    char Line[255] = "";
    while (fgets(Line, sizeof(Line), File) != NULL) {
        if (!IsBlankLine(Line))
            break;
    }
    fclose(File);
    return strstr(Line, TW_MAGIC_LINE) != NULL;
}

bool LoadConfigFile(const char *Path, TW_ConfigInstructions_s **Rec)
{
    static char Message[1002];

    FILE *File = corvane::filesystem::fileOpen(Path != NULL ? Path : "", "r");
    if (File == NULL) {
        snprintf(Message, sizeof(Message),
                 "Cannot open file \"%s\" for reading. Check disk space or permissions.",
                 Path != NULL ? Path : "");
        ShowDialogErrorMessage(Message);
        return false;
    }

    char *Text = TW_ReadWholeFile(File, "InstructionString");
    fclose(File);
    if (Text == NULL) {
        ShowDialogErrorMessage("Out of memory");
        return false;
    }

    TW_ConfigInstructions_s *New = ImportInstructionsAlloc();
    if (New == NULL) {
        CvnUtilStringDealloc(&Text);
        return false;
    }
    ScanInstructionSet(Path, Text, New);

    char Name[256];
    char Ext[256];
    TW_splitpath(Path, NULL, NULL, Name, Ext);
    New->IsModified = false;
    New->IsNew = false;
    TW_Strncpy(New->FilePath, Path, sizeof(New->FilePath));
    snprintf(New->DisplayName, sizeof(New->DisplayName), "%s%s", Name, Ext);
    /* The record takes the extension of the instruction-set file itself. */
    TW_Strncpy(New->FileExt, Ext, sizeof(New->FileExt));
    *Rec = New;

    CvnUtilStringDealloc(&Text);
    return true;
}

} // namespace corvane::cvnutildataio
