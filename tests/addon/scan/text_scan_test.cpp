/* Scanning data files: titles, variables, sections, zones, questions, cancel, failures. */
#include <string>
#include <vector>

#include "ScanFixture.h"

namespace {

using V = std::vector<double>;
using Sizes = std::vector<std::vector<int>>;
using Lines = std::vector<std::pair<int, std::string>>;

const char kLineVars[] = "VARIABLES { SEARCH = LINE STARTLINE = 2 ENDLINE = 2 } ";

TEST_F(ScanTest, TitleInQuotesNamesValuesAndTextLinesOfACrLfFile)
{
    set(kLineVars + std::string("TITLE { SEARCH = LINE LINE = 1 }"));
    ASSERT_TRUE(scan("\"Run 7\" of today\r\nx  y\r\n# units\r\n\r\n1 2\r\n3 4\r\n5 6\r\n"));
    EXPECT_STREQ(data->Title, "Run 7");
    EXPECT_EQ(varNames(), (Texts{"x", "y"}));
    EXPECT_EQ(values(0, 1), (V{2, 4, 6}));
    EXPECT_EQ(sizes(), (Sizes{{3, 1, 1, 3}}));
    EXPECT_EQ(textLines(), (Lines{{3, "# units"}}));
    EXPECT_EQ(ui().transcript().size(), 2u); /* the progress bar only */
    EXPECT_EQ(hostObjectsMade(), 2);          /* the title and the zone name */
}

/* By keyword; none given; a title line inside the variable lines, which
   falls back to the default with a message. */
TEST_F(ScanTest, TitleFromAKeywordOrTheDefault)
{
    const struct { std::string settings, file, title; Texts names, messages; } rows[] = {
        {kLineVars + std::string("TITLE { SEARCH = KEYWORD KEYWORD = \"RUN\" }"),
         "\nx y\nname: run 8\n1 2\n", "name:", {"x", "y"}, {}},
        {"VARIABLES { SEARCH = NONE NAMES = \"a,b\" } TITLE { SEARCH = NONE NAME = \"\" }",
         "1 2\n", "New Dataset", {"a", "b"}, {}},
        {"VARIABLES { SEARCH = LINE STARTLINE = 1 ENDLINE = 1 } TITLE { SEARCH = LINE LINE = 1 }",
         "a b\n1 2\n", "New data set", {"a", "b"},
         {"The file line with the data set title cannot be within the range of the file "
          "line(s) with the variables.\nThe title of the data set will be set to the default: "
          "\"New data set.\"."}},
    };
    for (const auto &row : rows) {
        newInstructions();
        ui().clearTranscript();
        set(row.settings);
        ASSERT_TRUE(scan(row.file)) << row.settings;
        EXPECT_STREQ(data->Title, row.title.c_str()) << row.settings;
        EXPECT_EQ(varNames(), row.names) << row.settings;
        EXPECT_EQ(ui().messages(), row.messages) << row.settings;
        if (!row.messages.empty()) {
            EXPECT_EQ(ui().transcript().at(1).type, "information");
        }
    }
}

TEST_F(ScanTest, VariablesToLoadComeFromTheSet)
{
    set(kLineVars + std::string("VARIABLES { LOADED = [2] }"));
    ASSERT_TRUE(scan("Title\nx y\n1 2\n"));
    EXPECT_EQ((std::vector<bool>{data->VarList[0].Selected, data->VarList[1].Selected}),
              (std::vector<bool>{false, true}));
}

TEST_F(ScanTest, TitleAndVariablesWithoutTheData)
{
    set(kLineVars + std::string("TITLE { SEARCH = LINE LINE = 1 }"));
    ASSERT_TRUE(scan("Tank test\nt p\nnote\n1 2\n", false));
    EXPECT_STREQ(data->Title, "Tank");
    EXPECT_EQ(varNames(), (Texts{"t", "p"}));
    EXPECT_EQ(data->NumZones, 0);
    EXPECT_EQ(zone(0)->VarValues[0]->Count, 0);
}

TEST_F(ScanTest, VariableLinesRenameDuplicates)
{
    set("VARIABLES { SEARCH = LINE STARTLINE = 1 ENDLINE = 2 }");
    ASSERT_TRUE(scan("x y x\n\"p q\" x\n1 2 3 4 5\n"));
    EXPECT_EQ(varNames(), (Texts{"x", "y", "x3", "p q", "x2"}));
    EXPECT_EQ(ui().messages(),
              (Texts{"One or more duplicate variable names found. The ordalis loader does not "
                     "support duplicate variables names. Any duplicate variable names found will "
                     "be appended with numbers so that they are unique."}));
}

/* Each with the names or settings it needs: the error, then the bar goes. */
TEST_F(ScanTest, FailedScansShowTheirError)
{
    const std::string ab = "VARIABLES { SEARCH = NONE NAMES = \"a,b\" } ";
    const std::string begin = ab + "DATA { IMPORT { STARTID = KEYWORD { KEYWORD = \"begin\" } } }";
    const std::tuple<std::string, std::string, const char *> rows[] = {
        {"VARIABLES { SEARCH = LINE STARTLINE = 3 ENDLINE = 3 }", "x y\n1 2\nz\n",
         "The start of the data section was reached before all of the variables were found. The "
         "ordalis loader requires that the variables be defined, either in the file dialog or in "
         "the file itself, before the data is located in the file."},
        {"VARIABLES { SEARCH = NONE }", "1 2\n",
         "No variables have been entered in the variables import dialog."},
        {"VARIABLES { SEARCH = KEYWORD }", "x y\n", "No variables found in this file"},
        {"VARIABLES { SEARCH = NONE NAMES = \"a\" }", "1\n2\n",
         "Cannot expand 1-variable data file.\nZones must be all I-Ordered, all J-Ordered, or "
         "all IJK-Ordered"},
        {begin, "1 2\n", "No data section found in this file"},
        {begin, "BEGIN\nnone\n", "No numeric data was found in this file."},
        /* An empty zone keyword is found in every line. */
        {ab + "DATA { DIMENSION { CREATEMULTIPLEZONES = TRUE } }", "1 2\n3 4\n",
         "No numeric data was found in this file."},
        {ab, "1 1\n2 2\n" + std::string(64000, 'x'),
         "Error: Line 3 of this file is too long.\nThe maximum line length supported by Ordalis "
         "Loader is 64000 bytes"},
    };
    for (const auto &[settings, file, error] : rows) {
        newInstructions();
        ui().clearTranscript();
        set(settings);
        EXPECT_FALSE(scan(file)) << settings;
        EXPECT_EQ(ui().errors(), Texts{error}) << settings;
        EXPECT_EQ(ui().transcript().back().kind, corvane::host::UiEvent::Kind::progressEnd);
    }
}

/* A line with more or fewer values than names asks whether to go on (No
   unless answered), unless blank cells have a value. */
TEST_F(ScanTest, AMismatchedLineAsksWhetherToGoOn)
{
    auto question = [](int line, int found) {
        return "Expected to find 3 data values on line " + std::to_string(line) + ", but " +
               std::to_string(found) + " data values were found.\nIt is recommended to specify "
               "a value for blanked cells and restart.\nContinue processing?";
    };
    const struct { const char *settings, *file; int yes; bool ok; V third; Texts asked; } rows[] = {
        {"", "1 2 3\n1 2\n4 5 6 7\n", 2, true, {3, 0, 6}, {question(2, 2), question(3, 4)}},
        {"", "1 2 3\n1 2\n", 0, false, {}, {question(2, 2)}},
        {"GLOBALFILTERS { BLANKCELLVALUE = -1 }", "1 2\n", 0, true, {-1}, {}},
    };
    for (const auto &row : rows) {
        newInstructions();
        ui().clearTranscript();
        names("a,b,c");
        set(row.settings);
        for (int answer = 0; answer < row.yes; answer++)
            ui().queueAnswer(true);
        ASSERT_EQ(scan(row.file), row.ok) << row.file;
        EXPECT_EQ(ui().messages(), row.asked) << row.file;
        if (row.ok) {
            EXPECT_EQ(values(0, 2), row.third) << row.file;
        }
    }
}

/* One variable with explicit sizes is fine when every zone matches. */
TEST_F(ScanTest, OneVariableWithExplicitSizesFillsEveryZone)
{
    names("a");
    set("DATA { DIMENSION { AUTO = FALSE IMAX = 2 CREATEMULTIPLEZONES = TRUE } }");
    ASSERT_TRUE(scan("1\n2\n3\n4\n"));
    EXPECT_EQ(sizes(), (Sizes{{2, 1, 1, 2}, {2, 1, 1, 2}}));
}

/* An explicit size below 1 (the reader makes it 1) leaves a zone without values. */
TEST_F(ScanTest, AnExplicitSizeBelowOneLeavesAZoneWithoutValues)
{
    names("a,b");
    set("DATA { DIMENSION { AUTO = FALSE } }");
    instr->Dimension.IMax = 0;
    EXPECT_FALSE(scan("1 2\n"));
    EXPECT_EQ(ui().errors(),
              Texts{"Error reading data file. No values found for one or more zones."});
}

const char kBlockOfThree[] =
    "DATA { IMPORT { FORMAT = IJKBLOCK } DIMENSION { AUTO = FALSE IMAX = 3 } } ";

TEST_F(ScanTest, BlockFormatFillsZonesOfTheGivenSize)
{
    names("x,y");
    set(kBlockOfThree + std::string("DATA { DIMENSION { CREATEMULTIPLEZONES = TRUE } }"));
    ASSERT_TRUE(scan("1 2\n3 4 5\n6 7 8 9\n10 11 12\n"));
    EXPECT_EQ(sizes(), (Sizes{{3, 1, 1, 3}, {3, 1, 1, 3}}));
    EXPECT_EQ(values(0, 1), (V{4, 5, 6}));
}

/* One zone: the rest of the line is dropped and the data section ends. */
TEST_F(ScanTest, OneBlockZoneDropsTheRestOfTheData)
{
    names("x,y");
    set(kBlockOfThree);
    ASSERT_TRUE(scan("1 2 3 4\n5 6 7 8\n9 10\n"));
    EXPECT_EQ(values(0, 1), (V{4, 5, 6}));
    EXPECT_EQ(ui().messages(), (Texts{"2 extra data points found on line 2.\nThese extra data "
                                      "points will be ignored."}));
    EXPECT_EQ(textLines(), (Lines{{3, "9 10"}}));
}

/* Yes fills with the blank value (the question says 0.0 all the same), No fails. */
TEST_F(ScanTest, MissingBlockValuesAreFilledOnYes)
{
    const std::tuple<bool, const char *, const char *> rows[] = {{true, "1 2 3 4\n", "y"},
                                                                 {false, "1 2\n", "x"}};
    for (const auto &[yes, file, variable] : rows) {
        newInstructions();
        ui().clearTranscript();
        names("x,y");
        set(kBlockOfThree + std::string("GLOBALFILTERS { BLANKCELLVALUE = 0.5 }"));
        ui().queueAnswer(yes);
        ASSERT_EQ(scan(file), yes) << file;
        EXPECT_EQ(ui().messages(),
                  Texts{"In zone 1, variable \"" + std::string(variable) + "\", only " +
                        (yes ? "1" : "2") + " values were found, when 3 were expected. Would you "
                        "like to fill the remaining values with 0.0?"});
        if (yes) {
            EXPECT_EQ(values(0, 1), (V{4, 0.5, 0.5}));
        }
    }
}

TEST_F(ScanTest, PointFormatDealsTheValuesAcrossLinesAndZones)
{
    names("x,y,z");
    set("DATA { IMPORT { FORMAT = IJKPOINT } DIMENSION { AUTO = FALSE IMAX = 2 "
        "CREATEMULTIPLEZONES = TRUE } }");
    ASSERT_TRUE(scan("1 2\n3 4 5 6\n7 8 9\n10 11 12\n"));
    EXPECT_EQ(values(0, 2), (V{3, 6}));
    EXPECT_EQ(values(1, 0), (V{7, 10}));
}

TEST_F(ScanTest, ZonesSplitAtAKeywordUpToTheFirstNonNumericLine)
{
    names("x,y");
    set("DATA { IMPORT { ENDID = FIRSTNONNUMERICLINE { } } DIMENSION { CREATEMULTIPLEZONES = TRUE "
        "KEYWORD = \"next\" } }");
    ASSERT_TRUE(scan("head\n1 2\n3 4\nNEXT block\n5 6\n\n7 8\n9 10\nend\n11 12\n"));
    EXPECT_EQ(sizes(), (Sizes{{2, 1, 1, 2}, {3, 1, 1, 3}}));
    EXPECT_EQ(values(1, 0), (V{5, 7, 9}));
    EXPECT_EQ(textLines(), (Lines{{1, "head"}, {4, "NEXT block"}, {9, "end"}, {10, "11 12"}}));
}

TEST_F(ScanTest, StartAndEndMarkers)
{
    const std::pair<const char *, V> rows[] = {
        {"STARTID = FIRSTNUMERICLINE { } ENDID = EOF { }", {1, 3, 5, 7}},
        {"ENDID = FIRSTNONNUMERICLINE { }", {1}},
        {"STARTID = KEYWORD { KEYWORD = \"begin\" } ENDID = KEYWORD { KEYWORD = \"STOP\" }",
         {3, 5}},
        {"STARTID = LINE { LINE = 4 } ENDID = LINE { LINE = 5 }", {3}},
        {"STARTID = LINE { LINE = 2 } ENDID = EOF { }", {1, 3, 5, 7}},
    };
    for (const auto &[markers, expected] : rows) {
        newInstructions();
        names("a,b");
        set(std::string("DATA { IMPORT { ") + markers + " } }");
        ASSERT_TRUE(scan("h1\n1 2\nBEGIN\n3 4\n5 6\nStop here\n7 8\n")) << markers;
        EXPECT_EQ(values(0, 0), expected) << markers;
    }
}

TEST_F(ScanTest, LinesWithoutValuesAreKeptAsText)
{
    names("a,b");
    set("DATA { IMPORT { STARTID = LINE { LINE = 1 } } }");
    ASSERT_TRUE(scan("1 2\nn/a x\n3 4\n"));
    EXPECT_EQ(textLines(), (Lines{{2, "n/a x"}}));
}

TEST_F(ScanTest, NonNumericTokensAskTwiceWhenTheyAreNotIgnored)
{
    names("a,b");
    set("DATA { IGNORENONNUMERICTOKENS = FALSE IMPORT { STARTID = LINE { LINE = 1 } } }");
    ui().queueAnswer(true);
    EXPECT_FALSE(scan("1 2\nn/a x\n3 4\n"));
    EXPECT_EQ(ui().messages(),
              (Texts{"Possible malformed numeric data values were found on line 2\nPlease check "
                     "this line of the file to be sure that numeric data is of the correct "
                     "form.\nDo you want to continue processing this line?",
                     "Non-numeric data found on line 2. Do you wish to continue reading the "
                     "file?"}));
}

/* Filter texts are trimmed except an all-space keyword; their lengths are set. */
TEST_F(ScanTest, GlobalFiltersDropCommentsKeywordLinesAndRows)
{
    names("a,b");
    set("GLOBALFILTERS { COMMENT = \" % \" KEYWORD = \"   \" ROWS = [3] }");
    auto &f = instr->GlobalFilters;
    ASSERT_TRUE(scan("1 2 % c\n3 4\n5 6\nskip   this\n% note\n7 8\n"));
    EXPECT_EQ(Texts({f.Comment, f.Keyword}), (Texts{"%", "   "}));
    EXPECT_EQ(f.CommentLength, 1);
    EXPECT_EQ(f.KeywordLength, 3);
    EXPECT_EQ(values(0, 0), (V{1, 3, 7}));
    EXPECT_EQ(textLines(), (Lines{{3, "5 6"}}));
}

/* Text lines keep 255 characters of a line; 63999 is the longest read. */
TEST_F(ScanTest, ALineOfTheLongestLengthIsKeptAsTextCut)
{
    names("a,b");
    const std::string longLine(63999, 'x');
    ASSERT_TRUE(scan("1 1\n" + longLine + "\n2 2\n"));
    EXPECT_EQ(textLines(), (Lines{{2, longLine.substr(0, 255)}}));
    EXPECT_EQ(values(0, 0), (V{1, 2}));
}

TEST_F(ScanTest, AMissingFileIsReported)
{
    names("a,b");
    std::string missing = (dir_ / "none.txt").string();
    EXPECT_FALSE(tw::ScanTextFile(&data, missing.c_str(), instr, true));
    EXPECT_EQ(ui().errors(),
              Texts{"Cannot open file \"" + missing + "\" for reading.\nCheck disk space or "
                                                      "permissions"});
}

TEST_F(ScanTest, ACancelStopsTheScanSilently)
{
    names("a,b");
    std::string file;
    for (int i = 0; i < 1000; i++)
        file += std::to_string(i) + " 1\n";
    ui().cancelAtPercent(40);
    EXPECT_FALSE(scan(file));
    EXPECT_EQ(data, nullptr);
    EXPECT_TRUE(tw::GlobalCancelled);
    EXPECT_EQ(ui().progressChecks().size(), 40u);
    EXPECT_EQ(ui().progressChecks().back(), 40);
    EXPECT_EQ(ui().errors(), Texts{});
    EXPECT_EQ(ui().messages(), Texts{});
    EXPECT_FALSE(ui().progressUp());
    EXPECT_EQ(hostObjectsMade(), 0);
}

TEST_F(ScanTest, APercentCheckIsClampedAndForgetsAnEarlierCancel)
{
    tw::GlobalCancelled = TRUE;
    EXPECT_TRUE(tw::TW_CheckPercentDone(150));
    EXPECT_EQ(ui().progressChecks(), std::vector<int>{100});
    EXPECT_EQ(tw::GlobalCancelled, FALSE);
}

TEST_F(ScanTest, EveryAllocationFailureIsReportedAndReleased)
{
    /* Titles from a line, by name, and by default (not the name); a comment
       marker to trim. */
    const std::pair<const char *, const char *> sets[] = {
        {"TITLE { SEARCH = LINE LINE = 2 }", "Title"},
        {"TITLE { SEARCH = NONE NAME = \"Named\" }", "Named"},
        {"TITLE { SEARCH = LINE LINE = 99 NAME = \"Named\" } GLOBALFILTERS { COMMENT = \" # \" }",
         "New Dataset"},
    };
    for (const auto &[title, expected] : sets) {
        newInstructions();
        set(std::string("VARIABLES { SEARCH = LINE STARTLINE = 1 ENDLINE = 1 } ") + title);
        for (int host = 0; host < 2; host++) {
            for (long n = 1;; n++) {
                ui().clearTranscript();
                /* The line value array is made on first use: fail it too. */
                tw::TW_LineFiltersRelease();
                (host ? corvane::host::failHostAllocationAt : tw::TW_AllocFailAt)(n);
                bool ok = scan("x y\nTitle\n1 2\n3 4\ntext\n");
                long made = host ? corvane::host::hostAllocationCount() : tw::TW_AllocCount();
                tw::TW_AllocFailAt(0);
                corvane::host::failHostAllocationAt(0);
                if (made < n) { /* every allocation succeeded */
                    ASSERT_TRUE(ok);
                    EXPECT_EQ(ui().errors(), Texts{});
                    EXPECT_STREQ(data->Title, expected);
                    EXPECT_EQ(values(0, 1), (V{2, 4}));
                    EXPECT_GE(n, host ? 6 : 10); /* the loop reached the later steps */
                    break;
                }
                ASSERT_FALSE(ui().errors().empty()) << title << host << " " << n;
                EXPECT_EQ(ui().errors()[0], "Out of memory") << title << host << " " << n;
                if (!ok) {
                    EXPECT_EQ(data, nullptr) << title << host << " " << n;
                }
                tw::FileDataSetDealloc(&data);
                EXPECT_EQ(hostObjectsMade(), 0) << title << host << " " << n;
            }
            tw::FileDataSetDealloc(&data);
        }
    }
}

} // namespace

TEST_F(ScanTest, MissingValuesAreOfferedForFillingEvenAfterAFailure)
{
    names("x,y");
    set("DATA { IGNORENONNUMERICTOKENS = FALSE DIMENSION { AUTO = FALSE IMAX = 3 } }");
    EXPECT_FALSE(scan("1 2\nabc\n3 4\n")); /* every question answered No */
    EXPECT_EQ(ui().messages(),
              (Texts{"Possible malformed numeric data values were found on line 2\nPlease check "
                     "this line of the file to be sure that numeric data is of the correct "
                     "form.\nDo you want to continue processing this line?",
                     "Non-numeric data found on line 2. Do you wish to continue reading the file?",
                     "In zone 1, variable \"x\", only 1 values were found, when 3 were expected. "
                     "Would you like to fill the remaining values with 0.0?"}));
    EXPECT_EQ(data, nullptr);
}
