/*
 * SniffPlan.h - what sniff has found out about a file so far, shared by its
 * steps (names and title, columns, sizes, data markers, explanation): the
 * layout, the data rows, each column's kind, the names, and the
 * instruction set as it takes shape.
 */
#ifndef CORVANE_INSPECT_SNIFFPLAN_H
#define CORVANE_INSPECT_SNIFFPLAN_H

#include <optional>
#include <string>
#include <vector>

#include "FileSample.h"
#include "InstructionSet.h"
#include "SniffLayout.h"

namespace corvane::inspect {

/* A column of the data rows, by the numbers the loader reads in it. */
struct Column {
    enum Kind { empty, text, number } kind = empty;
    bool wrong = false;      /* some value is read wrong (D exponent, lone sign, inner blank) */
    std::string wrongSample; /* the first such value */
    std::string textSample;  /* the first text of a text column */
    std::string name;        /* its name, when a names line was found */
};

struct NamesLine {
    size_t index = 0;                /* into layout.lines */
    std::vector<std::string> tokens; /* one per column that is not empty */
    std::string label;               /* a first token ending in ':' before the names */
    bool comment = false;            /* the names stand in a comment line */
};

struct SniffPlan {
    SniffPlan(const FileSample &sampled, Layout laidOut)
        : sample(sampled), layout(std::move(laidOut)) {}

    const FileSample &sample;
    Layout layout;
    std::vector<size_t> rows; /* the data rows (indices into layout.lines) */
    std::optional<size_t> sizeRow; /* a row giving the sizes of the blocks below */
    std::vector<Column> columns;
    std::vector<size_t> variables; /* the columns that are variables, in order */
    bool blankCells = false; /* semicolon or comma cells with a blank value */
    bool cutAtMarker = false; /* rows are cut at a missing-value marker (COMMENT) */
    std::optional<NamesLine> names;
    std::optional<size_t> titleLine; /* index of the title line */
    std::string titleText;          /* the title as the loader takes it */
    InstructionSet set;
    std::vector<std::string> notes; /* "note: ..." and "unsure: ..." lines */

    const SniffLine &line(size_t index) const { return layout.lines[index]; }
    size_t firstRow() const { return rows.front(); }
    size_t lastRow() const { return rows.back(); }
    void note(std::string text) { notes.push_back("note: " + std::move(text)); }
    void unsure(std::string text) { notes.push_back("unsure: " + std::move(text)); }
};

/* The steps, in the order sniff takes them. */
void findSizeRow(SniffPlan &plan);    /* a row giving the sizes of the blocks below */
void findColumns(SniffPlan &plan);    /* column kinds, fixed width, blank cells */
void findNamedSizes(SniffPlan &plan); /* sizes named in the header: one ordered zone */
void findNames(SniffPlan &plan);      /* the names line and the variables */
void findTitle(SniffPlan &plan);      /* the title */
void findMissing(SniffPlan &plan);    /* missing values in rows, the blank value */
void findDataMarkers(SniffPlan &plan); /* the data start and end */
/* "6 variable names, blank-separated" and the like, for the names line. */
std::string namesRoleText(const SniffPlan &plan);
/* The explanation: each line range's role, then the notes. */
std::vector<std::string> explain(const SniffPlan &plan);

/* "V1", "V2"...: names for n variables. */
std::vector<std::string> genericNames(size_t count);
/* "5, 9 and 3 more": line numbers for a note. */
std::string lineList(const std::vector<int> &numbers);
/* "row 5", "rows 5 and 9", "rows 5, 9 and 3 more". */
std::string rowsText(const std::vector<int> &numbers);

} // namespace corvane::inspect

#endif
