/* Scanning real-world data files as a user would set them up. */
#include <string>
#include <vector>

#include "ScanFixture.h"

namespace {

class RealFileTest : public ScanTest {
protected:
    bool scanReal(const char *name)
    {
        std::string path = std::string(ORDALIS_REALDATA_DIR) + "/" + name;
        return tw::ScanTextFile(&data, path.c_str(), instr, true);
    }
};

/* Twelve meshes, each introduced by a "#NETWORK" comment line. */
TEST_F(RealFileTest, WhaleMeshSplitIntoZonesAtTheKeyword)
{
    names("x,y,z");
    set("DATA { DIMENSION { CREATEMULTIPLEZONES = TRUE KEYWORD = \"#network\" } }");
    ASSERT_TRUE(scanReal("gnuplot_whale_keyword_blocks.dat"));
    std::vector<int> points;
    for (const tw::TW_ZoneInfo_s *z = data->ZoneList; z != nullptr; z = z->Next)
        points.push_back(z->NumPoints);
    EXPECT_EQ(points, (std::vector<int>{80, 640, 196, 204, 168, 720, 168, 168, 198, 198, 56, 44}));
    EXPECT_EQ(values(0, 0).front(), 4.32022);
    EXPECT_EQ(textLines().front(),
              (std::pair<int, std::string>{1, "#(C) Copyright 1992 Alex Woo"}));
    EXPECT_EQ(ui().errors(), Texts{});
    EXPECT_EQ(ui().messages(), Texts{});
}

/* CRLF lines, "E0" exponents, the names behind a "Data:" label that a
   column filter removes. */
TEST_F(RealFileTest, NistNelsonWithCrLfAndAColumnFilter)
{
    set("TITLE { NAME = \"NIST Nelson\" } VARIABLES { SEARCH = LINE STARTLINE = 60 ENDLINE = 60 } "
        "DATA { IMPORT { STARTID = LINE { LINE = 61 } } } GLOBALFILTERS { COLUMNS = [1-5] }");
    ASSERT_TRUE(scanReal("nist_nelson_crlf.dat"));
    EXPECT_STREQ(data->Title, "NIST Nelson");
    EXPECT_EQ(varNames(), (Texts{"y", "x1", "x2"}));
    EXPECT_EQ(sizes(), (std::vector<std::vector<int>>{{128, 1, 1, 128}}));
    EXPECT_EQ((std::vector<double>{values(0, 0).front(), values(0, 1).back(), values(0, 2).back()}),
              (std::vector<double>{15.0, 64.0, 275.0}));
    EXPECT_EQ(textLines().front(), (std::pair<int, std::string>{1, "ITL StRD"}));
}

/* Comma-separated with a title line, a names line and "***" for missing
   values, which become the blank value. */
TEST_F(RealFileTest, GistempCsvWithBlankCells)
{
    set("TITLE { SEARCH = LINE DELIMITER = COMMA } VARIABLES { SEARCH = LINE STARTLINE = 2 "
        "ENDLINE = 2 DELIMITER = COMMA } DATA { IMPORT { DELIMITER = COMMA } } "
        "GLOBALFILTERS { BLANKCELLVALUE = -999 }");
    ASSERT_TRUE(scanReal("nasa_gistemp_global_means.csv"));
    EXPECT_STREQ(data->Title, "Land-Ocean: Global Means");
    ASSERT_EQ(data->NumVars, 19);
    EXPECT_EQ(varNames()[13], "J-D");
    EXPECT_EQ(zone(0)->NumPoints, 143);
    EXPECT_EQ((std::vector<double>{values(0, 0).front(), values(0, 0).back(), values(0, 14).front(),
                                   values(0, 6).back(), values(0, 3).back()}),
              (std::vector<double>{1880, 2022, -999, -999, 1.04}));
    EXPECT_TRUE(ui().messages().empty());
}

} // namespace
