/*
 * InstructionSet.h - an instruction set as the host sees it: where the
 * title, the names and the data are, how lines are cut into values, and the
 * global filters. The fields and defaults are those of a new set in the
 * loader; the host reads sets (check) and writes them (sniff).
 */
#ifndef CORVANE_INSPECT_INSTRUCTIONSET_H
#define CORVANE_INSPECT_INSTRUCTIONSET_H

#include <string>
#include <vector>

namespace corvane::inspect {

enum class SearchMode { none, line, keyword };
/* The loader's delimiter kinds, in its order. */
enum class Delimiter { automatic = 1, tab, space, semicolon, comma, fixed };
enum class Marker { firstNonNumericLine, firstNumericLine, line, keyword, endOfFile };

/* An inclusive range of 1-based numbers; max 0 runs to the end. */
struct NumberRange {
    int min = 1;
    int max = 1;
    bool operator==(const NumberRange &) const = default;
};
using NumberList = std::vector<NumberRange>;

bool inList(int number, const NumberList &list);

struct FileMarker {
    Marker kind = Marker::line;
    std::string keyword;
    int line = 1;
    bool operator==(const FileMarker &) const = default;
};

struct InstructionSet {
    /* TITLE */
    SearchMode titleSearch = SearchMode::none;
    std::string titleName = "New Dataset";
    int titleLine = 1;
    std::string titleKeyword;
    Delimiter titleDelimiter = Delimiter::automatic;
    int titleWidth = 10;

    /* VARIABLES */
    SearchMode namesSearch = SearchMode::none;
    std::vector<std::string> names; /* entered names (NAMES) */
    std::vector<int> loaded;        /* 1-based variables to load; empty: all */
    int namesStartLine = 1;
    int namesEndLine = 1;
    Delimiter namesDelimiter = Delimiter::automatic;
    int namesWidth = 10;

    /* DATA */
    bool ignoreNonNumericTokens = true;
    FileMarker start;
    FileMarker end;
    bool blockFormat = false; /* FORMAT = IJKBLOCK */
    Delimiter dataDelimiter = Delimiter::automatic;
    int dataWidth = 10;
    bool autoDimension = true;
    int imax = 1, jmax = 1, kmax = 1;
    bool multipleZones = false;
    std::string zoneKeyword;

    /* GLOBALFILTERS */
    std::string comment = "#"; /* in use when useComment */
    bool useComment = false;
    std::string skipKeyword; /* a line holding it is skipped; empty: none */
    NumberList columns;      /* character columns cut from every line */
    NumberList rows;         /* line numbers ignored */
    bool useBlankCellValue = false;
    double blankCellValue = 0.0;

    bool operator==(const InstructionSet &) const = default;
};

/* The keyword of each value in instruction-set text. */
const char *keywordOf(SearchMode mode);
const char *keywordOf(Delimiter delimiter);
const char *keywordOf(Marker marker);

} // namespace corvane::inspect

#endif
