/*
 * Tests of the growable double array: the growth step, failures of every
 * allocation, filling and emptying.
 */
#include <string>
#include <vector>

#include "DoubleArray.h"
#include "HostFixture.h"
#include "TW_Alloc.h"

using namespace corvane::cvnutildataio;

class DoubleArrayTest : public HostTest {
protected:
    void TearDown() override
    {
        TW_AllocFailAt(0);
        HostTest::TearDown();
    }
    std::vector<std::string> OutOfMemory(int Times)
    {
        return std::vector<std::string>(static_cast<size_t>(Times), "Out of memory");
    }
};

TEST_F(DoubleArrayTest, GrowsByOneStepRightAfterEachMultipleOfTheStep)
{
    TW_DoubleArray_s *Array = TW_DoubleArrayAlloc();
    ASSERT_NE(Array, nullptr);
    TW_AllocFailAt(0); /* count allocations from here */
    for (int I = 0; I < 7918; I++)
        ASSERT_TRUE(TW_DoubleArrayAdd(Array, I * 0.5));
    EXPECT_EQ(TW_AllocCount(), 0);
    ASSERT_TRUE(TW_DoubleArrayAdd(Array, -1.0));
    EXPECT_EQ(TW_AllocCount(), 1);
    /* room for 15838: the values up to that count need no further growth */
    for (int I = 7919; I < 15837; I++)
        ASSERT_TRUE(TW_DoubleArrayAdd(Array, I));
    EXPECT_EQ(TW_AllocCount(), 1);
    ASSERT_TRUE(TW_DoubleArrayAdd(Array, 15837.0));
    EXPECT_EQ(TW_AllocCount(), 2);

    EXPECT_EQ(TW_DoubleArrayGetSize(Array), 15838);
    EXPECT_EQ(TW_DoubleArrayGetAt(Array, 7917), 3958.5);
    EXPECT_EQ(TW_DoubleArrayGetAt(Array, 7918), -1.0);
    EXPECT_EQ(TW_DoubleArrayGetArray(Array)[15837], 15837.0);
    TW_DoubleArrayDealloc(&Array);
    EXPECT_EQ(Array, nullptr);
    TW_DoubleArrayDealloc(&Array);
    TW_DoubleArrayDealloc(nullptr);
    EXPECT_TRUE(ui().errors().empty());
}

TEST_F(DoubleArrayTest, FailedGrowthKeepsWhatWasStored)
{
    TW_DoubleArray_s *Array = TW_DoubleArrayAlloc();
    ASSERT_NE(Array, nullptr);
    ASSERT_TRUE(TW_DoubleArrayFill(Array, 7918, 2.0));
    TW_AllocFailAt(1);
    EXPECT_FALSE(TW_DoubleArrayAdd(Array, 9.0));
    EXPECT_EQ(ui().errors(), OutOfMemory(1));
    EXPECT_EQ(TW_DoubleArrayGetSize(Array), 7918);
    EXPECT_EQ(TW_DoubleArrayGetAt(Array, 7917), 2.0);
    /* the next attempt grows and stores */
    EXPECT_TRUE(TW_DoubleArrayAdd(Array, 9.0));
    EXPECT_EQ(TW_DoubleArrayGetSize(Array), 7919);
    EXPECT_EQ(TW_DoubleArrayGetAt(Array, 7918), 9.0);

    /* a fill stops at the failing growth with the values before it */
    TW_DoubleArrayRemoveAll(Array);
    TW_AllocFailAt(1);
    EXPECT_FALSE(TW_DoubleArrayFill(Array, 10000, 4.0));
    EXPECT_EQ(TW_DoubleArrayGetSize(Array), 7918);
    EXPECT_EQ(ui().errors(), OutOfMemory(2));
    TW_DoubleArrayDealloc(&Array);
}

TEST_F(DoubleArrayTest, FillsAndEmpties)
{
    TW_DoubleArray_s *Array = TW_DoubleArrayAlloc();
    ASSERT_NE(Array, nullptr);
    EXPECT_TRUE(TW_DoubleArrayFill(Array, 0, 1.0));
    EXPECT_TRUE(TW_DoubleArrayFill(Array, -3, 1.0));
    EXPECT_EQ(TW_DoubleArrayGetSize(Array), 0);
    ASSERT_TRUE(TW_DoubleArrayAdd(Array, 7.0));
    ASSERT_TRUE(TW_DoubleArrayFill(Array, 19999, 2.5));
    EXPECT_EQ(TW_DoubleArrayGetSize(Array), 20000);
    EXPECT_EQ(TW_DoubleArrayGetAt(Array, 0), 7.0);
    EXPECT_EQ(TW_DoubleArrayGetAt(Array, 19999), 2.5);

    TW_DoubleArrayRemoveAll(Array);
    EXPECT_EQ(TW_DoubleArrayGetSize(Array), 0);
    TW_AllocFailAt(0);
    for (int I = 0; I < 7918; I++)
        ASSERT_TRUE(TW_DoubleArrayAdd(Array, I));
    EXPECT_EQ(TW_AllocCount(), 0);
    ASSERT_TRUE(TW_DoubleArrayAdd(Array, 0.0));
    EXPECT_EQ(TW_AllocCount(), 1);
    TW_DoubleArrayDealloc(&Array);
    EXPECT_TRUE(ui().errors().empty());
}

TEST_F(DoubleArrayTest, EveryAllocationFailureIsReportedOnceAndLeavesNothing)
{
    /* Alloc makes the record and its buffer; fail each in turn */
    for (long N = 1;; N++) {
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
        EXPECT_EQ(ui().errors(), OutOfMemory(1)) << "failing allocation " << N;
    }

    /* emptying without a fresh buffer releases the record itself (the
       sanitizer's leak check sees that nothing is left) */
    ui().clearTranscript();
    TW_DoubleArray_s *Array = TW_DoubleArrayAlloc();
    ASSERT_NE(Array, nullptr);
    ASSERT_TRUE(TW_DoubleArrayFill(Array, 100, 1.0));
    TW_AllocFailAt(1);
    TW_DoubleArrayRemoveAll(Array);
    EXPECT_EQ(ui().errors(), OutOfMemory(1));
}
