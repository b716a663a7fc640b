/*
 * Tests of the growable double array: the growth step, filling, emptying
 * and every allocation failure.
 */
#include "DoubleArray.h"
#include "HostFixture.h"
#include "TW_Alloc.h"

using namespace corvane::cvnutildataio;
using Strings = std::vector<std::string>;

class DoubleArrayTest : public HostTest {
protected:
    void TearDown() override
    {
        TW_AllocFailAt(0);
        HostTest::TearDown();
    }
};

TEST_F(DoubleArrayTest, GrowsByOneStepRightAfterEachMultipleOfTheStep)
{
    TW_DoubleArray_s *Array = TW_DoubleArrayAlloc();
    ASSERT_NE(Array, nullptr);
    EXPECT_TRUE(TW_DoubleArrayFill(Array, 0, 1.0));
    EXPECT_TRUE(TW_DoubleArrayFill(Array, -3, 1.0));
    EXPECT_EQ(TW_DoubleArrayGetSize(Array), 0);
    for (int Round = 0; Round < 2; Round++) { /* a new array, then an emptied one */
        TW_AllocFailAt(0);                   /* counts allocations from here */
        ASSERT_TRUE(TW_DoubleArrayFill(Array, 7918, 0.5));
        EXPECT_EQ(TW_AllocCount(), 0);
        ASSERT_TRUE(TW_DoubleArrayAdd(Array, -1.0));
        EXPECT_EQ(TW_AllocCount(), 1);
        ASSERT_TRUE(TW_DoubleArrayFill(Array, 7918, 2.0)); /* room for 15838 */
        EXPECT_EQ(TW_AllocCount(), 1);
        ASSERT_TRUE(TW_DoubleArrayAdd(Array, 3.0));
        EXPECT_EQ(TW_AllocCount(), 2);
        ASSERT_TRUE(TW_DoubleArrayFill(Array, 4162, 4.0));
        EXPECT_EQ(TW_DoubleArrayGetSize(Array), 20000);
        EXPECT_EQ(TW_DoubleArrayGetAt(Array, 7917), 0.5);
        EXPECT_EQ(TW_DoubleArrayGetAt(Array, 7918), -1.0);
        EXPECT_EQ(TW_DoubleArrayGetArray(Array)[15837], 3.0);
        EXPECT_EQ(TW_DoubleArrayGetAt(Array, 19999), 4.0);
        TW_DoubleArrayRemoveAll(Array);
        EXPECT_EQ(TW_DoubleArrayGetSize(Array), 0);
    }
    TW_DoubleArrayDealloc(&Array);
    EXPECT_EQ(Array, nullptr);
    TW_DoubleArrayDealloc(&Array);
    EXPECT_TRUE(ui().errors().empty());
}

TEST_F(DoubleArrayTest, EveryAllocationFailureIsReportedOnceAndLeavesNothing)
{
    for (long N = 1;; N++) { /* the record, then its buffer */
        ui().clearTranscript();
        TW_AllocFailAt(N);
        TW_DoubleArray_s *Array = TW_DoubleArrayAlloc();
        TW_AllocFailAt(0);
        if (Array != nullptr) {
            EXPECT_EQ(N, 3);
            EXPECT_TRUE(ui().errors().empty());
            TW_DoubleArrayDealloc(&Array);
            break;
        }
        EXPECT_EQ(ui().errors(), Strings{"Out of memory"}) << "failing allocation " << N;
    }

    ui().clearTranscript();
    TW_DoubleArray_s *Array = TW_DoubleArrayAlloc();
    ASSERT_TRUE(TW_DoubleArrayFill(Array, 7918, 2.0));
    TW_AllocFailAt(1); /* a failed growth keeps what was stored before */
    EXPECT_FALSE(TW_DoubleArrayAdd(Array, 9.0));
    EXPECT_EQ(TW_DoubleArrayGetSize(Array), 7918);
    EXPECT_TRUE(TW_DoubleArrayAdd(Array, 9.0));
    EXPECT_EQ(TW_DoubleArrayGetAt(Array, 7918), 9.0);

    TW_DoubleArrayRemoveAll(Array);
    TW_AllocFailAt(1); /* a fill keeps the values before its failed growth */
    EXPECT_FALSE(TW_DoubleArrayFill(Array, 10000, 4.0));
    EXPECT_EQ(TW_DoubleArrayGetSize(Array), 7918);

    TW_AllocFailAt(1); /* emptying without a fresh buffer releases the record */
    TW_DoubleArrayRemoveAll(Array);
    EXPECT_EQ(ui().errors(), Strings(3, "Out of memory"));
}
