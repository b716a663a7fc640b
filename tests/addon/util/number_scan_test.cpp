/*
 * Tests of Str_ScanForDouble: the accepted syntax, where the cursor ends,
 * and values equal to strtod's bit for bit over many generated texts.
 */
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "StringUtil.h"

using namespace corvane::cvnutildataio;

static std::string Bits(double D)
{
    uint64_t B;
    memcpy(&B, &D, sizeof B);
    return std::to_string(B);
}

/* The scanned value's bits, or "reject"; *Rest is where the cursor ends. */
static std::string ScanBits(const char *Text, const char **Rest = nullptr)
{
    const char *Cursor = Text;
    double Value = 0.0;
    bool Ok = Str_ScanForDouble(&Cursor, &Value);
    if (Rest)
        *Rest = Cursor;
    return Ok ? Bits(Value) : "reject";
}

TEST(DoubleScanTest, AcceptsWholeNumberTokensOnly)
{
    struct {
        const char *Text;
        double Value;
        const char *Rest;
    } Accepted[] = {
        {"1.5e10", 1.5e10, ""}, {"-3", -3.0, ""}, {".5", 0.5, ""}, {"2.", 2.0, ""},
        {"1E+05", 1e5, ""}, {" \t12.5  x", 12.5, "  x"}, {"4\v", 4.0, "\v"}, {"1e0308", 1e308, ""},
        {"-0", -0.0, ""}, {"1.5D3", 1.5, ""}, {"-2d-4", -2.0, ""}, /* D exponents are not read */
        {"-", 0.0, ""}, {".", 0.0, ""}, {"-.e5", 0.0, ""},        /* lone sign or point: 0 */
    };
    for (const auto &R : Accepted) {
        const char *Rest = nullptr;
        EXPECT_EQ(ScanBits(R.Text, &Rest), Bits(R.Value)) << "[" << R.Text << "]";
        EXPECT_STREQ(Rest, R.Rest) << "[" << R.Text << "]";
    }
    for (const char *Text : {"1e", "1e+", "1e999", "1e-309", "abc", "  12abc", "1,5", "1.2.3",
                             "--1", "e5", "   ", "0x10", "inf"}) {
        const char *Rest = nullptr;
        EXPECT_EQ(ScanBits(Text, &Rest), "reject") << "[" << Text << "]";
        EXPECT_STREQ(Rest, Text + strspn(Text, " \t")) << "[" << Text << "]";
    }
}

/* Texts built from random parts of the syntax, some with many digits, long
   zero runs or large exponents, read exactly as strtod reads them; so do
   values at the edges of the exact path and of the range. */
TEST(DoubleScanTest, EqualsStrtodBitForBitOnGeneratedTexts)
{
    std::mt19937_64 Random(20240611);
    auto Pick = [&](int N) { return static_cast<int>(Random() % static_cast<uint64_t>(N)); };
    auto Digits = [&](int Count, bool ZeroHeavy) {
        std::string S;
        for (int I = 0; I < Count; I++)
            S += static_cast<char>('0' + (ZeroHeavy && Pick(3) != 0 ? 0 : Pick(10)));
        return S;
    };
    for (int Round = 0; Round < 200000; Round++) {
        bool ZeroHeavy = Pick(4) == 0;
        int Shape = Pick(8);
        std::string Text = Pick(2) ? "" : Pick(2) ? "-" : "+";
        Text += Digits(Shape == 0 ? Pick(30) : Pick(10), ZeroHeavy);
        Text += Pick(3) ? "." : "";
        Text += Digits(Shape == 1 ? Pick(30) : Pick(10), ZeroHeavy);
        if (Text.find_first_of("0123456789") == std::string::npos)
            Text += Digits(1 + Pick(5), false);
        if (Pick(2) == 0)
            Text += std::string(Pick(2) ? "e" : "E") + (Pick(2) ? "" : Pick(2) ? "+" : "-") +
                    std::to_string(Pick(4) == 0 ? Pick(309) : Pick(40));
        ASSERT_EQ(ScanBits(Text.c_str()), Bits(strtod(Text.c_str(), nullptr))) << Text;
    }
    for (const char *Edge : {"9007199254740993", "9007199254740993e-22", "1e23",
                             "4503599627370497.5", "123456789012345678901234567890", "0.0001e-308",
                             "1.7976931348623159e308"})
        EXPECT_EQ(ScanBits(Edge), Bits(strtod(Edge, nullptr))) << Edge;
}
