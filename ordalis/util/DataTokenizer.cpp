/*
 * DataTokenizer.cpp - TW_strtok, the add-on's one tokeniser: a delimiter kind
 * per call site, fixed-width columns and optionally quoted tokens.
 *
 * Runs once per value of every data file, so the delimiter tests are table
 * look-ups and the line length is measured only for fixed-width columns,
 * once per line. Not re-entrant: one line is tokenised at a time.
 */
#include <cctype>
#include <cstdint>
#include <cstring>

#include "DataTokenizer.h"
#include "StringUtil.h"

namespace corvane::cvnutildataio {

namespace {

constexpr int NumKinds = sizeof(DelimiterCharacters) / sizeof(DelimiterCharacters[0]);

/* Per delimiter kind (its row of the delimiter table), 256 flags each:
   Delim: the kind's delimiter characters;
   Stop:  what ends an unquoted token in quote mode (delimiters, line feed,
          carriage return and the terminating NUL). */
struct DelimiterTables {
    bool Delim[NumKinds][256];
    bool Stop[NumKinds][256];
};

constexpr DelimiterTables MakeTables()
{
    DelimiterTables T{};
    for (int K = 0; K < NumKinds; K++) {
        for (const char *C = DelimiterCharacters[K]; *C; C++)
            T.Delim[K][static_cast<unsigned char>(*C)] = true;
        for (int C = 0; C < 256; C++)
            T.Stop[K][C] = T.Delim[K][C];
        T.Stop[K][static_cast<unsigned char>('\n')] = true;
        T.Stop[K][static_cast<unsigned char>('\r')] = true;
        T.Stop[K][0] = true;
    }
    return T;
}

constexpr DelimiterTables Tables = MakeTables();

/* Tokeniser state: set by a call with a line, used by calls with NULL. */
char *SavedLine = nullptr;                 /* the line being tokenised */
int32_t Position = 0;                      /* next character to look at */
TW_Delimiter_e SavedKind = Delimiter_Auto; /* delimiter kind of the line */
int SavedWidth = 0;                        /* field width for FIXED */
int32_t FixedLength = 0;                   /* strlen of the line (FIXED only) */
char FixedBuffer[TW_MAX_LINE_LENGTH + 1];  /* the current fixed-width field */

/* The next field of WIDTH characters, trimmed; NULL at the end of the line
   or on a field that is all white space. */
char *NextFixedField()
{
    if (Position >= FixedLength || SavedWidth <= 0)
        return nullptr;
    int32_t N = FixedLength - Position;
    if (N > SavedWidth)
        N = SavedWidth;
    if (N > TW_MAX_LINE_LENGTH)
        N = TW_MAX_LINE_LENGTH;
    memcpy(FixedBuffer, SavedLine + Position, static_cast<size_t>(N));
    FixedBuffer[N] = '\0';
    Position += SavedWidth;

    char *Start = FixedBuffer;
    while (*Start && isspace(static_cast<unsigned char>(*Start)))
        Start++;
    if (*Start == '\0')
        return nullptr;
    char *End = FixedBuffer + N;
    while (End > Start && isspace(static_cast<unsigned char>(End[-1])))
        End--;
    *End = '\0';
    return Start;
}

/* Moves past the delimiters at the current position; the first character
   of the next token, or NULL (the position at the end) when none is left. */
unsigned char *SkipDelimiters(const bool *Delim)
{
    unsigned char *P = reinterpret_cast<unsigned char *>(SavedLine + Position);
    while (*P && Delim[*P])
        P++;
    if (*P != '\0')
        return P;
    Position = static_cast<int32_t>(reinterpret_cast<char *>(P) - SavedLine);
    return nullptr;
}

/* strtok semantics: runs of delimiters count as one, empty fields vanish. */
char *NextPlainToken(const bool *Delim)
{
    unsigned char *P = SkipDelimiters(Delim);
    if (P == nullptr)
        return nullptr;
    unsigned char *Token = P;
    while (*P && !Delim[*P])
        P++;
    if (*P) {
        *P = '\0';
        P++;
    }
    Position = static_cast<int32_t>(reinterpret_cast<char *>(P) - SavedLine);
    return reinterpret_cast<char *>(Token);
}

/* Quote mode: a token starting with a double quote runs to the next double
   quote (delimiters kept); others end at a delimiter, LF or CR. */
char *NextQuotedToken(const bool *Delim, const bool *Stop)
{
    unsigned char *P = SkipDelimiters(Delim);
    if (P == nullptr)
        return nullptr;
    unsigned char *Token;
    if (*P == '"') {
        Token = ++P;
        while (*P && *P != '"')
            P++;
    } else {
        Token = P;
        while (!Stop[*P])
            P++;
    }
    if (*P) {
        *P = '\0';
        P++;
        while (*P && Delim[*P])
            P++;
    }
    Position = static_cast<int32_t>(reinterpret_cast<char *>(P) - SavedLine);
    return reinterpret_cast<char *>(Token);
}

} // namespace

const bool *TW_DelimiterTable(TW_Delimiter_e Kind)
{
    int Row = TW_DelimiterRow(Kind);
    if (Kind == Delimiter_Fixed || Row < 0)
        return nullptr;
    return Tables.Delim[Row];
}

/* Next token of Line, or of the saved line when Line is NULL (the saved kind
   and width then apply). NULL when no token is left, or for FIXED at the
   first blank field. Unquoted and quoted modes write NULs into the line;
   FIXED returns a static buffer that the next call overwrites. */
char *TW_strtok(char *Line, TW_Delimiter_e Delimiter, int Width, bool HonourQuotes)
{
    if (Line != nullptr) {
        SavedLine = Line;
        SavedKind = Delimiter;
        SavedWidth = Width;
        Position = 0;
        FixedLength = Delimiter == Delimiter_Fixed ? static_cast<int32_t>(strlen(Line)) : 0;
    }
    if (SavedLine == nullptr)
        return nullptr;
    if (SavedKind == Delimiter_Fixed)
        return NextFixedField();
    int Kind = TW_DelimiterRow(SavedKind);
    if (Kind < 0)
        return nullptr;
    if (HonourQuotes)
        return NextQuotedToken(Tables.Delim[Kind], Tables.Stop[Kind]);
    return NextPlainToken(Tables.Delim[Kind]);
}

} // namespace corvane::cvnutildataio
