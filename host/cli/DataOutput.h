/*
 * DataOutput.h - the writers of the loaded data sets: JSON and CSV.
 *
 * Both stream to the file as they go; neither builds the document in
 * memory, so outputs of large data sets cost no more memory than the data
 * set itself.
 *
 * JSON: one object per data set, an array of them when there are several:
 *   {"title", "variables": [...], "plotType": n | null,
 *    "zones": [{"name", "imax", "jmax", "kmax", "fieldTypes": [...],
 *               "values": [[values of variable 1], ...]}],
 *    "loaderInstructions": {"loader", "strings": [...]} | null}
 * CSV: a header row of the variable names, then one row per point (I
 * fastest); with several zones a first column "zone" holds the zone
 * number. Several data sets follow one another, separated by an empty line.
 */
#ifndef CORVANE_CLI_DATAOUTPUT_H
#define CORVANE_CLI_DATAOUTPUT_H

#include <cstdio>
#include <span>
#include <string>
#include <string_view>

#include "DataModel.h"

namespace corvane::cli {

void writeJson(std::FILE *out, std::span<const host::DataSet> sets);
void writeCsv(std::FILE *out, std::span<const host::DataSet> sets);

/* The text as UTF-8: valid UTF-8 sequences as they are, every other byte
   read as Latin-1 (data files often are). */
std::string asUtf8(std::string_view text);
/* A JSON string literal of the text, made UTF-8 by asUtf8. */
std::string jsonString(std::string_view text);
/* A CSV cell of the text: quoted (quotes doubled) when it holds a comma, a
   double quote, a line feed or a carriage return. */
std::string csvCell(std::string_view text);

} // namespace corvane::cli

#endif
