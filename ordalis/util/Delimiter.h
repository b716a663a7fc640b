/*
 * Delimiter.h - the delimiter kinds of data, title and variable lines: one
 * table with each kind's keyword, its label in the dialogs' option menus
 * and the characters its tokens are cut at.
 */
#ifndef TW_DELIMITER_H
#define TW_DELIMITER_H

#include "KeywordTable.h"

namespace corvane::cvnutildataio {

/* A dialog's option-menu item number is the kind's value. Value 0 is not a
   valid setting. */
typedef enum {
    Delimiter_Auto = 1,
    Delimiter_Tab = 2,
    Delimiter_Space = 3,
    Delimiter_Semicolon = 4,
    Delimiter_Comma = 5,
    Delimiter_Fixed = 6 /* fixed-width fields of WIDTH characters */
} TW_Delimiter_e;

inline constexpr TW_EnumKeyword_s DelimiterKeywords[] = {
    {Delimiter_Auto, "AUTO", "Auto"},
    {Delimiter_Tab, "TAB", "Tab"},
    {Delimiter_Space, "SPACE", "Space"},
    {Delimiter_Semicolon, "SEMICOLON", "Semicolon"},
    {Delimiter_Comma, "COMMA", "Comma"},
    {Delimiter_Fixed, "FIXED", "Fixed"},
};
inline constexpr TW_EnumTable_s DelimiterTable = {
    DelimiterKeywords, sizeof(DelimiterKeywords) / sizeof(DelimiterKeywords[0])};

/* The characters a token of each kind is cut at, in the table's order;
   FIXED cuts by width, not at characters. */
inline constexpr const char *DelimiterCharacters[] = {" \t\n\r,;", "\t", " ", ";", ",", ""};

/* The row of Kind in the tables above, or -1 for a value that is no kind. */
constexpr int TW_DelimiterRow(int Kind)
{
    for (int Row = 0; Row < (int)(sizeof(DelimiterKeywords) / sizeof(DelimiterKeywords[0])); Row++)
        if (DelimiterKeywords[Row].Value == Kind)
            return Row;
    return -1;
}

} // namespace corvane::cvnutildataio

#endif
