/*
 * KeywordTable.h - tables that pair the values of an enumeration with their
 * keywords in instruction text, and the look-ups every user of such a table
 * shares (the instruction lexer, reader and writer, their messages and the
 * dialogs' option menus).
 */
#ifndef TW_KEYWORDTABLE_H
#define TW_KEYWORDTABLE_H

#include <cstddef>
#include <cstdint>

namespace corvane::cvnutildataio {

/* One value of an enumeration, its keyword and, where a dialog offers the
   value, the label it shows (NULL otherwise). */
typedef struct {
    int32_t Value;
    const char *Keyword;
    const char *Label;
} TW_EnumKeyword_s;

typedef struct {
    const TW_EnumKeyword_s *Rows;
    int32_t Count;
} TW_EnumTable_s;

/* The keyword of Value, or NULL when the table has no such value. */
const char *TW_EnumKeyword(const TW_EnumTable_s *Table, int32_t Value);
/* True, with *Value set, when Keyword is one of the table's keywords
   (case ignored); false, *Value unchanged, otherwise. */
bool TW_EnumValue(const TW_EnumTable_s *Table, const char *Keyword, int32_t *Value);
/* Writes the keywords of the N values into Out (Size characters with the
   NUL), in the order given, joined by Separator: the "one of" lists of the
   reader's messages. A value that is not in the table is left out. */
void TW_EnumKeywordList(const TW_EnumTable_s *Table, const int32_t *Values, int32_t N,
                        const char *Separator, char *Out, size_t Size);
/* Writes the labels of all rows that have one, in table order, joined by
   ",": the item list of an option menu. */
void TW_EnumLabelList(const TW_EnumTable_s *Table, char *Out, size_t Size);

} // namespace corvane::cvnutildataio

#endif
