/*
 * InstructionWriter.cpp - writing an instruction set's text.
 */
#include "InstructionWriter.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "LoaderNumber.h"

namespace corvane::inspect {
namespace {

std::string numberList(const NumberList &list)
{
    std::string text = "[";
    for (size_t i = 0; i < list.size(); ++i) {
        const NumberRange &range = list[i];
        if (i > 0)
            text += ",";
        if (range.max == 0)
            text += fmt::format("{}-end", range.min);
        else if (range.max != range.min)
            text += fmt::format("{}-{}", range.min, range.max);
        else
            text += std::to_string(range.min);
    }
    return text + "]";
}

/* NAMES: the names joined by commas, a comma inside a name escaped. */
std::string namesText(const std::vector<std::string> &names)
{
    std::string joined;
    for (size_t i = 0; i < names.size(); ++i) {
        if (i > 0)
            joined += ",";
        for (char c : names[i]) {
            if (c == '"' || c == '\\')
                joined += '\\';
            joined += c == ',' ? std::string("\\,") : std::string(1, c);
        }
    }
    return "\"" + joined + "\"";
}

void marker(std::string &out, const char *key, const FileMarker &marker)
{
    out += fmt::format("  {} = {}\n  {{\n", key, keywordOf(marker.kind));
    if (marker.kind == Marker::line)
        out += fmt::format("   LINE = {}\n", marker.line);
    if (marker.kind == Marker::keyword)
        out += fmt::format("   KEYWORD = {}\n", quoted(marker.keyword));
    out += "  }\n";
}

void titleSection(std::string &out, const InstructionSet &set)
{
    out += fmt::format("TITLE\n{{\n SEARCH = {}\n", keywordOf(set.titleSearch));
    if (set.titleSearch == SearchMode::none)
        out += fmt::format(" NAME = {}\n", quoted(set.titleName));
    if (set.titleSearch == SearchMode::line)
        out += fmt::format(" LINE = {}\n", set.titleLine);
    if (set.titleSearch == SearchMode::keyword)
        out += fmt::format(" KEYWORD = {}\n", quoted(set.titleKeyword));
    if (set.titleSearch != SearchMode::none) {
        out += fmt::format(" DELIMITER = {}\n", keywordOf(set.titleDelimiter));
        if (set.titleDelimiter == Delimiter::fixed)
            out += fmt::format(" WIDTH = {}\n", set.titleWidth);
    }
    out += "}\n";
}

void variablesSection(std::string &out, const InstructionSet &set)
{
    out += fmt::format("VARIABLES\n{{\n SEARCH = {}\n", keywordOf(set.namesSearch));
    if (set.namesSearch == SearchMode::none) {
        out += fmt::format(" NAMES = {}\n", namesText(set.names));
    } else {
        out += fmt::format(" STARTLINE = {}\n ENDLINE = {}\n DELIMITER = {}\n",
                           set.namesStartLine, set.namesEndLine, keywordOf(set.namesDelimiter));
        if (set.namesDelimiter == Delimiter::fixed)
            out += fmt::format(" WIDTH = {}\n", set.namesWidth);
    }
    if (!set.loaded.empty()) {
        out += fmt::format(" LOADED = [{}]\n", fmt::join(set.loaded, ","));
    }
    out += "}\n";
}

void dataSection(std::string &out, const InstructionSet &set)
{
    out += fmt::format("DATA\n{{\n IGNORENONNUMERICTOKENS = {}\n IMPORT\n {{\n",
                       set.ignoreNonNumericTokens ? "TRUE" : "FALSE");
    marker(out, "STARTID", set.start);
    marker(out, "ENDID", set.end);
    out += fmt::format("  FORMAT = {}\n  DELIMITER = {}\n", set.blockFormat ? "IJKBLOCK" : "IJKPOINT",
                       keywordOf(set.dataDelimiter));
    if (set.dataDelimiter == Delimiter::fixed)
        out += fmt::format("  WIDTH = {}\n", set.dataWidth);
    out += " }\n DIMENSION\n {\n";
    if (set.autoDimension) {
        out += "  AUTO = TRUE\n";
    } else {
        out += fmt::format("  AUTO = FALSE\n  IMAX = {}\n", set.imax);
        if (set.jmax > 1 || set.kmax > 1)
            out += fmt::format("  JMAX = {}\n", set.jmax);
        if (set.kmax > 1)
            out += fmt::format("  KMAX = {}\n", set.kmax);
    }
    if (set.multipleZones) {
        out += "  CREATEMULTIPLEZONES = TRUE\n";
        if (set.autoDimension)
            out += fmt::format("  KEYWORD = {}\n", quoted(set.zoneKeyword));
    }
    out += " }\n}\n";
}

void filtersSection(std::string &out, const InstructionSet &set)
{
    std::string body;
    if (set.useComment)
        body += fmt::format(" COMMENT = {}\n", quoted(set.comment));
    if (!set.skipKeyword.empty())
        body += fmt::format(" KEYWORD = {}\n", quoted(set.skipKeyword));
    if (!set.columns.empty())
        body += fmt::format(" COLUMNS = {}\n", numberList(set.columns));
    if (!set.rows.empty())
        body += fmt::format(" ROWS = {}\n", numberList(set.rows));
    if (set.useBlankCellValue)
        body += fmt::format(" USEBLANKCELLVALUE = TRUE\n BLANKCELLVALUE = {}\n",
                            numberText(set.blankCellValue));
    if (!body.empty())
        out += "GLOBALFILTERS\n{\n" + body + "}\n";
}

} // namespace

std::string quoted(const std::string &text)
{
    std::string out = "\"";
    for (char c : text) {
        if (c == '"' || c == '\\')
            out += '\\';
        out += c;
    }
    return out + "\"";
}

std::string writeInstructionSet(const InstructionSet &set, const std::vector<std::string> &comments)
{
    std::string out = "#!CORVANE_TABWISE\n";
    for (const std::string &comment : comments)
        out += "# " + comment + "\n";
    out += "VERSION = 100\n";
    titleSection(out, set);
    variablesSection(out, set);
    dataSection(out, set);
    filtersSection(out, set);
    return out;
}

} // namespace corvane::inspect
