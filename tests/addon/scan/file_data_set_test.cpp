/* The scanned data set: creation, zones, release and their failures. */
#include "FileDataSet.h"
#include "ScanFixture.h"

using corvane::host::UiEvent;

class DataSetTest : public ScanTest {
protected:
    bool add(int32_t numVars, tw::TW_Dimension_s dimension)
    {
        return tw::AddNewZone(&data->ZoneList, &last, &counter, numVars, &dimension);
    }
    tw::TW_ZoneInfo_s *last = nullptr;
    int32_t counter = 1;
};

TEST_F(DataSetTest, ZonesAreNumberedAndSizedAndReleasedUnderABoxWithoutCancel)
{
    data = tw::FileDataSetAlloc();
    EXPECT_EQ(std::vector<int>({data->NumZones, data->NumVars, data->MaxTextLineNumber,
                                data->State, data->NeedsRescan}),
              std::vector<int>({0, 0, 0, 4, false}));
    ASSERT_TRUE(add(2, {true, 7, 7, 7}));
    ASSERT_TRUE(add(2, {false, 10, 5, 1}));
    ASSERT_TRUE(add(0, {false, 1, 1, 1}));
    EXPECT_EQ(sizes(), (std::vector<std::vector<int>>{
                           {1, 1, 1, 123456789}, {10, 5, 1, 50}, {1, 1, 1, 1}}));
    EXPECT_EQ(Texts({zone(0)->ZoneName, zone(1)->ZoneName, zone(2)->ZoneName}),
              Texts({"Zone 1", "Zone 2", "Zone 3"}));
    EXPECT_EQ(counter, 4);
    EXPECT_EQ(last, zone(2));
    EXPECT_EQ(zone(2)->VarValues, nullptr);
    tw::ReleaseFileData(&data);
    EXPECT_EQ(ui().transcript(),
              (std::vector<UiEvent>{{UiEvent::Kind::progress, "", "Releasing memory...", "", false},
                                    {UiEvent::Kind::progressEnd, "", "", "", false}}));
}

TEST_F(DataSetTest, WithoutItsRecordThereIsNoDataSet)
{
    tw::TW_AllocFailAt(1);
    EXPECT_EQ(tw::FileDataSetAlloc(), nullptr);
    EXPECT_EQ(ui().errors(), Texts{"Out of memory"});
}

/* The first zone left in the data set: its name and arrays (two variables). */
static std::string zoneLeft(const tw::TW_FileDataSet_s *data)
{
    const tw::TW_ZoneInfo_s *z = data->ZoneList;
    if (z == nullptr)
        return "no zone";
    std::string name = z->ZoneName ? z->ZoneName : "(no name)";
    if (z->VarValues == nullptr)
        return name + " without arrays";
    bool empty = z->VarValues[0]->Count == 0 && z->VarValues[1]->Count == 0;
    return name + (empty ? " with empty arrays" : " with values");
}

/* A new zone whose record, pointer array or name cannot be made: its boxes,
   what is left, and the zone number used up all the same. */
TEST_F(DataSetTest, AZoneFailureIsReportedAndLeavesNothingBehind)
{
    const struct { bool host; long n; bool added; int boxes; const char *left; } rows[] = {
        {false, 1, false, 2, "no zone"},
        {false, 2, true, 1, "Zone 1 without arrays"},
        {true, 1, true, 1, "(no name) with empty arrays"},
    };
    for (const auto &row : rows) {
        ui().clearTranscript();
        data = tw::FileDataSetAlloc();
        last = nullptr;
        counter = 1;
        (row.host ? corvane::host::failHostAllocationAt : tw::TW_AllocFailAt)(row.n);
        EXPECT_EQ(add(2, {true, 1, 1, 1}), row.added) << row.left;
        tw::TW_AllocFailAt(0);
        corvane::host::failHostAllocationAt(0);
        EXPECT_EQ(zoneLeft(data), row.left);
        EXPECT_EQ(counter, 2) << row.left;
        EXPECT_EQ(ui().errors(), Texts(row.boxes, "Out of memory")) << row.left;
        tw::FileDataSetDealloc(&data);
        EXPECT_EQ(hostObjectsMade(), 0) << row.left;
    }
}
