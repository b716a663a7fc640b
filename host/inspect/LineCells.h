/*
 * LineCells.h - a line cut into tokens as the loader cuts it: the values
 * of a data line (token mode, or blank-cell mode for semicolon and comma
 * cells when a blank-cell value is in use), and the names or title of a
 * line (quotes honoured).
 */
#ifndef CORVANE_INSPECT_LINECELLS_H
#define CORVANE_INSPECT_LINECELLS_H

#include <string>
#include <string_view>
#include <vector>

#include "InstructionSet.h"
#include "LoaderNumber.h"

namespace corvane::inspect {

struct Cell {
    std::string text; /* as the loader cut it; a cell without its leading blanks */
    size_t offset = 0; /* index of the text in the line */
    NumberScan scan;   /* the loader's number scan of the text */
    bool read() const { return scan.accepted; }
};

/* The tokens (token mode) or cells (blank-cell mode) of a data line, in
   order; every cell gives a value in blank-cell mode (its number or the
   blank value), only the tokens that are numbers in token mode. */
struct DataCut {
    std::vector<Cell> cells;
    bool blankCellMode = false;
};

/* Whether the set cuts data lines into cells (semicolon or comma cells
   with a blank-cell value in use). */
bool usesBlankCells(const InstructionSet &set);

DataCut cutDataLine(std::string_view line, const InstructionSet &set);

/* The tokens of a names or title line: delimiter kind and width, double
   quotes honoured (except in fixed-width fields). */
std::vector<Cell> cutTextTokens(std::string_view line, Delimiter delimiter, int width);

/* The characters that separate tokens of a delimiter kind ("" for fixed
   width). */
std::string_view delimiterCharacters(Delimiter delimiter);

} // namespace corvane::inspect

#endif
