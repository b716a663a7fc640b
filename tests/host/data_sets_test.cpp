// Data sets built through the C data calls: typed storage, load bracket, failure reasons.
#include <cmath>
#include <functional>
#include <string>
#include <optional>
#include <vector>

#include <gmock/gmock.h>

#include "CvnAPI.h"
#include "DataModel.h"
#include "HostFixture.h"

using corvane::host::dataSets;
using Strings = std::vector<std::string>;

class DataSetTest : public HostTest {
protected:
    void SetUp() override { HostTest::SetUp(), corvane::host::clearDataSets(); }

    /* CvnUtilDataSetCreateX; "VarNames" only when vars is given. */
    static Boolean_t create(const std::optional<Strings> &vars)
    {
        ArgList_s *args = CvnUtilArgListAlloc();
        StringList_s *names = CvnUtilStringListAlloc();
        for (const std::string &v : vars.value_or(Strings{}))
            CvnUtilStringListAppendString(names, v.c_str());
        Boolean_t ok = (!vars || CvnUtilArgListAppendStringList(args, "VarNames", names)) &&
                       CvnUtilDataSetCreateX(args);
        CvnUtilStringListDealloc(&names);
        CvnUtilArgListDealloc(&args);
        return ok;
    }

    /* The call failed for reason (succeeded for ""), as the last error box shows. */
    void expectPosted(Boolean_t ok, const std::string &reason)
    {
        EXPECT_EQ(ok, reason.empty()) << reason;
        ui().clearTranscript();
        CvnUtilPostLastErrorMessage();
        EXPECT_EQ(ui().errors(), reason.empty() ? Strings{} : Strings{reason});
    }
};

const Strings fourVars = {"D", "I32", "I16", "B"};
const FieldDataType_e fourTypes[] = {FieldDataType_Double, FieldDataType_Int32, FieldDataType_Int16,
                                     FieldDataType_Byte};


TEST_F(DataSetTest, FieldsRoundAndClampPerTypeThroughHandlesThatSurviveLaterZones)
{
    ASSERT_TRUE(CvnUtilDataLoadStart());
    ASSERT_TRUE(create(fourVars));
    ASSERT_TRUE(CvnUtilDataSetAddZone("Z1", 3, 2, 1, ZoneType_Ordered, fourTypes));
    FieldData_pa refs[4];
    for (EntIndex_t v = 1; v <= 4; ++v)
        refs[v - 1] = CvnUtilDataValueGetRef(1, v);
    for (auto [zone, var] : {std::pair{1, 5}, {1, 0}, {2, 1}, {0, 1}})
        EXPECT_EQ(CvnUtilDataValueGetRef(zone, var), nullptr) << zone << "," << var;
    for (int z = 0; z < 20; ++z)
        ASSERT_TRUE(CvnUtilDataSetAddZone("More", 3, 1, 1, ZoneType_Ordered, fourTypes));
    const double in[] = {2.5, -2.5, 3e10, -3e10, 300, NAN};
    for (FieldData_pa ref : refs)
        for (LgIndex_t p = 0; p <= 7; ++p) /* 0 and 7 are out of range: ignored */
            CvnUtilDataValueSetByRef(ref, p, p >= 1 && p <= 6 ? in[p - 1] : 9);
    ArgList_s *finish = CvnUtilArgListAlloc();
    CvnUtilArgListAppendInt(finish, "InitialPlotType", PlotType_XYLine);
    EXPECT_TRUE(CvnUtilDataLoadFinishX(finish));
    CvnUtilArgListDealloc(&finish);
    EXPECT_EQ(dataSets().at(0).initialPlotType, std::optional<int>(PlotType_XYLine));

    const double stored[4][6] = {{2.5, -2.5, 3e10, -3e10, 300, NAN},
                                 {3, -3, 2147483647, -2147483648.0, 300, 0},
                                 {3, -3, 32767, -32768, 300, 0},
                                 {3, 0, 255, 0, 255, 0}};
    for (size_t v = 0; v < 4; ++v)
        for (size_t p = 0; p < 6; ++p)
            EXPECT_THAT(dataSets()[0].zones[0].fields[v].get(p),
                        testing::NanSensitiveDoubleEq(stored[v][p]));
}

