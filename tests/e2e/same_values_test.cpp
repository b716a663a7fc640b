// The values a load hands to the host, bit for bit: every number form the
// scanner accepts, laid out as data files are, must arrive as the double
// strtod reads from its token; and the real files must load to the values
// they loaded to when these digests were taken. The fast paths of the scan
// and the transfer are checked against both.
#include <bit>
#include <cstdint>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "CorvaneRun.h"
#include "DataModel.h"

using namespace testfiles;

namespace {

/* Number texts of every accepted form: signs or none, digits before and
   after a point or on one side only, E/e/D/d exponents with and without
   signs (a D exponent is not read), long mantissas past the exact range,
   exponents out to 308, lone signs and points, and printf's own forms. */
std::vector<std::string> numberTexts(size_t count)
{
    std::mt19937_64 random(20261123);
    auto pick = [&](int n) { return static_cast<int>(random() % static_cast<uint64_t>(n)); };
    auto digits = [&] {
        std::string s;
        bool zeros = pick(4) == 0;
        for (int i = pick(8) == 0 ? pick(28) : pick(11); i > 0; i--)
            s += static_cast<char>('0' + (zeros && pick(3) != 0 ? 0 : pick(10)));
        return s;
    };
    std::vector<std::string> texts = {"-", "+", ".", "-.", "+.e5", "-0", "0.0", "-0e3",
                                      "1.5D3", "-2d-4", "7D+1", "1e0308", "9007199254740993",
                                      "4503599627370497.5", "1.7976931348623159e308",
                                      "2.2250738585072011e-308", "2e-308",
                                      "0.0000000000000000000049e-300"};
    const char *formats[] = {"%.17g", "%.6e", "%.10e", "%.6f", "%.3f", "%g", "%.0f", "%E"};
    while (texts.size() < count) {
        if (pick(3) == 0) {
            double value = std::ldexp(static_cast<double>(random() >> 11) / 9007199254740992.0,
                                      pick(120) - 60) *
                           (pick(2) ? -1 : 1);
            char text[64];
            std::snprintf(text, sizeof(text), formats[pick(8)], value);
            texts.emplace_back(text);
            continue;
        }
        std::string text = pick(2) ? "" : pick(2) ? "-" : "+";
        text += digits() + (pick(3) ? "." : "") + digits();
        if (text.find_first_of("0123456789") == std::string::npos)
            text += std::to_string(pick(100));
        if (pick(2) == 0) {
            text += "eEdD"[pick(4)];
            text += pick(2) ? "" : pick(2) ? "+" : "-";
            text += std::to_string(pick(4) == 0 ? pick(309) : pick(40));
        }
        texts.push_back(text);
    }
    return texts;
}

constexpr size_t Columns = 8;

/* The texts in rows of Columns under a line of names, joined as the
   delimiter kind writes them: runs of blanks and tabs, or commas with
   blanks beside some of them. */
std::string dataFile(const std::vector<std::string> &texts, bool comma)
{
    std::mt19937 random(7);
    std::string file = comma ? "a,b,c,d,e,f,g,h\n" : "a b c d e f g h\n";
    for (size_t i = 0; i < texts.size(); i++) {
        if (i % Columns != 0) {
            if (comma)
                file += random() % 4 == 0 ? " , " : ",";
            else
                file += std::string(1 + random() % 3, random() % 5 == 0 ? '\t' : ' ');
        } else if (!comma && random() % 3 == 0) {
            file += "   "; /* right-aligned columns start with blanks */
        }
        file += texts[i];
        if (i % Columns == Columns - 1)
            file += random() % 5 == 0 ? "\r\n" : "\n";
    }
    return file;
}

std::string instructions(bool comma)
{
    const char *delimiter = comma ? "COMMA" : "AUTO";
    return std::string("VARIABLES { SEARCH = LINE STARTLINE = 1 ENDLINE = 1 DELIMITER = ") +
           delimiter + " } DATA { IMPORT { STARTID = LINE { LINE = 2 } ENDID = EOF { LINE = 1 } DELIMITER = " +
           delimiter + " } }";
}

/* 64-bit FNV-1a over the bits of every value of the last data set, zone by
   zone and variable by variable. */
uint64_t valueDigest()
{
    uint64_t hash = 14695981039346656037ULL;
    for (const corvane::host::Zone &zone : corvane::host::dataSets().back().zones)
        for (const corvane::host::Field &field : zone.fields)
            for (size_t i = 0; i < field.size(); i++) {
                uint64_t bits = std::bit_cast<uint64_t>(field.get(i));
                for (int byte = 0; byte < 8; byte++, bits >>= 8)
                    hash = (hash ^ (bits & 0xFF)) * 1099511628211ULL;
            }
    return hash;
}

} // namespace

TEST(SameValues, EveryNumberFormArrivesAsStrtodReadsItsToken)
{
    const std::vector<std::string> texts = numberTexts(Columns * 20000);
    for (bool comma : {false, true}) {
        SCOPED_TRACE(comma ? "comma" : "blanks");
        corvane::host::clearDataSets();
        ScratchDir scratch;
        writeFile(scratch / "forms.txt", dataFile(texts, comma));
        Result run = runInProcess(
            {"load", (scratch / "forms.txt").string(), "--instructions", instructions(comma), "-q"});
        ASSERT_EQ(run.status, 0) << run.err;
        EXPECT_EQ(run.err, "");
        ASSERT_EQ(corvane::host::dataSets().size(), 1u);
        const corvane::host::Zone &zone = corvane::host::dataSets().back().zones.at(0);
        ASSERT_EQ(zone.fields.size(), Columns);
        ASSERT_EQ(zone.fields[0].size(), texts.size() / Columns);
        for (size_t i = 0; i < texts.size(); i++) {
            double loaded = zone.fields[i % Columns].get(i / Columns);
            double expected = std::strtod(texts[i].c_str(), nullptr);
            ASSERT_EQ(std::bit_cast<uint64_t>(loaded), std::bit_cast<uint64_t>(expected))
                << texts[i] << " loaded as " << loaded;
        }
    }
    corvane::host::clearDataSets();
}

TEST(SameValues, RealFilesLoadToTheirRecordedValues)
{
    const struct {
        const char *file, *set;
        uint64_t digest;
    } cases[] = {
        {"nist_nelson_crlf.dat", "nist_nelson.twc", 3055738090018763541ULL},
        {"airfoil_naca23012_selig.dat", "naca23012.twc", 11503125933765778515ULL},
        {"xfoil_polar_naca4412_re500k.txt", "xfoil_polar.twc", 18327342891882197566ULL},
        {"nasa_gistemp_global_means.csv", "gistemp.twc", 5551725046773673248ULL},
        {"noaa_co2_mm_mlo_2018.txt", "co2_mlo.twc", 1978357680804750599ULL},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.file);
        corvane::host::clearDataSets();
        Result run = runInProcess({"load", (realDataDir / c.file).string(), "--set",
                                   (examplesDir / "realdata" / c.set).string(), "-q"});
        ASSERT_EQ(run.status, 0) << run.err;
        EXPECT_EQ(valueDigest(), c.digest);
    }
    corvane::host::clearDataSets();
}
