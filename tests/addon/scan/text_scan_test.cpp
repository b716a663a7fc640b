/* Scanning data files: titles, variables, data sections, zones, questions,
   cancel and allocation failures. */
#include <string>
#include <vector>

#include "ScanFixture.h"

namespace {

using V = std::vector<double>;
using Sizes = std::vector<std::vector<int>>;
using Lines = std::vector<std::pair<int, std::string>>;

const char kNoData[] = "No numeric data was found in this file.";
const char kNoSection[] = "No data section found in this file";

TEST_F(ScanTest, HeaderVariablesAndDataWithTextLines)
{
    varLines(2, 2);
    numericToEof();
    instr->TitleSearchMode = tw::SearchMode_Line;
    instr->TitleLine = 1;
    ASSERT_TRUE(scan("\"Run 7\" of today\r\nx  y\r\n# units\r\n\r\n1 2\r\n3 4\r\n5 6\r\n"));
    EXPECT_STREQ(data->Title, "Run 7");
    EXPECT_EQ(varNames(), (Texts{"x", "y"}));
    EXPECT_EQ(values(0, 0), (V{1, 3, 5}));
    EXPECT_EQ(values(0, 1), (V{2, 4, 6}));
    EXPECT_EQ(sizes(), (Sizes{{3, 1, 1, 3}}));
    EXPECT_EQ(textLines(), (Lines{{3, "# units"}}));
    EXPECT_EQ(data->TotalLines, 7);
    EXPECT_TRUE(data->VarList[0].Selected && data->VarList[1].Selected);
    EXPECT_TRUE(ui().transcript().size() == 2); /* the progress bar only */
    EXPECT_EQ(hostObjectsMade(), 2); /* the title and the zone name */

    /* Title by keyword; variables to load from the set. */
    tw::FileDataSetDealloc(&data);
    instr->TitleSearchMode = tw::SearchMode_Keyword;
    strcpy(instr->TitleKeyword, "RUN");
    CvnUtilSetAddMember(instr->Variables.LoadedVars, 2, FALSE);
    ASSERT_TRUE(scan("\nx y\nname: run 8\n1 2\n"));
    EXPECT_STREQ(data->Title, "name:");
    EXPECT_FALSE(data->VarList[0].Selected);
    EXPECT_TRUE(data->VarList[1].Selected);
}

TEST_F(ScanTest, TitleDefaultsAndTheTitleInsideTheVariableLines)
{
    names({"a", "b"});
    numericToEof();
    instr->TitleName[0] = '\0';
    ASSERT_TRUE(scan("1 2\n"));
    EXPECT_STREQ(data->Title, "New Dataset");

    tw::FileDataSetDealloc(&data);
    ui().clearTranscript();
    varLines(1, 1);
    instr->TitleSearchMode = tw::SearchMode_Line;
    instr->TitleLine = 1;
    ASSERT_TRUE(scan("a b\n1 2\n"));
    EXPECT_STREQ(data->Title, "New data set");
    EXPECT_EQ(varNames(), (Texts{"a", "b"}));
    EXPECT_EQ(ui().messages(),
              (Texts{"The file line with the data set title cannot be within the range of the "
                     "file line(s) with the variables.\nThe title of the data set will be set "
                     "to the default: \"New data set.\"."}));
    EXPECT_EQ(ui().transcript()[1].type, "information");
}

TEST_F(ScanTest, VariableLinesRenameDuplicatesAndMustPrecedeData)
{
    varLines(1, 2);
    numericToEof();
    ASSERT_TRUE(scan("x y x\n\"p q\" x\n1 2 3 4 5\n"));
    EXPECT_EQ(varNames(), (Texts{"x", "y", "x3", "p q", "x2"}));
    EXPECT_EQ(ui().messages(),
              (Texts{"One or more duplicate variable names found. The ordalis loader does not "
                     "support duplicate variables names. Any duplicate variable names found will "
                     "be appended with numbers so that they are unique."}));

    ui().clearTranscript();
    varLines(3, 3);
    EXPECT_FALSE(scan("x y\n1 2\nz\n"));
    EXPECT_EQ(data, nullptr);
    EXPECT_EQ(ui().errors(),
              (Texts{"The start of the data section was reached before all of the variables "
                     "were found. The ordalis loader requires that the variables be defined, "
                     "either in the file dialog or in the file itself, before the data is "
                     "located in the file."}));

    ui().clearTranscript();
    instr->Variables.SearchMode = tw::SearchMode_None;
    EXPECT_FALSE(scan("1 2\n"));
    EXPECT_EQ(ui().errors(),
              (Texts{"No variables have been entered in the variables import dialog."}));
    EXPECT_EQ(ui().transcript().back().kind, corvane::host::UiEvent::Kind::progressEnd);

    ui().clearTranscript();
    instr->Variables.SearchMode = tw::SearchMode_Keyword;
    EXPECT_FALSE(scan("x y\n"));
    EXPECT_EQ(ui().errors(), (Texts{"No variables found in this file"}));
    EXPECT_EQ(hostObjectsMade(), 0);
}

TEST_F(ScanTest, LineLengthLimit)
{
    names({"a", "b"});
    numericToEof();
    std::string longLine(63999, 'x');
    ASSERT_TRUE(scan("1 1\n" + longLine + "\n2 2\n"));
    ASSERT_EQ(textLines().size(), 1u);
    EXPECT_EQ(textLines()[0].second, longLine.substr(0, 255));
    EXPECT_EQ(textLines()[0].first, 2);
    tw::FileDataSetDealloc(&data);

    EXPECT_FALSE(scan("1 1\n2 2\n" + longLine + "x"));
    EXPECT_EQ(ui().errors(), (Texts{"Error: Line 3 of this file is too long.\nThe maximum line "
                                    "length supported by Ordalis Loader is 64000 bytes"}));
}

TEST_F(ScanTest, AutomaticSizesWithBlankValuesAndMismatchQuestion)
{
    names({"a", "b", "c"});
    numericToEof();
    const std::string question =
        "Expected to find 3 data values on line 2, but 2 data values were found.\nIt is "
        "recommended to specify a value for blanked cells and restart.\nContinue processing?";
    ui().queueAnswer(true);
    ui().queueAnswer(true);
    ASSERT_TRUE(scan("1 2 3\n1 2\n4 5 6 7\n"));
    EXPECT_EQ(values(0, 2), (V{3, 0, 6}));
    EXPECT_EQ(ui().messages(),
              (Texts{question, "Expected to find 3 data values on line 3, but 4 data values "
                               "were found.\nIt is recommended to specify a value for blanked "
                               "cells and restart.\nContinue processing?"}));
    tw::FileDataSetDealloc(&data);

    ui().clearTranscript();
    EXPECT_FALSE(scan("1 2 3\n1 2\n"));
    EXPECT_EQ(ui().messages(), (Texts{question}));
    EXPECT_TRUE(ui().errors().empty());

    ui().clearTranscript();
    instr->GlobalFilters.UseBlankCellValue = true;
    instr->GlobalFilters.BlankCellValue = -1;
    ASSERT_TRUE(scan("1 2\n"));
    EXPECT_EQ(values(0, 2), V{-1});
    EXPECT_TRUE(ui().messages().empty());
}

TEST_F(ScanTest, FinalZoneChecks)
{
    names({"a"});
    numericToEof();
    EXPECT_FALSE(scan("1\n2\n"));
    EXPECT_EQ(ui().errors(), (Texts{"Cannot expand 1-variable data file.\nZones must be all "
                                    "I-Ordered, all J-Ordered, or all IJK-Ordered"}));

    ui().clearTranscript();
    names({"a", "b"});
    ASSERT_TRUE(scan("1 2\n3 4\n5 6\n7 8\n9 10\n"));
    EXPECT_EQ(sizes(), (Sizes{{5, 1, 1, 5}}));
    tw::FileDataSetDealloc(&data);

    /* An explicit size below 1 leaves a zone without values. */
    explicitSizes(0, 1, 1, DataFormat_IJKPoint, false);
    EXPECT_FALSE(scan("1 2\n"));
    EXPECT_EQ(ui().errors().back(),
              "Error reading data file. No values found for one or more zones.");

    /* One variable with explicit sizes is fine when every zone matches. */
    names({"a"});
    explicitSizes(2, 1, 1, DataFormat_IJKPoint, true);
    ASSERT_TRUE(scan("1\n2\n3\n4\n"));
    EXPECT_EQ(sizes(), (Sizes{{2, 1, 1, 2}, {2, 1, 1, 2}}));
}

TEST_F(ScanTest, BlockFormatFillsEachVariableInTurn)
{
    names({"x", "y"});
    numericToEof();
    explicitSizes(3, 1, 1, DataFormat_IJKBlock, true);
    ASSERT_TRUE(scan("1 2\n3 4 5\n6 7 8 9\n10 11 12\n"));
    EXPECT_EQ(sizes(), (Sizes{{3, 1, 1, 3}, {3, 1, 1, 3}}));
    EXPECT_EQ(values(0, 1), (V{4, 5, 6}));
    EXPECT_EQ(values(1, 0), (V{7, 8, 9}));
    EXPECT_STREQ(zone(1)->ZoneName, "Zone 2");
    tw::FileDataSetDealloc(&data);

    /* One zone: the rest of the line is dropped and the data section ends. */
    instr->CreateMultipleZones = false;
    ASSERT_TRUE(scan("1 2 3 4\n5 6 7 8\n9 10\n"));
    EXPECT_EQ(values(0, 1), (V{4, 5, 6}));
    EXPECT_EQ(ui().messages(), (Texts{"2 extra data points found on line 2.\nThese extra data "
                                      "points will be ignored."}));
    EXPECT_EQ(textLines(), (Lines{{3, "9 10"}}));
    tw::FileDataSetDealloc(&data);

    /* Missing values: Yes fills with the blank value, No fails. */
    ui().clearTranscript();
    instr->GlobalFilters.UseBlankCellValue = true;
    instr->GlobalFilters.BlankCellValue = 0.5;
    ui().queueAnswer(true);
    ASSERT_TRUE(scan("1 2 3 4\n"));
    EXPECT_EQ(values(0, 1), (V{4, 0.5, 0.5}));
    EXPECT_EQ(ui().messages(), (Texts{"In zone 1, variable \"y\", only 1 values were found, "
                                      "when 3 were expected. Would you like to fill the "
                                      "remaining values with 0.0?"}));
    tw::FileDataSetDealloc(&data);
    EXPECT_FALSE(scan("1 2\n"));
    EXPECT_EQ(ui().messages().back(), "In zone 1, variable \"x\", only 2 values were found, "
                                      "when 3 were expected. Would you like to fill the "
                                      "remaining values with 0.0?");
    EXPECT_TRUE(ui().errors().empty());
}

TEST_F(ScanTest, PointFormatDealsValuesAcrossLinesAndZones)
{
    names({"x", "y", "z"});
    numericToEof();
    explicitSizes(2, 1, 1, DataFormat_IJKPoint, true);
    ASSERT_TRUE(scan("1 2\n3 4 5 6\n7 8 9\n10 11 12\n"));
    EXPECT_EQ(sizes(), (Sizes{{2, 1, 1, 2}, {2, 1, 1, 2}}));
    EXPECT_EQ(values(0, 2), (V{3, 6}));
    EXPECT_EQ(values(1, 0), (V{7, 10}));
}

TEST_F(ScanTest, ZoneKeywordStartsANewZone)
{
    names({"x", "y"});
    instr->StartId.Marker = tw::FileMarker_FirstNumericLine;
    instr->EndId.Marker = tw::FileMarker_FirstNonNumericLine;
    instr->CreateMultipleZones = true;
    strcpy(instr->ZoneKeyword, "next");
    ASSERT_TRUE(scan("head\n1 2\n3 4\nNEXT block\n5 6\n\n7 8\n9 10\nend\n11 12\n"));
    EXPECT_EQ(sizes(), (Sizes{{2, 1, 1, 2}, {3, 1, 1, 3}}));
    EXPECT_EQ(values(1, 0), (V{5, 7, 9}));
    EXPECT_EQ(textLines(), (Lines{{1, "head"}, {4, "NEXT block"}, {9, "end"}, {10, "11 12"}}));
}

TEST_F(ScanTest, StartAndEndMarkers)
{
    names({"a", "b"});
    const std::string file = "h1\n1 2\nBEGIN\n3 4\n5 6\nStop here\n7 8\n";
    struct Row {
        tw::TW_FileMarker_s start, end;
        V a;
    } rows[] = {
        {{tw::FileMarker_FirstNumericLine, "", 1}, {tw::FileMarker_EOF, "", 1}, {1, 3, 5, 7}},
        {{tw::FileMarker_FirstNumericLine, "", 1}, {tw::FileMarker_FirstNonNumericLine, "", 1}, {1}},
        {{tw::FileMarker_Keyword, "begin", 1}, {tw::FileMarker_Keyword, "STOP", 1}, {3, 5}},
        {{tw::FileMarker_Line, "", 4}, {tw::FileMarker_Line, "", 5}, {3}},
        {{tw::FileMarker_Line, "", 2}, {tw::FileMarker_EOF, "", 1}, {1, 3, 5, 7}},
    };
    for (const Row &row : rows) {
        instr->StartId = row.start;
        instr->EndId = row.end;
        ASSERT_TRUE(scan(file)) << row.start.Marker << " " << row.end.Marker;
        EXPECT_EQ(values(0, 0), row.a) << row.start.Marker << " " << row.end.Marker;
        tw::FileDataSetDealloc(&data);
    }
    EXPECT_TRUE(ui().errors().empty());

    instr->StartId = {tw::FileMarker_Keyword, "begin", 1};
    instr->EndId.Marker = tw::FileMarker_EOF;
    EXPECT_FALSE(scan("1 2\n"));
    EXPECT_FALSE(scan("BEGIN\nnone\n"));
    EXPECT_EQ(ui().errors(), (Texts{kNoSection, kNoData}));
}

TEST_F(ScanTest, LinesWithoutValues)
{
    names({"a", "b"});
    instr->StartId = {tw::FileMarker_Line, "", 1};
    instr->EndId.Marker = tw::FileMarker_EOF;
    ASSERT_TRUE(scan("1 2\nn/a x\n3 4\n"));
    EXPECT_EQ(textLines(), (Lines{{2, "n/a x"}}));
    tw::FileDataSetDealloc(&data);

    instr->IgnoreNonNumericTokens = false;
    ui().queueAnswer(true);
    EXPECT_FALSE(scan("1 2\nn/a x\n3 4\n"));
    EXPECT_EQ(ui().messages(),
              (Texts{"Possible malformed numeric data values were found on line 2\nPlease check "
                     "this line of the file to be sure that numeric data is of the correct "
                     "form.\nDo you want to continue processing this line?",
                     "Non-numeric data found on line 2. Do you wish to continue reading the "
                     "file?"}));
}

TEST_F(ScanTest, GlobalFiltersAndRows)
{
    names({"a", "b"});
    numericToEof();
    auto &f = instr->GlobalFilters;
    f.UseComment = true;
    strcpy(f.Comment, " % ");
    f.UseKeyword = true;
    strcpy(f.Keyword, "   ");
    f.UseRows = true;
    f.Rows.NumRanges = 1;
    f.Rows.Ranges[0] = {3, 3};
    ASSERT_TRUE(scan("1 2 % c\n3 4\n5 6\nskip   this\n% note\n7 8\n"));
    EXPECT_STREQ(f.Comment, "%");
    EXPECT_EQ(f.CommentLength, 1);
    EXPECT_STREQ(f.Keyword, "   ");
    EXPECT_EQ(f.KeywordLength, 3);
    EXPECT_EQ(values(0, 0), (V{1, 3, 7}));
    EXPECT_EQ(textLines(), (Lines{{3, "5 6"}}));
}

TEST_F(ScanTest, TitleAndVariablesOnlyWithoutReadingData)
{
    varLines(2, 2);
    instr->TitleSearchMode = tw::SearchMode_Line;
    ASSERT_TRUE(scan("Tank test\nt p\nnote\n1 2\n", false));
    EXPECT_STREQ(data->Title, "Tank");
    EXPECT_EQ(varNames(), (Texts{"t", "p"}));
    EXPECT_EQ(data->RawLineList, nullptr);
    EXPECT_EQ(data->NumZones, 0);
    EXPECT_EQ(zone(0)->VarValues[0]->Count, 0);
}

TEST_F(ScanTest, CancelIsSilentAndOpenFailureIsReported)
{
    names({"a", "b"});
    numericToEof();
    std::string file;
    for (int i = 0; i < 1000; i++)
        file += std::to_string(i) + " 1\n";
    ui().cancelAtPercent(40);
    EXPECT_FALSE(scan(file));
    EXPECT_EQ(data, nullptr);
    EXPECT_EQ(tw::GlobalCancelled, TRUE);
    EXPECT_EQ(ui().progressChecks().back(), 40);
    EXPECT_EQ(ui().progressChecks().size(), 40u);
    EXPECT_EQ(ui().errors().size() + ui().messages().size(), 0u);
    EXPECT_FALSE(ui().progressUp());
    EXPECT_TRUE(tw::TW_CheckPercentDone(150));
    EXPECT_EQ(ui().progressChecks().back(), 100);
    EXPECT_EQ(tw::GlobalCancelled, FALSE);

    std::string missing = write("") + ".none";
    EXPECT_FALSE(tw::ScanTextFile(&data, missing.c_str(), instr, true));
    EXPECT_EQ(ui().errors(), (Texts{"Cannot open file \"" + missing +
                                    "\" for reading.\nCheck disk space or permissions"}));
    EXPECT_EQ(hostObjectsMade(), 0);
}

TEST_F(ScanTest, EveryAllocationFailureIsReportedAndReleased)
{
    varLines(1, 1);
    numericToEof();
    instr->TitleSearchMode = tw::SearchMode_Line;
    instr->TitleLine = 2;
    const std::string file = "x y\nTitle\n1 2\n3 4\ntext\n";
    for (int host = 0; host < 2; host++) {
        for (long n = 1;; n++) {
            ui().clearTranscript();
            /* The line value array is made on first use: fail it too. */
            tw::TW_DoubleArrayDealloc(&tw::GlobalLineBuffer);
            (host ? corvane::host::failHostAllocationAt : tw::TW_AllocFailAt)(n);
            bool ok = scan(file);
            long made = host ? corvane::host::hostAllocationCount() : tw::TW_AllocCount();
            tw::TW_AllocFailAt(0);
            corvane::host::failHostAllocationAt(0);
            if (made < n) { /* every allocation succeeded */
                ASSERT_TRUE(ok);
                EXPECT_TRUE(ui().errors().empty());
                EXPECT_STREQ(data->Title, "Title");
                EXPECT_EQ(values(0, 1), (V{2, 4}));
                EXPECT_GE(n, host ? 6 : 10); /* the loop reached the later steps */
                break;
            }
            ASSERT_FALSE(ui().errors().empty()) << host << " " << n;
            EXPECT_EQ(ui().errors()[0], "Out of memory") << host << " " << n;
            EXPECT_TRUE(ok || data == nullptr);
            tw::FileDataSetDealloc(&data);
            EXPECT_EQ(hostObjectsMade(), 0) << host << " " << n;
        }
        tw::FileDataSetDealloc(&data);
    }
}

} // namespace
