/*
 * Layout.h - layout files: the loads of a run, to be replayed later.
 *
 *   {"corvaneLayout": 1,
 *    "loads": [{"loader": "Ordalis Loader", "strings": ["data.txt", "..."]}]}
 *
 * Each load is the loader name and the loader-instruction strings that the
 * loader stored with one data set.
 */
#ifndef CORVANE_CLI_LAYOUT_H
#define CORVANE_CLI_LAYOUT_H

#include <cstdio>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "DataModel.h"
#include "Expected.h"

namespace corvane::cli {

inline constexpr int layoutVersion = 1;

/* Writes the layout of the loads stored with the data sets; data sets
   without stored instructions are left out. */
void writeLayout(std::FILE *out, std::span<const host::DataSet> sets);

/* The loads of a layout text; the error says why the text is not a layout. */
host::Expected<std::vector<host::LoaderInstructions>> parseLayout(std::string_view text);

/* Reads and parses a layout file; the error names the file. */
host::Expected<std::vector<host::LoaderInstructions>> readLayout(const std::string &path);

} // namespace corvane::cli

#endif
