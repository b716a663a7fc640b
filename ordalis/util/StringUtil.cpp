/*
 * StringUtil.cpp - case-insensitive comparison and search, trimming,
 * bounded copies, file-name cropping and splitting, and growing host strings.
 * (The tokeniser is in Tokenizer.cpp, the number scanners in NumberScan.cpp.)
 */
#include <cctype>
#include <cstring>

#include "StringUtil.h"

namespace corvane::cvnutildataio {

#define TW_SPLITPATH_PART 255 /* longest part TW_splitpath stores */

/* Upper-cased copies of Str_ustrstr's arguments; overwritten by each call. */
static char UpperString[TW_MAX_LINE_LENGTH + 1];
static char UpperPattern[TW_MAX_LINE_LENGTH + 1];

/* ASCII a-z folded to A-Z; everything else as it is. */
static inline int FoldCase(unsigned char C)
{
    return (C >= 'a' && C <= 'z') ? C - ('a' - 'A') : C;
}

static inline bool IsBlank(char C)
{
    return C == ' ' || C == '\t';
}

int Str_ustrncmp(const char *S1, const char *S2, size_t N)
{
    if (S1 == nullptr || S2 == nullptr)
        return (S1 == nullptr ? 0 : 1) - (S2 == nullptr ? 0 : 1);
    for (; N > 0; N--, S1++, S2++) {
        int C1 = FoldCase(static_cast<unsigned char>(*S1));
        int C2 = FoldCase(static_cast<unsigned char>(*S2));
        if (C1 != C2)
            return C1 - C2;
        if (C1 == 0)
            break;
    }
    return 0;
}

int Str_ustrcmp(const char *S1, const char *S2)
{
    return Str_ustrncmp(S1, S2, static_cast<size_t>(-1));
}

/* Copies at most TW_MAX_LINE_LENGTH characters of Source upper-cased. */
static void CopyUpper(char *Dest, const char *Source)
{
    size_t I = 0;
    for (; I < TW_MAX_LINE_LENGTH && Source[I]; I++)
        Dest[I] = static_cast<char>(toupper(static_cast<unsigned char>(Source[I])));
    Dest[I] = '\0';
}

const char *Str_ustrstr(const char *String, const char *Pattern)
{
    if (String == nullptr || Pattern == nullptr)
        return nullptr;
    CopyUpper(UpperString, String);
    CopyUpper(UpperPattern, Pattern);
    return strstr(UpperString, UpperPattern);
}

bool IsAllSpaces(const char *S)
{
    if (S == nullptr || *S == '\0')
        return false;
    for (; *S; S++)
        if (!IsBlank(*S))
            return false;
    return true;
}

/* NULL for a NULL string or when the host cannot allocate; the caller
   releases the result with CvnUtilStringDealloc. */
char *TrimString(const char *S)
{
    if (S == nullptr)
        return nullptr;
    while (IsBlank(*S))
        S++;
    size_t Length = strlen(S);
    while (Length > 0 && IsBlank(S[Length - 1]))
        Length--;
    char *Result = CvnUtilStringAlloc(static_cast<LgIndex_t>(Length), "TrimString");
    if (Result != nullptr) {
        memcpy(Result, S, Length);
        Result[Length] = '\0';
    }
    return Result;
}

/* Copies Source without its leading and trailing spaces and tabs; when the
   trimmed copy cannot be made, copies Source as it is. Dest must be large
   enough for Source. */
void TW_Strcpy(char *Dest, const char *Source)
{
    char *Trimmed = TrimString(Source);
    if (Trimmed != nullptr) {
        strcpy(Dest, Trimmed);
        CvnUtilStringDealloc(&Trimmed);
    } else if (Source != nullptr) {
        memmove(Dest, Source, strlen(Source) + 1);
    }
}

void TW_Strncpy(char *Dest, const char *Source, size_t N)
{
    if (N == 0)
        return;
    strncpy(Dest, Source, N - 1);
    Dest[N - 1] = '\0';
}

/* Short names are kept; long ones keep their last path component (from its
   separator) behind as much of the front as fits, or, when the component
   alone is too long, become "..." and the name's last MaxLength-3
   characters. A long name without separator gives an empty string. *Result
   is NULL when the host cannot allocate. */
void TW_CropFileName(const char *Name, char **Result, int MaxLength)
{
    size_t Length = strlen(Name);
    *Result = CvnUtilStringAlloc(static_cast<LgIndex_t>(Length + 4), "TW_CropFileName");
    if (*Result == nullptr)
        return;
    if (MaxLength < 0 || Length <= static_cast<size_t>(MaxLength)) {
        strcpy(*Result, Name);
        return;
    }
    const char *Tail = nullptr;
    for (size_t I = Length; I > 0; I--) {
        char C = Name[I - 1];
        if (C == '/' || C == '\\' || C == ':') {
            Tail = Name + I - 1;
            break;
        }
    }
    if (Tail == nullptr)
        return;
    size_t TailLength = Length - static_cast<size_t>(Tail - Name);
    if (TailLength + 3 >= static_cast<size_t>(MaxLength)) {
        size_t Keep = MaxLength > 3 ? static_cast<size_t>(MaxLength - 3) : 0;
        strcpy(*Result, "...");
        strcat(*Result, Name + Length - Keep);
    } else {
        size_t Head = static_cast<size_t>(MaxLength) - TailLength - 4;
        memcpy(*Result, Name, Head);
        strcpy(*Result + Head, "...");
        strcat(*Result, Tail);
    }
}

/* Every call makes a new string of exactly the needed size. On allocation
   failure the old string is released all the same and *String is NULL. */
void Str_TackOnString(char **String, const char *Text)
{
    if (Text == nullptr)
        Text = "";
    size_t OldLength = *String != nullptr ? strlen(*String) : 0;
    size_t TextLength = strlen(Text);
    char *New = CvnUtilStringAlloc(static_cast<LgIndex_t>(OldLength + TextLength + 1),
                                   "Str_TackOnString");
    if (New != nullptr) {
        if (OldLength > 0)
            memcpy(New, *String, OldLength);
        memcpy(New + OldLength, Text, TextLength + 1);
    }
    if (*String != nullptr)
        CvnUtilStringDealloc(String);
    *String = New;
}

/* Releases *String and makes it a copy of Text (NULL Text leaves NULL).
   False when the copy cannot be made; *String is then NULL. */
bool Str_ReplaceString(char **String, const char *Text)
{
    if (*String != nullptr)
        CvnUtilStringDealloc(String);
    *String = nullptr;
    if (Text == nullptr)
        return true;
    size_t Length = strlen(Text);
    *String = CvnUtilStringAlloc(static_cast<LgIndex_t>(Length), "Str_ReplaceString");
    if (*String == nullptr)
        return false;
    memcpy(*String, Text, Length + 1);
    return true;
}

/* Stores Length characters of From into Part (cut to 255), terminated. */
static void StorePart(char *Part, const char *From, size_t Length)
{
    if (Part == nullptr)
        return;
    if (Length > TW_SPLITPATH_PART)
        Length = TW_SPLITPATH_PART;
    memcpy(Part, From, Length);
    Part[Length] = '\0';
}

void TW_splitpath(const char *Path, char *Drive, char *Dir, char *FName, char *Ext)
{
    const char *Rest = Path;
    if (Path[0] != '\0' && Path[1] == ':') {
        StorePart(Drive, Path, 2);
        Rest = Path + 2;
    } else {
        StorePart(Drive, Path, 0);
    }
    const char *LastSeparator = nullptr;
    const char *LastDot = nullptr;
    const char *End = Rest;
    for (; *End; End++) {
        if (*End == '/' || *End == '\\')
            LastSeparator = End;
        else if (*End == '.')
            LastDot = End;
    }
    const char *NameStart = Rest;
    if (LastSeparator != nullptr) {
        StorePart(Dir, Rest, static_cast<size_t>(LastSeparator + 1 - Rest));
        NameStart = LastSeparator + 1;
    } else {
        StorePart(Dir, Rest, 0);
    }
    if (LastDot != nullptr && LastDot >= NameStart) {
        StorePart(FName, NameStart, static_cast<size_t>(LastDot - NameStart));
        StorePart(Ext, LastDot, static_cast<size_t>(End - LastDot));
    } else {
        StorePart(FName, NameStart, static_cast<size_t>(End - NameStart));
        StorePart(Ext, End, 0);
    }
}

} // namespace corvane::cvnutildataio
