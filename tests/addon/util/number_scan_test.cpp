/* Tests of Str_ScanForDouble: the accepted syntax, where the cursor ends,
   and values equal to strtod's bit for bit over many generated texts. */
#include <bit>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "NumberScan.h"

using namespace corvane::cvnutildataio;

static std::string Bits(double D) { return std::to_string(std::bit_cast<uint64_t>(D)); }

/* The scanned value's bits, or "reject", and where the cursor ends. */
static std::string Scan(const char *Text)
{
    double Value = 0.0;
    bool Ok = Str_ScanForDouble(&Text, &Value);
    return (Ok ? Bits(Value) : "reject") + " [" + Text + "]";
}

TEST(DoubleScanTest, AcceptsWholeNumberTokensOnly)
{
    /* No D exponents; a lone sign or point reads as 0. */
    const std::pair<const char *, double> Accepted[] = {
        {"1.5e10", 1.5e10}, {"-3", -3.0}, {".5", 0.5}, {"2.", 2.0}, {"1E+05", 1e5}, {"-0", -0.0},
        {"1e0308", 1e308}, {"1.5D3", 1.5}, {"-2d-4", -2.0}, {"-", 0.0}, {".", 0.0}, {"-.e5", 0.0}};
    for (const auto &[Text, Value] : Accepted)
        EXPECT_EQ(Scan(Text), Bits(Value) + " []") << Text;
    EXPECT_EQ(Scan(" \t12.5  x"), Bits(12.5) + " [  x]");
    for (const char *Text : {"1e", "1e+", "1e999", "1e-309", "abc", "  12abc", "1,5", "1.2.3",
                             "--1", "e5", "   ", "0x10", "inf"})
        EXPECT_EQ(Scan(Text), "reject [" + std::string(Text + strspn(Text, " \t")) + "]");
}

/* Values at the edges of the exact path and of the range, and texts built from
   random parts of the syntax (many digits, zero runs, large exponents). */
TEST(DoubleScanTest, EqualsStrtodBitForBitOnGeneratedTexts)
{
    std::mt19937_64 Random(20240611);
    auto Pick = [&](int N) { return static_cast<int>(Random() % static_cast<uint64_t>(N)); };
    auto Digits = [&](bool ZeroHeavy) {
        std::string S;
        for (int I = Pick(8) == 0 ? Pick(30) : Pick(10); I > 0; I--)
            S += static_cast<char>('0' + (ZeroHeavy && Pick(3) != 0 ? 0 : Pick(10)));
        return S;
    };
    std::vector<std::string> Texts = {"9007199254740993", "9007199254740993e-22", "1e23",
                                      "4503599627370497.5", "1.7976931348623159e308"};
    for (int Round = 0; Round < 200000; Round++) {
        bool ZeroHeavy = Pick(4) == 0;
        std::string Text = Pick(2) ? "" : Pick(2) ? "-" : "+";
        Text += Digits(ZeroHeavy) + (Pick(3) ? "." : "") + Digits(ZeroHeavy);
        if (Text.find_first_of("0123456789") == std::string::npos)
            Text += std::to_string(Pick(100));
        if (Pick(2) == 0)
            Text += std::string(Pick(2) ? "e" : "E") + (Pick(2) ? "" : Pick(2) ? "+" : "-") +
                    std::to_string(Pick(4) == 0 ? Pick(309) : Pick(40));
        Texts.push_back(Text);
    }
    for (const std::string &Text : Texts)
        ASSERT_EQ(Scan(Text.c_str()), Bits(strtod(Text.c_str(), nullptr)) + " []") << Text;
}
