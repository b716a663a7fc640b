/* Scanning real-world data files as a user would set them up. */
#include <string>
#include <vector>

#include "ScanFixture.h"

namespace {

using V = std::vector<double>;

std::string realFile(const char *name)
{
    return std::string(ORDALIS_REALDATA_DIR) + "/" + name;
}

class RealFileTest : public ScanTest {
protected:
    bool scanReal(const char *name)
    {
        std::string path = realFile(name);
        return tw::ScanTextFile(&data, path.c_str(), instr, true);
    }
};

/* Twelve meshes, each introduced by a "#NETWORK" comment line. */
TEST_F(RealFileTest, WhaleMeshSplitIntoZonesAtTheKeyword)
{
    names({"x", "y", "z"});
    numericToEof();
    instr->CreateMultipleZones = true;
    strcpy(instr->ZoneKeyword, "#network");
    ASSERT_TRUE(scanReal("gnuplot_whale_keyword_blocks.dat"));
    std::vector<int> points;
    for (const tw::TW_ZoneInfo_s *z = data->ZoneList; z != nullptr; z = z->Next)
        points.push_back(z->NumPoints);
    EXPECT_EQ(points, (std::vector<int>{80, 640, 196, 204, 168, 720, 168, 168, 198, 198, 56, 44}));
    EXPECT_EQ(data->NumZones, 12);
    EXPECT_EQ(values(0, 0).front(), 4.32022);
    EXPECT_EQ(values(0, 2).back(), values(0, 2)[79]);
    EXPECT_STREQ(zone(11)->ZoneName, "Zone 12");
    EXPECT_EQ(data->TotalLines, 3002);
    EXPECT_EQ(textLines().front(), (std::pair<int, std::string>{1, "#(C) Copyright 1992 Alex Woo"}));
    EXPECT_TRUE(ui().errors().empty());
    EXPECT_TRUE(ui().messages().empty());
}

/* CRLF lines, "E0" exponents, the names behind a "Data:" label that a
   column filter removes. */
TEST_F(RealFileTest, NistNelsonWithCrLfAndAColumnFilter)
{
    varLines(60, 60);
    instr->StartId = {tw::FileMarker_Line, "", 61};
    instr->EndId.Marker = tw::FileMarker_EOF;
    strcpy(instr->TitleName, "NIST Nelson");
    instr->GlobalFilters.UseColumns = true;
    instr->GlobalFilters.Columns.NumRanges = 1;
    instr->GlobalFilters.Columns.Ranges[0] = {1, 5};
    ASSERT_TRUE(scanReal("nist_nelson_crlf.dat"));
    EXPECT_STREQ(data->Title, "NIST Nelson");
    EXPECT_EQ(varNames(), (Texts{"y", "x1", "x2"}));
    EXPECT_EQ(sizes(), (std::vector<std::vector<int>>{{128, 1, 1, 128}}));
    EXPECT_EQ(values(0, 0).front(), 15.0);
    EXPECT_EQ(values(0, 1).front(), 1.0);
    EXPECT_EQ(values(0, 2).back(), 275.0);
    EXPECT_EQ(values(0, 1).back(), 64.0);
    EXPECT_EQ(textLines().front(), (std::pair<int, std::string>{1, "ITL StRD"}));
    EXPECT_TRUE(ui().errors().empty());
}

/* Comma-separated with a title line, a names line and "***" for missing
   values, which become the blank value. */
TEST_F(RealFileTest, GistempCsvWithBlankCells)
{
    varLines(2, 2);
    instr->Variables.Delimiter = tw::Delimiter_Comma;
    numericToEof();
    instr->TitleSearchMode = tw::SearchMode_Line;
    instr->TitleDelimiter = tw::Delimiter_Comma;
    instr->DataDelimiter = tw::Delimiter_Comma;
    instr->GlobalFilters.UseBlankCellValue = true;
    instr->GlobalFilters.BlankCellValue = -999;
    ASSERT_TRUE(scanReal("nasa_gistemp_global_means.csv"));
    EXPECT_STREQ(data->Title, "Land-Ocean: Global Means");
    ASSERT_EQ(data->NumVars, 19);
    EXPECT_EQ(varNames()[13], "J-D");
    EXPECT_EQ(zone(0)->NumPoints, 143);
    EXPECT_EQ(values(0, 0).front(), 1880);
    EXPECT_EQ(values(0, 0).back(), 2022);
    EXPECT_EQ(values(0, 14).front(), -999);
    EXPECT_EQ(values(0, 6).back(), -999);
    EXPECT_EQ(values(0, 3).back(), 1.04);
    EXPECT_EQ(data->RawLineList, nullptr);
    EXPECT_TRUE(ui().messages().empty());
}

} // namespace
