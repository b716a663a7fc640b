/*
 * data_sets_test.cpp - data sets built through the C data calls: typed
 * storage with rounding and clamping, the load bracket, and the exact
 * reasons of failed calls.
 */
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "CvnAPI.h"
#include "DataModel.h"
#include "HostFixture.h"

using corvane::host::dataSets;
using Strings = std::vector<std::string>;

namespace {

class DataSetTest : public HostTest {
protected:
    void SetUp() override { HostTest::SetUp(), corvane::host::clearDataSets(); }
    void TearDown() override { corvane::host::clearDataSets(), HostTest::TearDown(); }

    /* CvnUtilDataSetCreateX; "VarNames" only when vars is given. */
    static Boolean_t create(const char *title, const Strings *vars)
    {
        ArgList_s *args = CvnUtilArgListAlloc();
        CvnUtilArgListAppendString(args, "LoaderName", "Test Loader");
        CvnUtilArgListAppendString(args, "DataSetTitle", title);
        StringList_s *names = CvnUtilStringListAlloc();
        for (const std::string &v : vars ? *vars : Strings{})
            CvnUtilStringListAppendString(names, v.c_str());
        if (vars)
            CvnUtilArgListAppendStringList(args, "VarNames", names);
        Boolean_t ok = CvnUtilDataSetCreateX(args);
        CvnUtilStringListDealloc(&names);
        CvnUtilArgListDealloc(&args);
        return ok;
    }

    /* The error boxes CvnUtilPostLastErrorMessage shows now. */
    Strings posted()
    {
        ui().clearTranscript();
        CvnUtilPostLastErrorMessage();
        return ui().errors();
    }
};

const Strings fourVars = {"D", "I32", "I16", "B"};
const FieldDataType_e fourTypes[] = {FieldDataType_Double, FieldDataType_Int32, FieldDataType_Int16,
                                     FieldDataType_Byte};

} // namespace

TEST_F(DataSetTest, FieldsStoreEachTypeRoundingHalfAwayAndClamping)
{
    ASSERT_TRUE(CvnUtilDataLoadStart() && create("Typed", &fourVars));
    ASSERT_TRUE(CvnUtilDataSetAddZone("Z1", 4, 2, 1, ZoneType_Ordered, fourTypes));
    const double in[8] = {2.5, -2.5, 70000, -70000, -1, 300, NAN, 254.5};
    for (EntIndex_t v = 1; v <= 4; ++v)
        for (LgIndex_t p = 0; p <= 9; ++p) /* 0 and 9 are out of range: ignored */
            CvnUtilDataValueSetByRef(CvnUtilDataValueGetRef(1, v), p,
                                     p >= 1 && p <= 8 ? in[p - 1] : 9);
    CvnUtilDataValueSetByRef(CvnUtilDataValueGetRef(1, 2), 2, 3e10);
    CvnUtilDataValueSetByRef(CvnUtilDataValueGetRef(1, 2), 4, -3e10);
    EXPECT_TRUE(CvnUtilDataLoadFinishX(nullptr));

    const corvane::host::Zone &zone = dataSets().at(0).zones.at(0);
    EXPECT_EQ(zone.points(), 8);
    auto values = [&](size_t var) {
        std::vector<double> out;
        for (size_t p = 0; p < zone.fields[var].size(); ++p)
            out.push_back(std::isnan(zone.fields[var].get(p)) ? -999 : zone.fields[var].get(p));
        return out;
    };
    EXPECT_EQ(values(0), (std::vector<double>{2.5, -2.5, 70000, -70000, -1, 300, -999, 254.5}));
    EXPECT_EQ(values(1),
              (std::vector<double>{3, 2147483647, 70000, -2147483648.0, -1, 300, 0, 255}));
    EXPECT_EQ(values(2), (std::vector<double>{3, -3, 32767, -32768, -1, 300, 0, 255}));
    EXPECT_EQ(values(3), (std::vector<double>{3, 0, 255, 0, 0, 255, 0, 255}));
    EXPECT_STREQ(corvane::host::fieldTypeName(zone.fields[3].type()), "byte");
}

