/*
 * EnteredVarNames.cpp - the variable names a user types: the text cut into
 * names on line feeds and commas, then an array of name entries.
 */
#include "EnteredVarNames.h"

#include <cctype>
#include <cstdlib>
#include <cstring>

#include "AddOnHost.h"
#include "StringUtil.h"
#include "TW_Alloc.h"

namespace corvane::cvnutildataio {

static bool EndsName(char C)
{
    return C == '\0' || C == '\n' || C == ',';
}

static bool IsBlank(char C)
{
    return isspace((unsigned char)C) != 0;
}

/* Appends the names of Text to List; false after "Out of memory" when the
   list could not take one (the names before it stay). */
static bool CollectNames(const char *Text, StringList_s *List)
{
    char Name[TW_MAX_VARNAME_LENGTH + 1];
    const char *P = Text;
    while (*P != '\0') {
        while (*P == '\n' || *P == ',' || IsBlank(*P))
            P++;
        if (*P == '\0')
            break;
        size_t Length = 0;
        while (!EndsName(*P) && Length < TW_MAX_VARNAME_LENGTH)
            Name[Length++] = *P++;
        Name[Length] = '\0';
        /* Only a separator trims: the last name of the text keeps its
           trailing blanks, and so does a name cut at 128 characters. */
        if (*P == '\n' || *P == ',')
            while (Length > 0 && IsBlank(Name[Length - 1]))
                Name[--Length] = '\0';
        while (!EndsName(*P))
            P++;
        if (Length == 0)
            continue;
        if (!CvnUtilStringListAppendString(List, Name)) {
            ShowDialogErrorMessage("Out of memory");
            return false;
        }
    }
    return true;
}

int32_t TW_ParseEnteredVarNames(const char *Text, TW_Variable_s **Names, int32_t *Count)
{
    StringList_s *List = CvnUtilStringListAlloc();
    if (List == nullptr) {
        ShowDialogErrorMessage("Out of memory");
        /* Without a string list nothing can be held any more: the add-on
           stops the whole process here on purpose. */
        exit(0);
    }
    CollectNames(Text != nullptr ? Text : "", List);

    int32_t N = (int32_t)CvnUtilStringListGetCount(List);
    TW_Free(*Names);
    *Names = nullptr;
    *Count = N;
    if (N > 0) {
        *Names = (TW_Variable_s *)TW_Calloc((size_t)N, sizeof(TW_Variable_s));
        if (*Names == nullptr)
            ShowDialogErrorMessage("Out of memory");
    }
    for (int32_t I = 0; *Names != nullptr && I < N; I++) {
        char *Name = CvnUtilStringListGetString(List, I + 1);
        TW_Variable_s *Entry = &(*Names)[I];
        TW_Strncpy(Entry->Name, Name != nullptr ? Name : "", sizeof(Entry->Name));
        Entry->NameLength = (int32_t)strlen(Entry->Name);
        Entry->Selected = true;
        Entry->ColumnWidth = Entry->NameLength + 2;
        CvnUtilStringDealloc(&Name);
    }
    CvnUtilStringListDealloc(&List);
    return N;
}

} // namespace corvane::cvnutildataio
