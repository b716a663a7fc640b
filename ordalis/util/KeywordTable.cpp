/*
 * KeywordTable.cpp - look-ups in enumeration keyword tables.
 */
#include "KeywordTable.h"

#include <cstring>

#include "StringUtil.h"

namespace corvane::cvnutildataio {

const char *TW_EnumKeyword(const TW_EnumTable_s *Table, int32_t Value)
{
    for (int32_t Row = 0; Row < Table->Count; Row++)
        if (Table->Rows[Row].Value == Value)
            return Table->Rows[Row].Keyword;
    return NULL;
}

bool TW_EnumValue(const TW_EnumTable_s *Table, const char *Keyword, int32_t *Value)
{
    for (int32_t Row = 0; Row < Table->Count; Row++) {
        if (Keyword != NULL && Str_ustrcmp(Table->Rows[Row].Keyword, Keyword) == 0) {
            *Value = Table->Rows[Row].Value;
            return true;
        }
    }
    return false;
}

/* Appends Text to the NUL-terminated Out of Size characters, cutting it
   when it does not fit. */
static void Append(char *Out, size_t Size, const char *Text)
{
    size_t Used = strlen(Out);
    if (Used + 1 < Size)
        TW_Strncpy(Out + Used, Text, Size - Used);
}

void TW_EnumKeywordList(const TW_EnumTable_s *Table, const int32_t *Values, int32_t N,
                        const char *Separator, char *Out, size_t Size)
{
    if (Size == 0)
        return;
    Out[0] = '\0';
    bool First = true;
    for (int32_t I = 0; I < N; I++) {
        const char *Keyword = TW_EnumKeyword(Table, Values[I]);
        if (Keyword == NULL)
            continue;
        if (!First)
            Append(Out, Size, Separator);
        Append(Out, Size, Keyword);
        First = false;
    }
}

void TW_EnumLabelList(const TW_EnumTable_s *Table, char *Out, size_t Size)
{
    if (Size == 0)
        return;
    Out[0] = '\0';
    bool First = true;
    for (int32_t Row = 0; Row < Table->Count; Row++) {
        if (Table->Rows[Row].Label == NULL)
            continue;
        if (!First)
            Append(Out, Size, ",");
        Append(Out, Size, Table->Rows[Row].Label);
        First = false;
    }
}

} // namespace corvane::cvnutildataio
