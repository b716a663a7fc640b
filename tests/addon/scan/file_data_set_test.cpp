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
    EXPECT_TRUE(counter == 4 && last == zone(2) && zone(2)->VarValues == nullptr);
    tw::ReleaseFileData(&data);
    EXPECT_EQ(ui().transcript(),
              (std::vector<UiEvent>{{UiEvent::Kind::progress, "", "Releasing memory...", "", false},
                                    {UiEvent::Kind::progressEnd, "", "", "", false}}));
}

TEST_F(DataSetTest, AllocationFailuresAreReportedAndLeaveNothingBehind)
{
    tw::TW_AllocFailAt(1);
    EXPECT_EQ(tw::FileDataSetAlloc(), nullptr);
    data = tw::FileDataSetAlloc();
    tw::TW_AllocFailAt(1); /* the zone: two boxes, no zone, the number used up */
    EXPECT_FALSE(add(2, {true, 1, 1, 1}));
    EXPECT_TRUE(data->ZoneList == nullptr && counter == 2);
    tw::TW_AllocFailAt(2); /* its pointer array: one box, a zone without arrays */
    EXPECT_TRUE(add(2, {true, 1, 1, 1}));
    EXPECT_TRUE(zone(0)->VarValues == nullptr && zone(0)->ZoneName == std::string("Zone 2"));
    corvane::host::failHostAllocationAt(1); /* its name: one box, a zone without a name */
    EXPECT_TRUE(add(1, {true, 1, 1, 1}));
    EXPECT_TRUE(zone(1)->ZoneName == nullptr && zone(1)->VarValues[0]->Count == 0);
    EXPECT_EQ(ui().errors(), Texts(5, "Out of memory"));
    tw::FileDataSetDealloc(&data);
    EXPECT_EQ(hostObjectsMade(), 0);
}
