/* Tests of the growable double array: growth step, filling, emptying, failures. */
#include "DoubleArray.h"
#include "HostFixture.h"
#include "TW_Alloc.h"

using namespace corvane::cvnutildataio;
using DoubleArrayTest = HostTest;

TEST_F(DoubleArrayTest, GrowsByOneStepRightAfterEachMultipleOfTheStep)
{
    TW_DoubleArray_s *Array = TW_DoubleArrayAlloc();
    for (int Round = 0; Round < 2; Round++) { /* a new array, then an emptied one */
        TW_AllocFailAt(0);                   /* counts allocations from here */
        ASSERT_TRUE(TW_DoubleArrayFill(Array, 7918, 0.5));
        ASSERT_TRUE(TW_DoubleArrayAdd(Array, -1.0));
        ASSERT_TRUE(TW_DoubleArrayFill(Array, 7918, 2.0)); /* room for 15838 */
        EXPECT_EQ(TW_AllocCount(), 1);
        ASSERT_TRUE(TW_DoubleArrayAdd(Array, 3.0));
        ASSERT_TRUE(TW_DoubleArrayFill(Array, 4162, 4.0));
        EXPECT_EQ(TW_AllocCount(), 2);
        const double *V = TW_DoubleArrayGetArray(Array);
        EXPECT_EQ(std::vector<double>({V[7917], V[7918], V[15837], V[19999]}),
                  std::vector<double>({0.5, -1.0, 3.0, 4.0}));
        EXPECT_EQ(TW_DoubleArrayGetSize(Array), 20000);
        TW_DoubleArrayRemoveAll(Array);
    }
    TW_DoubleArrayDealloc(&Array);
    EXPECT_EQ(Array, nullptr);
}

TEST_F(DoubleArrayTest, EveryAllocationFailureIsReportedOnceAndLeavesNothing)
{
    for (long N = 1; N <= 2; N++) { /* the record, then its buffer */
        TW_AllocFailAt(N);
        EXPECT_EQ(TW_DoubleArrayAlloc(), nullptr);
    }
    TW_DoubleArray_s *Array = TW_DoubleArrayAlloc();
    ASSERT_TRUE(TW_DoubleArrayFill(Array, 7918, 2.0));
    TW_AllocFailAt(1); /* a failed growth */
    EXPECT_FALSE(TW_DoubleArrayAdd(Array, 9.0));
    TW_DoubleArrayRemoveAll(Array);
    TW_AllocFailAt(1); /* a fill keeps the values before its failed growth */
    EXPECT_FALSE(TW_DoubleArrayFill(Array, 10000, 4.0));
    EXPECT_EQ(TW_DoubleArrayGetSize(Array), 7918);
    TW_AllocFailAt(1); /* emptying without a fresh buffer releases the record */
    TW_DoubleArrayRemoveAll(Array);
    EXPECT_EQ(ui().errors(), std::vector<std::string>(5, "Out of memory"));
}
