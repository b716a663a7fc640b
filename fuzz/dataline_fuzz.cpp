/*
 * dataline_fuzz.cpp - one data line through the line filters, the blank and
 * numeric tests and the cut into values, under every delimiter kind, with
 * filters and modes taken from the first bytes of the input and questions
 * answered from them. Nothing may crash, read out of bounds or overflow,
 * and a line gives at most one value per character and one more.
 */
#include <cstring>
#include <string>

#include "FuzzHost.h"
#include "Instructions.h"
#include "LineFilters.h"
#include "StringUtil.h"

namespace tw = corvane::cvnutildataio;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size < 3)
        return 0;
    corvane::host::ScriptedUi &ui = fuzzhost::ui();
    const uint8_t mode = data[0], width = data[1], answers = data[2];
    for (int bit = 0; bit < 8; bit++)
        ui.queueAnswer((answers >> bit) & 1);
    std::string line = fuzzhost::text(data + 3, size - 3);
    if (line.size() > TW_MAX_LINE_LENGTH)
        line.resize(TW_MAX_LINE_LENGTH);

    tw::TW_ConfigInstructions_s *instr = tw::ImportInstructionsAlloc();
    if (instr == nullptr)
        return 0;
    instr->DataDelimiter = static_cast<tw::TW_Delimiter_e>(1 + mode % 6);
    instr->DataWidth = 1 + width % 40;
    instr->IgnoreNonNumericTokens = (mode & 8) != 0;
    tw::TW_GlobalFilters_s &filters = instr->GlobalFilters;
    filters.UseBlankCellValue = (mode & 16) != 0;
    filters.BlankCellValue = -999;
    filters.UseComment = (mode & 32) != 0;
    filters.CommentLength = 1;
    filters.UseKeyword = (mode & 64) != 0;
    std::strcpy(filters.Keyword, "zone");
    filters.KeywordLength = 4;
    filters.UseColumns = (mode & 128) != 0;
    filters.Columns.NumRanges = 1;
    filters.Columns.Ranges[0] = {2, 3};

    char buffer[TW_MAX_LINE_LENGTH + 1];
    std::memcpy(buffer, line.c_str(), line.size() + 1);
    tw::TW_PreprocessLine(buffer, &filters);
    tw::TW_IsBlankLine(buffer);
    tw::TW_IsNumericLine(buffer);
    const double *values = nullptr;
    int32_t count = 0;
    if (tw::TW_ScanLineForNumericData(buffer, 1, instr, &values, &count) &&
        count > static_cast<int32_t>(line.size()) + 1)
        fuzzhost::broken("more values than characters");
    tw::ImportInstructionsDealloc(&instr);
    return 0;
}
