/*
 * Tests of Str_ScanForDouble: the accepted syntax, where the cursor ends,
 * and values equal to strtod's bit for bit over many generated texts.
 */
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "StringUtil.h"

using namespace corvane::cvnutildataio;

namespace {

uint64_t Bits(double D)
{
    uint64_t B;
    memcpy(&B, &D, sizeof B);
    return B;
}

} // namespace

TEST(DoubleScanTest, AcceptsWholeNumberTokensOnly)
{
    struct Row {
        const char *Text;
        bool Ok;
        double Value;
        const char *Rest;
    };
    const Row Rows[] = {
        {"1.5e10", true, 1.5e10, ""},
        {"-3", true, -3.0, ""},
        {".5", true, 0.5, ""},
        {"2.", true, 2.0, ""},
        {"1E+05", true, 1e5, ""},
        {"  \t12.5  next", true, 12.5, "  next"},
        {"+7\n", true, 7.0, "\n"},
        {"3\r", true, 3.0, "\r"},
        {"4\v", true, 4.0, "\v"},
        {"1e308", true, 1e308, ""},
        {"1e0308", true, 1e308, ""},
        {"2.5e-308", true, 2.5e-308, ""},
        {"6e-9 ", true, 6e-9, " "},
        /* as built: a D exponent passes the check but is not read */
        {"1.5D3", true, 1.5, ""},
        {"-2d-4", true, -2.0, ""},
        /* as built: a lone sign or point reads as 0 */
        {"-", true, 0.0, ""},
        {"+", true, 0.0, ""},
        {".", true, 0.0, ""},
        {"-.e5", true, 0.0, ""},
        {"1e", false, 0, "1e"},
        {"1e+", false, 0, "1e+"},
        {"1e999", false, 0, "1e999"},
        {"1e309", false, 0, "1e309"},
        {"1e-309", false, 0, "1e-309"},
        {"abc", false, 0, "abc"},
        {"  12abc", false, 0, "12abc"},
        {"1,5", false, 0, "1,5"},
        {"1.2.3", false, 0, "1.2.3"},
        {"--1", false, 0, "--1"},
        {"e5", false, 0, "e5"},
        {"", false, 0, ""},
        {"   ", false, 0, ""},
        {"0x10", false, 0, "0x10"},
        {"inf", false, 0, "inf"},
        {"nan", false, 0, "nan"},
    };
    for (const Row &R : Rows) {
        const char *Cursor = R.Text;
        double Value = -999.0;
        EXPECT_EQ(Str_ScanForDouble(&Cursor, &Value), R.Ok) << "[" << R.Text << "]";
        EXPECT_EQ(Value, R.Ok ? R.Value : -999.0) << "[" << R.Text << "]";
        EXPECT_STREQ(Cursor, R.Rest) << "[" << R.Text << "]";
    }

    const char *Cursor = "-0";
    double Value = 1.0;
    ASSERT_TRUE(Str_ScanForDouble(&Cursor, &Value));
    EXPECT_TRUE(std::signbit(Value));
    Cursor = "-";
    ASSERT_TRUE(Str_ScanForDouble(&Cursor, &Value));
    EXPECT_FALSE(std::signbit(Value));
}

/* Texts built from random parts of the accepted syntax, some of them with
   many digits, long zero runs or large exponents, must read exactly as
   strtod reads them. */
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

    int Checked = 0;
    for (int Round = 0; Round < 200000; Round++) {
        bool ZeroHeavy = Pick(4) == 0;
        std::string Text;
        switch (Pick(4)) {
        case 0: Text += '-'; break;
        case 1: Text += '+'; break;
        default: break;
        }
        int Shape = Pick(8);
        int IntDigits = Shape == 0 ? Pick(30) : Pick(10);
        int FracDigits = Shape == 1 ? Pick(30) : Pick(10);
        Text += Digits(IntDigits, ZeroHeavy);
        if (Pick(3) != 0)
            Text += '.';
        Text += Digits(FracDigits, ZeroHeavy);
        if (Text.find_first_of("0123456789") == std::string::npos)
            Text += Digits(1 + Pick(5), false);
        if (Pick(2) == 0) {
            Text += "eE"[Pick(2)];
            if (Pick(2) == 0)
                Text += "+-"[Pick(2)];
            int Exponent = Pick(4) == 0 ? Pick(309) : Pick(40);
            Text += std::to_string(Exponent);
        }

        const char *Cursor = Text.c_str();
        double Value = 0.0;
        ASSERT_TRUE(Str_ScanForDouble(&Cursor, &Value)) << Text;
        EXPECT_EQ(*Cursor, '\0') << Text;
        double Expected = strtod(Text.c_str(), nullptr);
        ASSERT_EQ(Bits(Value), Bits(Expected)) << Text;
        Checked++;
    }
    EXPECT_EQ(Checked, 200000);

    /* values that round at a tie, near the limits of the exact path, or
       below the normal range */
    const char *Edges[] = {"9007199254740993", "9007199254740992", "9007199254740993e-22",
                           "1e22",             "1e23",             "4503599627370497.5",
                           "0.1",              "1e-22",            "123456789012345678901234567890",
                           "0.0001e-308",      "2.2250738585072011e-308", "17976931348623157e292",
                           "1.7976931348623159e308", "0000000000000000000000000001.5"};
    for (const char *Edge : Edges) {
        const char *Cursor = Edge;
        double Value = 0.0;
        ASSERT_TRUE(Str_ScanForDouble(&Cursor, &Value)) << Edge;
        EXPECT_EQ(Bits(Value), Bits(strtod(Edge, nullptr))) << Edge;
    }
}
