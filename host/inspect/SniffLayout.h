/*
 * SniffLayout.h - the shape of a sampled data file: the comment prefix, the
 * separator of its values, what each line is (empty, comment, data-like,
 * text), and its data: runs of data lines with the same number of fields
 * ("blocks"), blocks that a repeated keyword line introduces taken
 * together as zones, and the largest of these as the data section.
 */
#ifndef CORVANE_INSPECT_SNIFFLAYOUT_H
#define CORVANE_INSPECT_SNIFFLAYOUT_H

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "FileSample.h"
#include "SniffFields.h"

namespace corvane::inspect {

enum class LineClass { empty, comment, data, text };

struct SniffLine {
    int number = 0;
    std::string raw;  /* the line as the loader reads it */
    std::string view; /* without a comment (when comments are cut) */
    LineClass cls = LineClass::empty;
    std::vector<Field> fields; /* of the view */
};

/* Data lines in a row, apart from empty (and cut comment) lines between
   them, with the same most common number of fields. */
struct Block {
    size_t first = 0, last = 0; /* indices of its first and last data lines */
    int fields = 0;             /* the most common number of fields */
    std::vector<size_t> rows;   /* indices of its data lines */
    std::vector<std::vector<size_t>> chunks; /* rows with no line between them */
    std::string introducer;     /* first word of the line before it, upper case */
    std::map<int, size_t> fieldCounts; /* rows by their number of fields */
};

struct Layout {
    std::vector<SniffLine> lines;
    std::string commentMarker; /* "": none cut */
    std::string commentPrefix; /* the prefix that starts comment lines, cut or not */
    Separator separator = Separator::blanks;
    std::vector<Block> blocks;
    /* The data: blocks[firstBlock..lastBlock]. */
    size_t firstBlock = 0, lastBlock = 0;
    std::string zoneKeyword; /* the word introducing each block of several */
    bool hasData() const { return !blocks.empty(); }
};

/* The layout of the sample; comments are cut when a prefix starts lines,
   unless the lines that introduce zones are comments. */
Layout analyseLayout(const FileSample &sample);

/* The rows of the data section (indices into lines), in order. */
std::vector<size_t> dataRows(const Layout &layout);

/* The value most of counts have; of equal ones, the first seen. */
int mostCommon(const std::vector<int> &counts);
/* Whether the line's first characters after blanks are prefix. */
bool startsWithPrefix(std::string_view line, std::string_view prefix);
/* The line's first blank-separated word. */
std::string firstWord(std::string_view line);
std::string upperCase(std::string_view text);

} // namespace corvane::inspect

#endif
