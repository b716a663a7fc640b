/*
 * LineCells.cpp - the loader's tokeniser and cell cutter on the host.
 */
#include "LineCells.h"

#include <cctype>

namespace corvane::inspect {
namespace {

bool isSpace(char c)
{
    return std::isspace(static_cast<unsigned char>(c)) != 0;
}

Cell makeCell(std::string_view text, size_t offset)
{
    Cell cell;
    cell.text = std::string(text);
    cell.offset = offset;
    cell.scan = scanLoaderNumber(text);
    return cell;
}

/* Fixed-width fields, trimmed; the first field that is all white space
   ends the line. */
std::vector<Cell> fixedFields(std::string_view line, int width)
{
    std::vector<Cell> cells;
    if (width <= 0)
        return cells;
    for (size_t at = 0; at < line.size(); at += static_cast<size_t>(width)) {
        std::string_view field = line.substr(at, static_cast<size_t>(width));
        size_t first = 0;
        while (first < field.size() && isSpace(field[first]))
            ++first;
        if (first == field.size())
            break;
        size_t last = field.size();
        while (last > first && isSpace(field[last - 1]))
            --last;
        cells.push_back(makeCell(field.substr(first, last - first), at + first));
    }
    return cells;
}

} // namespace

std::string_view delimiterCharacters(Delimiter delimiter)
{
    switch (delimiter) {
    case Delimiter::automatic:
        return std::string_view(" \t\n\r,;");
    case Delimiter::tab:
        return "\t";
    case Delimiter::space:
        return " ";
    case Delimiter::semicolon:
        return ";";
    case Delimiter::comma:
        return ",";
    default:
        return "";
    }
}

bool usesBlankCells(const InstructionSet &set)
{
    return set.useBlankCellValue &&
           (set.dataDelimiter == Delimiter::semicolon || set.dataDelimiter == Delimiter::comma);
}

DataCut cutDataLine(std::string_view line, const InstructionSet &set)
{
    DataCut cut;
    if (usesBlankCells(set)) {
        cut.blankCellMode = true;
        char delimiter = set.dataDelimiter == Delimiter::semicolon ? ';' : ',';
        size_t at = 0;
        for (;;) {
            while (at < line.size() && (line[at] == ' ' || line[at] == '\t'))
                ++at;
            size_t end = line.find(delimiter, at);
            std::string_view text = line.substr(at, end == std::string_view::npos ? line.npos
                                                                                  : end - at);
            cut.cells.push_back(makeCell(text, at));
            if (end == std::string_view::npos || end + 1 == line.size())
                break;
            at = end + 1;
        }
        return cut;
    }
    if (set.dataDelimiter == Delimiter::fixed) {
        cut.cells = fixedFields(line, set.dataWidth);
        return cut;
    }
    std::string_view delimiters = delimiterCharacters(set.dataDelimiter);
    size_t at = 0;
    for (;;) {
        at = line.find_first_not_of(delimiters, at);
        if (at == std::string_view::npos)
            break;
        size_t end = line.find_first_of(delimiters, at);
        std::string_view text =
            line.substr(at, end == std::string_view::npos ? line.npos : end - at);
        cut.cells.push_back(makeCell(text, at));
        if (end == std::string_view::npos)
            break;
        at = end;
    }
    return cut;
}

std::vector<Cell> cutTextTokens(std::string_view line, Delimiter delimiter, int width)
{
    if (delimiter == Delimiter::fixed)
        return fixedFields(line, width);
    std::string_view delimiters = delimiterCharacters(delimiter);
    std::vector<Cell> cells;
    size_t at = 0;
    for (;;) {
        at = line.find_first_not_of(delimiters, at);
        if (at == std::string_view::npos)
            break;
        size_t end;
        size_t start = at;
        if (line[at] == '"') {
            start = at + 1;
            end = line.find('"', start);
        } else {
            end = line.find_first_of(std::string(delimiters) + "\n\r", at);
        }
        std::string_view text =
            line.substr(start, end == std::string_view::npos ? line.npos : end - start);
        cells.push_back(makeCell(text, start));
        if (end == std::string_view::npos)
            break;
        at = end + 1;
    }
    return cells;
}

} // namespace corvane::inspect