TEST_F(DataSetTest, TheNextLoadCannotReachAnEarlierDataSet)
{
    ASSERT_TRUE(CvnUtilDataLoadStart());
    ASSERT_TRUE(create(fourVars));
    ASSERT_TRUE(CvnUtilDataSetAddZone("Z1", 3, 2, 1, ZoneType_Ordered, fourTypes));
    ASSERT_TRUE(CvnUtilDataLoadFinishX(nullptr));
    ASSERT_TRUE(CvnUtilDataLoadStart());
    EXPECT_EQ(CvnUtilDataValueGetRef(1, 1), nullptr);
    ASSERT_TRUE(create(fourVars));
    ASSERT_TRUE(CvnUtilDataSetAddZone("Z2", 1, 1, 1, ZoneType_Ordered, fourTypes));
    EXPECT_TRUE(CvnUtilDataLoadFinishX(nullptr));
    EXPECT_EQ(dataSets().size(), 2u);
}

/* A load whose data set got no zone (its zones could not be made) is not
   kept as data: the finish refuses it with an error box. */
TEST_F(DataSetTest, ADataSetWithoutZonesIsNotKept)
{
    ASSERT_TRUE(CvnUtilDataLoadStart());
    ASSERT_TRUE(create(fourVars));
    EXPECT_FALSE(CvnUtilDataLoadFinishX(nullptr));
    EXPECT_TRUE(dataSets().empty());
    EXPECT_EQ(ui().errors(), Strings{"The data set \"\" has no zones: the load is not kept."});
}

/* Each call in a fresh state: no load open, a load without a data set, or a
   load with one; a success clears the reason of a failure before it. */
TEST_F(DataSetTest, FailedCallsKeepTheirExactReasonForThePostedErrorBox)
{
    enum State { noLoad, load, dataSet };
    const struct { State state; std::function<Boolean_t()> call; std::string reason; } rows[] = {
        {noLoad, [] { return create(fourVars); },
         "Cannot create the data set: no data load is open (call CvnUtilDataLoadStart first and "
         "CvnUtilDataLoadFinishX after)"},
        {load, [] { return CvnUtilDataSetAddZone("Z", 2, 2, 2, ZoneType_Ordered, fourTypes); },
         "Cannot add zone \"Z\": no data set was created in the open data load"},
        {load, [] { return create(std::nullopt); },
         "Cannot create the data set: the argument list has no \"VarNames\""},
        {load, [] { return create(Strings{}); },
         "Cannot create the data set: \"VarNames\" holds no variable names"},
        {load, [] { create(std::nullopt); return create(fourVars); }, ""},
        {dataSet, [] { return CvnUtilDataSetAddZone("Flat", 3, 0, 1, ZoneType_Ordered, fourTypes); },
         "Cannot add zone \"Flat\": IMax, JMax and KMax must be at least 1 (got 3, 0, 1)"},
        {dataSet,
         [] {
             return CvnUtilDataSetAddZone("Huge", 2000000, 2000000, 1000000, ZoneType_Ordered,
                                          fourTypes);
         },
         "Cannot add zone \"Huge\": out of memory for 4000000000000000000 points"},
        /* Addressable, but more than the machine's memory: refused when the
           zone is added, although fields take memory only when written. */
        {dataSet,
         [] {
             return CvnUtilDataSetAddZone("Big", 100000, 100000, 1000, ZoneType_Ordered,
                                          fourTypes);
         },
         "Cannot add zone \"Big\": out of memory for 10000000000000 points"},
    };
    for (const auto &row : rows) {
        corvane::host::clearDataSets();
        if (row.state != noLoad) {
            ASSERT_TRUE(CvnUtilDataLoadStart());
        }
        if (row.state == dataSet) {
            ASSERT_TRUE(create(fourVars));
        }
        expectPosted(row.call(), row.reason);
        /* No row adds a zone: a data set made in the load is not kept. */
        bool made = !dataSets().empty();
        EXPECT_EQ(CvnUtilDataLoadFinishX(nullptr), row.state != noLoad && !made) << row.reason;
    }
}
