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
#include <cstdio>
#include <cstring>

#include "Globals.h"
#include "TW_Alloc.h"
#include "Tokenizer.h"

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

/* Reads SEARCH's value into Mode. A missing "=" is reported and the mode
   kept; false (parse ends) for a value that is no search mode. */
static bool AssignSearchMode(TW_ConfigFileStream_s *S, TW_SearchMode_e *Mode)
{
    TW_WordValue_e Value = ReadWordValue(S);
    if (Value == WordValue_NoEquals)
        return true;
    if (Value == WordValue_NotAWord)
        return false;
    switch (S->KeywordId) {
    case Keyword_None:
        *Mode = SearchMode_None;
        return true;
    case Keyword_Line:
        *Mode = SearchMode_Line;
        return true;
    case Keyword_Keyword:
        *Mode = SearchMode_Keyword;
        return true;
    default:
        ShowSyntaxError(S, "Expected one of NONE,LINE,KEYWORD");
        return false;
    }
}

/* Reads DELIMITER's value into Delimiter, with the rules of
   AssignSearchMode. */
static bool AssignDelimiter(TW_ConfigFileStream_s *S, TW_Delimiter_e *Delimiter)
{
    TW_WordValue_e Value = ReadWordValue(S);
    if (Value == WordValue_NoEquals)
        return true;
    if (Value == WordValue_NotAWord)
        return false;
    if (S->KeywordId >= Keyword_Auto && S->KeywordId <= Keyword_Fixed) {
        *Delimiter = (TW_Delimiter_e)(Delimiter_Auto + (S->KeywordId - Keyword_Auto));
        return true;
    }
    ShowSyntaxError(S, "Expected one of AUTO,TAB,SPACE,SEMICOLON,COMMA,FIXED");
    return false;
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

/* Reads the keys of TITLE up to its "}". False when the parse must end. */
static bool ScanTitleSection(TW_ConfigFileStream_s *S, TW_ConfigInstructions_s *Rec)
{
    for (;;) {
        TW_Token_e Token = Advance(S);
        if (Token == Token_CloseBrace)
            return true;
        if (Token != Token_Keyword) {
            ShowSyntaxError(S, TW_MISSING_BRACE_DETAIL);
            return true;
        }
        bool Ok = true;
        switch (S->KeywordId) {
        case Keyword_Search:
            Ok = AssignSearchMode(S, &Rec->TitleSearchMode);
            break;
        case Keyword_Name:
            Ok = AssignString(S, Rec->TitleName, sizeof(Rec->TitleName) - 1);
            break;
        case Keyword_Line:
            Ok = AssignLgIndex(S, &Rec->TitleLine);
            break;
        case Keyword_Keyword:
            Ok = AssignString(S, Rec->TitleKeyword, sizeof(Rec->TitleKeyword));
            break;
        case Keyword_Delimiter:
            Ok = AssignDelimiter(S, &Rec->TitleDelimiter);
            break;
        case Keyword_Width:
            Ok = AssignLgIndex(S, &Rec->TitleWidth);
            break;
        default:
            ShowSyntaxError(S, "Invalid keyword");
            break;
        }
        if (!Ok)
            return false;
    }
}

/* Reads the keys of VARIABLES up to its "}". False when the parse must
   end. */
static bool ScanVariablesSection(TW_ConfigFileStream_s *S, TW_ConfigInstructions_s *Rec)
{
    TW_Variables_s *Vars = &Rec->Variables;
    char Names[TW_MAX_STRING_LENGTH + 1];

    for (;;) {
        TW_Token_e Token = Advance(S);
        if (Token == Token_CloseBrace)
            return true;
        if (Token != Token_Keyword) {
            ShowSyntaxError(S, TW_MISSING_BRACE_DETAIL);
            return true;
        }
        bool Ok = true;
        switch (S->KeywordId) {
        case Keyword_Search:
            Ok = AssignSearchMode(S, &Vars->SearchMode);
            break;
        case Keyword_Names:
            Ok = AssignString(S, Names, sizeof(Names));
            if (Ok)
                AssignVariableNames(S, Vars, Names);
            break;
        case Keyword_Loaded:
            if (Advance(S) != Token_Equals) {
                ShowExpected(S, "'='");
                Ok = false;
            } else {
                ReadLoadedVariables(S, Vars->LoadedVars);
            }
            break;
        case Keyword_StartLine:
            Ok = AssignLgIndex(S, &Vars->StartLine);
            break;
        case Keyword_EndLine:
            Ok = AssignLgIndex(S, &Vars->EndLine);
            break;
        case Keyword_Width:
            Ok = AssignLgIndex(S, &Vars->Width);
            break;
        case Keyword_Delimiter:
            Ok = AssignDelimiter(S, &Vars->Delimiter);
            break;
        default:
            ShowSyntaxError(S, "Invalid keyword");
            break;
        }
        if (!Ok)
            return false;
    }
}

/* Reads a STARTID (IsStart) or ENDID value and its marker block. A value
   that is not one of the marker's kinds is reported and the marker keeps
   its kind; its block is read all the same. */
static bool AssignFileMarker(TW_ConfigFileStream_s *S, TW_FileMarker_s *Marker, bool IsStart)
{
    if (ReadWordValue(S) != WordValue_Ok)
        return false;
    switch (S->KeywordId) {
    case Keyword_Line:
        Marker->Marker = FileMarker_Line;
        break;
    case Keyword_Keyword:
        Marker->Marker = FileMarker_Keyword;
        break;
    case Keyword_FirstNumericLine:
        if (IsStart)
            Marker->Marker = FileMarker_FirstNumericLine;
        else
            ShowSyntaxError(S, "Expected one of: FIRSTNONNUMERICLINE,LINE,KEYWORD");
        break;
    case Keyword_FirstNonNumericLine:
    case Keyword_EOF:
        if (IsStart)
            ShowSyntaxError(S, "Expected one of: FIRSTNUMERICLINE,LINE,KEYWORD");
        else
            Marker->Marker = S->KeywordId == Keyword_EOF ? FileMarker_EOF
                                                         : FileMarker_FirstNonNumericLine;
        break;
    default:
        ShowSyntaxError(S, IsStart ? "Expected one of: FIRSTNUMERICLINE,LINE,KEYWORD"
                                   : "Expected one of: FIRSTNONNUMERICLINE,LINE,KEYWORD");
        break;
    }
    return ProcessFileMarker(S, Marker);
}

/* Reads the keys of IMPORT up to its "}". False when the parse must end. */
static bool ScanImportSection(TW_ConfigFileStream_s *S, TW_ConfigInstructions_s *Rec)
{
    for (;;) {
        TW_Token_e Token = Advance(S);
        if (Token == Token_CloseBrace)
            return true;
        if (Token != Token_Keyword) {
            ShowSyntaxError(S, TW_MISSING_BRACE_DETAIL);
            return true;
        }
        bool Ok = true;
        switch (S->KeywordId) {
        case Keyword_StartId:
            Ok = AssignFileMarker(S, &Rec->StartId, true);
            break;
        case Keyword_EndId:
            Ok = AssignFileMarker(S, &Rec->EndId, false);
            break;
        case Keyword_Format:
            Ok = ReadWordValue(S) == WordValue_Ok;
            if (Ok && S->KeywordId == Keyword_IJKPoint) {
                Rec->Format = DataFormat_IJKPoint;
            } else if (Ok && S->KeywordId == Keyword_IJKBlock) {
                Rec->Format = DataFormat_IJKBlock;
            } else if (Ok) {
                ShowSyntaxError(S, "Expected one of IJKPOINT, IJKBLOCK");
                Ok = false;
            }
            break;
        case Keyword_Delimiter:
            Ok = AssignDelimiter(S, &Rec->DataDelimiter);
            break;
        case Keyword_Width:
            Ok = AssignLgIndex(S, &Rec->DataWidth);
            break;
        default:
            ShowSyntaxError(S, "Invalid keyword");
            break;
        }
        if (!Ok)
            return false;
    }
}

/* Reads the keys of DIMENSION up to its "}". False when the parse must
   end. */
static bool ScanDimensionSection(TW_ConfigFileStream_s *S, TW_ConfigInstructions_s *Rec)
{
    for (;;) {
        TW_Token_e Token = Advance(S);
        if (Token == Token_CloseBrace)
            return true;
        if (Token != Token_Keyword) {
            ShowSyntaxError(S, "Unknown syntax error or missing '}' ");
            return true;
        }
        bool Ok = true;
        switch (S->KeywordId) {
        case Keyword_Auto:
            Ok = AssignBoolean(S, &Rec->Dimension.Auto);
            break;
        case Keyword_CreateMultipleZones:
            Ok = AssignBoolean(S, &Rec->CreateMultipleZones);
            break;
        case Keyword_Keyword:
            Ok = AssignString(S, Rec->ZoneKeyword, sizeof(Rec->ZoneKeyword));
            break;
        case Keyword_IMax:
            Ok = AssignLgIndex(S, &Rec->Dimension.IMax);
            break;
        case Keyword_JMax:
            Ok = AssignLgIndex(S, &Rec->Dimension.JMax);
            break;
        case Keyword_KMax:
            Ok = AssignLgIndex(S, &Rec->Dimension.KMax);
            break;
        default:
            ShowSyntaxError(S, "Expected one of AUTO,IMAX,JMAX,KMAX");
            break;
        }
        if (!Ok)
            return false;
    }
}

/* Reads the keys of DATA (with its IMPORT and DIMENSION sections) up to its
   "}". False when the parse must end. */
static bool ScanDataSection(TW_ConfigFileStream_s *S, TW_ConfigInstructions_s *Rec)
{
    for (;;) {
        TW_Token_e Token = Advance(S);
        if (Token == Token_CloseBrace)
            return true;
        if (Token != Token_Keyword) {
            ShowSyntaxError(S, TW_MISSING_BRACE_DETAIL);
            return true;
        }
        bool Ok = true;
        switch (S->KeywordId) {
        case Keyword_IgnoreNonNumericTokens:
            Ok = AssignBoolean(S, &Rec->IgnoreNonNumericTokens);
            break;
        case Keyword_Import:
            Ok = ExpectOpenBrace(S) && ScanImportSection(S, Rec);
            break;
        case Keyword_Dimension:
            Ok = ExpectOpenBrace(S) && ScanDimensionSection(S, Rec);
            break;
        default:
            ShowSyntaxError(S, "Invalid keyword found");
            break;
        }
        if (!Ok)
            return false;
    }
}

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

/* Reads the keys of GLOBALFILTERS up to its "}". Writing either blank-cell
   key switches blank-cell replacement on, whatever boolean it gives. False
   when the parse must end. */
static bool ScanGlobalFiltersSection(TW_ConfigFileStream_s *S, TW_ConfigInstructions_s *Rec)
{
    TW_GlobalFilters_s *Filters = &Rec->GlobalFilters;

    for (;;) {
        TW_Token_e Token = Advance(S);
        if (Token == Token_CloseBrace)
            return true;
        if (Token != Token_Keyword) {
            ShowSyntaxError(S, "Unknown keyword or missing '}'");
            return true;
        }
        bool Ok = true;
        bool Ignored = false;
        switch (S->KeywordId) {
        case Keyword_Keyword:
            Ok = AssignString(S, Filters->Keyword, sizeof(Filters->Keyword));
            if (Ok)
                Filters->UseKeyword = Filters->Keyword[0] != '\0';
            break;
        case Keyword_Comment:
            Ok = AssignString(S, Filters->Comment, sizeof(Filters->Comment));
            if (Ok)
                Filters->UseComment = Filters->Comment[0] != '\0';
            break;
        case Keyword_Columns:
            Ok = AssignNumList(S, &Filters->Columns, &Filters->UseColumns);
            break;
        case Keyword_Rows:
            Ok = AssignNumList(S, &Filters->Rows, &Filters->UseRows);
            break;
        case Keyword_UseBlankCellValue:
            Ok = AssignBoolean(S, &Ignored);
            if (Ok)
                Filters->UseBlankCellValue = true;
            break;
        case Keyword_BlankCellValue:
            if (Advance(S) != Token_Equals || Advance(S) != Token_Number) {
                ShowExpected(S, "number");
                Ok = false;
            } else {
                Filters->BlankCellValue = S->DoubleValue;
                Filters->UseBlankCellValue = true;
            }
            break;
        default:
            ShowSyntaxError(S, "Invalid keyword");
            break;
        }
        if (!Ok)
            return false;
    }
}

void ScanInstructionSet(const char *FileName, const char *Text, TW_ConfigInstructions_s *Rec)
{
    if (Text == NULL || Rec == NULL)
        return;

    TW_ConfigFileStream_s Stream;
    TW_ConfigFileStream_s *S = &Stream;
    InitConfigFileStream(S, FileName, Text);

    char Value[TW_MAX_STRING_LENGTH + 1];
    for (;;) {
        /* Anything but a keyword ends the text: the tokenizer has reported
           what it found wrong; an unknown word ends it silently. */
        if (Advance(S) != Token_Keyword)
            return;
        bool Ok = true;
        switch (S->KeywordId) {
        case Keyword_Version:
            Ok = AssignLgIndex(S, &Rec->Version);
            break;
        case Keyword_FileExt:
            Ok = AssignString(S, Value, sizeof(Value));
            if (Ok)
                NormaliseFileExt(Value, Rec->FileExt, sizeof(Rec->FileExt));
            break;
        case Keyword_FileDesc:
            Ok = AssignString(S, Rec->FileDesc, sizeof(Rec->FileDesc));
            break;
        case Keyword_Title:
            Ok = ExpectOpenBrace(S) && ScanTitleSection(S, Rec);
            break;
        case Keyword_Variables:
            Ok = ExpectOpenBrace(S) && ScanVariablesSection(S, Rec);
            break;
        case Keyword_Data:
            Ok = ExpectOpenBrace(S) && ScanDataSection(S, Rec);
            break;
        case Keyword_GlobalFilters:
            Ok = ExpectOpenBrace(S) && ScanGlobalFiltersSection(S, Rec);
            break;
        default:
            /* CONFIGFNAME included: references are resolved by the loader. */
            ShowSyntaxError(S, "Invalid keyword");
            break;
        }
        if (!Ok)
            return;
    }
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

    long Size = 0;
    if (fseek(File, 0, SEEK_END) == 0)
        Size = ftell(File);
    if (Size < 0)
        Size = 0;
    rewind(File);

    char *Text = (char *)TW_Malloc((size_t)Size + 1);
    if (Text == NULL) {
        ShowDialogErrorMessage("Out of memory");
        fclose(File);
        return false;
    }
    size_t Read = fread(Text, 1, (size_t)Size, File);
    Text[Read] = '\0';

    TW_ConfigInstructions_s *New = ImportInstructionsAlloc();
    if (New == NULL) {
        TW_Free(Text);
        fclose(File);
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

    TW_Free(Text);
    fclose(File);
    return true;
}

} // namespace corvane::cvnutildataio