TEST_F(DataSetTest, FailedCallsKeepTheirExactReasonForThePostedErrorBox)
{
    EXPECT_FALSE(create("Early", &fourVars));
    EXPECT_EQ(posted(), Strings{"Cannot create the data set: no data load is open (call "
                                "CvnUtilDataLoadStart first and CvnUtilDataLoadFinishX after)"});
    ASSERT_TRUE(CvnUtilDataLoadStart());
    EXPECT_FALSE(CvnUtilDataSetAddZone("Z", 2, 2, 2, ZoneType_Ordered, fourTypes));
    EXPECT_EQ(posted(),
              Strings{"Cannot add zone \"Z\": no data set was created in the open data load"});
    EXPECT_FALSE(create("No vars", nullptr));
    EXPECT_EQ(posted(),
              Strings{"Cannot create the data set: the argument list has no \"VarNames\""});
    const Strings none;
    EXPECT_FALSE(create("Empty vars", &none));
    EXPECT_EQ(posted(),
              Strings{"Cannot create the data set: \"VarNames\" holds no variable names"});
    EXPECT_TRUE(dataSets().empty());

    ASSERT_TRUE(create("Zones", &fourVars));
    EXPECT_EQ(posted(), Strings{}); /* a success clears the reason */
    EXPECT_FALSE(CvnUtilDataSetAddZone("Flat", 3, 0, 1, ZoneType_Ordered, fourTypes));
    EXPECT_EQ(posted(), Strings{"Cannot add zone \"Flat\": IMax, JMax and KMax must be at least 1 "
                                "(got 3, 0, 1)"});
    EXPECT_FALSE(
        CvnUtilDataSetAddZone("Huge", 2000000, 2000000, 1000000, ZoneType_Ordered, fourTypes));
    EXPECT_EQ(posted(),
              Strings{"Cannot add zone \"Huge\": out of memory for 4000000000000000000 points"});
    EXPECT_TRUE(dataSets()[0].zones.empty());

    ASSERT_TRUE(CvnUtilDataSetAddZone("Ok", 5, 1, 1, ZoneType_Ordered, fourTypes));
    EXPECT_NE(CvnUtilDataValueGetRef(1, 4), nullptr);
    for (auto [zone, var] : {std::pair{1, 5}, {1, 0}, {2, 1}, {0, 1}})
        EXPECT_EQ(CvnUtilDataValueGetRef(zone, var), nullptr) << zone << "," << var;
    EXPECT_TRUE(CvnUtilDataLoadFinishX(nullptr));
    EXPECT_EQ(dataSets()[0].variables, fourVars);
}

TEST_F(DataSetTest, LoadBracketKeepsPlotTypeAndHandlesSurviveLaterZones)
{
    EXPECT_FALSE(CvnUtilDataLoadFinishX(nullptr));
    const Strings one = {"V"};
    ArgList_s *finish = CvnUtilArgListAlloc();
    CvnUtilArgListAppendInt(finish, "InitialPlotType", PlotType_XYLine);

    ASSERT_TRUE(CvnUtilDataLoadStart() && create("First", &one));
    EXPECT_EQ(corvane::host::openDataLoads(), 1);
    ASSERT_TRUE(CvnUtilDataSetAddZone("A", 2, 1, 1, ZoneType_Ordered, fourTypes));
    FieldData_pa first = CvnUtilDataValueGetRef(1, 1);
    for (int z = 0; z < 20; ++z)
        ASSERT_TRUE(CvnUtilDataSetAddZone("More", 3, 1, 1, ZoneType_Ordered, fourTypes));
    CvnUtilDataValueSetByRef(first, 2, 7.25);
    EXPECT_TRUE(CvnUtilDataLoadFinishX(finish));
    EXPECT_EQ(corvane::host::openDataLoads(), 0);

    /* A later load no longer reaches the earlier data set. */
    ASSERT_TRUE(CvnUtilDataLoadStart());
    EXPECT_EQ(CvnUtilDataValueGetRef(1, 1), nullptr);
    ASSERT_TRUE(create("Second", &one));
    EXPECT_TRUE(CvnUtilDataLoadFinishX(nullptr));
    CvnUtilArgListDealloc(&finish);

    ASSERT_EQ(dataSets().size(), 2u);
    EXPECT_EQ(dataSets()[0].zones.size(), 21u);
    EXPECT_EQ(dataSets()[0].zones[0].fields[0].get(1), 7.25);
    EXPECT_EQ(dataSets()[0].initialPlotType, std::optional<int>(PlotType_XYLine));
    EXPECT_EQ(dataSets()[1].initialPlotType, std::nullopt);
}
