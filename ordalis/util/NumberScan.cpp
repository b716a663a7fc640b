/*
 * NumberScan.cpp - the number scanners: Str_ScanForDouble decides what
 * counts as a number in a data file, Str_ScanForLgIndex reads integers of
 * instruction text and number lists; plus the cursor movers.
 *
 * Str_ScanForDouble runs once per value of every data file. It checks the
 * syntax and gathers the decimal digits in one pass; when the digits form an
 * exact double and the power of ten is small, the value is one correctly
 * rounded multiplication or division, which is what strtod returns. Other
 * texts go to strtod itself. Where the caller says how far the text may be
 * read, a run of digits starts with eight at a time.
 */
#include <bit>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "NumberScan.h"

namespace corvane::cvnutildataio {

namespace {

/* isspace of the C locale as a table. */
constexpr bool IsSpaceTable(unsigned char C)
{
    return C == ' ' || C == '\t' || C == '\n' || C == '\v' || C == '\f' || C == '\r';
}

struct SpaceTable {
    bool Is[256];
};

constexpr SpaceTable MakeSpaceTable()
{
    SpaceTable T{};
    for (int C = 0; C < 256; C++)
        T.Is[C] = IsSpaceTable(static_cast<unsigned char>(C));
    return T;
}

constexpr SpaceTable Space = MakeSpaceTable();

/* Exact powers of ten as doubles (10^22 is the largest exact one). */
constexpr double Pow10Double[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                  1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                  1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

constexpr long MaxMantissaDigits = 19;            /* always fits in 64 bits */
constexpr uint64_t MaxExactMantissa = 1ULL << 53; /* doubles hold it exactly */
constexpr int MaxExponentValue = 308;

inline bool IsDigit(unsigned char C)
{
    return static_cast<unsigned char>(C - '0') < 10;
}

/* True when the eight characters of Word (in memory order) are all digits:
   each byte is 0x30 to 0x39, tested on all eight at once without a carry
   crossing from one byte into the next. */
inline bool AreEightDigits(uint64_t Word)
{
    return ((Word & 0xF0F0F0F0F0F0F0F0ULL) |
            (((Word + 0x0606060606060606ULL) & 0xF0F0F0F0F0F0F0F0ULL) >> 4)) ==
           0x3333333333333333ULL;
}

/* The number the eight digits of Word spell (the first in the lowest byte):
   neighbouring digits, then pairs, then fours are combined by multiplying. */
inline uint64_t EightDigitsValue(uint64_t Word)
{
    Word -= 0x3030303030303030ULL;
    Word = Word * 10 + (Word >> 8);
    Word = (((Word & 0x000000FF000000FFULL) * 0x000F424000000064ULL) +
            (((Word >> 16) & 0x000000FF000000FFULL) * 0x0000271000000001ULL)) >>
           32;
    return static_cast<uint32_t>(Word);
}

/* Appends the digits at P to *Mantissa (wrapping past 19 digits, which the
   caller checks) and returns the first non-digit. With Eight, and eight
   characters before Readable left to read, a run of eight digits is taken
   in one step first: the long fractions of measured values hold most of a
   data file's digits. Integer parts are short, and the test would only
   cost them time. */
template <bool Eight>
inline const unsigned char *AccumulateDigits(const unsigned char *P, const unsigned char *Readable,
                                             uint64_t *Mantissa)
{
    uint64_t M = *Mantissa;
    if constexpr (Eight && std::endian::native == std::endian::little) {
        uint64_t Word;
        if (Readable - P >= 8 && (std::memcpy(&Word, P, sizeof Word), AreEightDigits(Word))) {
            M = M * 100000000 + EightDigitsValue(Word);
            P += 8;
        }
    }
    for (;; P++) {
        unsigned Digit = static_cast<unsigned>(*P) - '0';
        if (Digit > 9)
            break;
        M = M * 10 + Digit;
    }
    *Mantissa = M;
    return P;
}

} // namespace

namespace {

/* The number syntax and conversion behind both scanners. The token runs
   from P to the first character IsEnd accepts; spaces and tabs at its start
   are skipped. Characters before Readable may be read ahead (P when
   nothing beyond the string's NUL is known). On success *Stop is the end of
   the number, on failure the token's start past the blanks. */
template <typename EndTest>
bool ScanNumber(const unsigned char *P, EndTest IsEnd, const unsigned char *Readable,
                double *Value, const unsigned char **Stop)
{
    while ((*P == ' ' || *P == '\t') && !IsEnd(*P))
        P++;
    *Stop = P;
    const unsigned char *Start = P;

    /* Without a branch: signs of measured values are as good as random,
       and a mispredicted branch here costs more than the whole value. */
    bool Negative = *P == '-';
    P += Negative | (*P == '+');

    /* All digits go into Mantissa; with 19 digits or fewer it is exact (a
       longer one may wrap, and such values go to strtod below). Integer and
       fraction digits have loops of their own: this runs for every value of
       a data file. */
    uint64_t Mantissa = 0;
    const unsigned char *Digits = P;
    P = AccumulateDigits<false>(P, Readable, &Mantissa);
    long DigitCount = P - Digits;
    long FractionDigits = 0;
    if (*P == '.') {
        P++;
        Digits = P;
        P = AccumulateDigits<true>(P, Readable, &Mantissa);
        FractionDigits = P - Digits;
        DigitCount += FractionDigits;
    }
    if (P == Start)
        return false;

    int Exponent = 0;
    bool ExponentRead = false; /* an E exponent: strtod understands it */
    if (*P == 'E' || *P == 'e' || *P == 'D' || *P == 'd') {
        ExponentRead = *P == 'E' || *P == 'e';
        P++;
        bool ExponentNegative = false;
        if (*P == '+' || *P == '-') {
            ExponentNegative = *P == '-';
            P++;
        }
        if (!IsDigit(*P))
            return false;
        int Digits = 0;
        while (IsDigit(*P)) {
            if (Exponent <= MaxExponentValue)
                Exponent = Exponent * 10 + (*P - '0');
            Digits++;
            P++;
        }
        if (Digits >= 2 && Exponent > MaxExponentValue)
            return false;
        if (ExponentNegative)
            Exponent = -Exponent;
    }
    if (!IsEnd(*P) && !Space.Is[*P])
        return false;

    if (DigitCount == 0) {
        *Value = 0.0;
    } else if (DigitCount > MaxMantissaDigits) {
        *Value = strtod(reinterpret_cast<const char *>(Start), nullptr);
    } else if (Mantissa == 0) {
        *Value = Negative ? -0.0 : 0.0;
    } else {
        long Power = (ExponentRead ? Exponent : 0) - FractionDigits;
        if (Mantissa <= MaxExactMantissa && Power >= -22 && Power <= 22) {
            double Magnitude = static_cast<double>(Mantissa);
            Magnitude = Power >= 0 ? Magnitude * Pow10Double[Power] : Magnitude / Pow10Double[-Power];
            *Value = Negative ? -Magnitude : Magnitude;
        } else {
            *Value = strtod(reinterpret_cast<const char *>(Start), nullptr);
        }
    }
    *Stop = P;
    return true;
}


} // namespace

/* True when a whole number token starts at *Cursor (after spaces and tabs):
   [sign] digits [. digits] [(E|e|D|d) [sign] digits], followed by the end of
   the string or white space. Exponents of two or more digits above 308 are
   refused whatever their sign. *Value is what strtod reads from the token:
   a D exponent is not part of it and a lone sign or point reads as 0.
   On success the cursor ends after the token; on failure it is left at the
   token's start (past the skipped blanks) and *Value is untouched. */
bool Str_ScanForDouble(const char **Cursor, double *Value)
{
    const unsigned char *Start = reinterpret_cast<const unsigned char *>(*Cursor);
    const unsigned char *Stop;
    bool Found = ScanNumber(
        Start, [](unsigned char C) { return C == 0; }, Start, Value, &Stop);
    *Cursor = reinterpret_cast<const char *>(Stop);
    return Found;
}

/* Str_ScanForDouble of the token that starts at *Cursor and ends at the
   first character Delim marks, or at the end of the string, without cutting
   the line there. The cursor moves as Str_ScanForDouble moves it. The data
   scan reads every value through this. LineEnd is where the string's NUL
   stands: the scanner may read up to it. */
bool TW_ScanTokenForDouble(const char **Cursor, const bool *Delim, const char *LineEnd,
                           double *Value)
{
    const unsigned char *Stop;
    bool Found = ScanNumber(
        reinterpret_cast<const unsigned char *>(*Cursor),
        [Delim](unsigned char C) { return C == 0 || Delim[C]; },
        reinterpret_cast<const unsigned char *>(LineEnd) + 1, Value, &Stop);
    *Cursor = reinterpret_cast<const char *>(Stop);
    return Found;
}

/* True when an integer follows: spaces and tabs, an optional '-' (not '+'),
   then 1 to 10 digits. More than 10 digits are refused rather than
   overflowing. The cursor ends after the digits (after the sign when no
   digit follows); *Value is set only on success. */
bool Str_ScanForLgIndex(const char **Cursor, LgIndex_t *Value)
{
    const char *P = *Cursor;
    while (*P == ' ' || *P == '\t')
        P++;
    bool Negative = false;
    if (*P == '-') {
        Negative = true;
        P++;
    }
    *Cursor = P;
    if (!IsDigit(static_cast<unsigned char>(*P)))
        return false;
    double Accumulated = 0.0;
    int Digits = 0;
    while (IsDigit(static_cast<unsigned char>(*P))) {
        if (Digits == 10) {
            *Cursor = P;
            return false;
        }
        Accumulated = Accumulated * 10.0 + (*P - '0');
        Digits++;
        P++;
    }
    *Cursor = P;
    LgIndex_t Result = static_cast<LgIndex_t>(Accumulated + 0.001);
    *Value = Negative ? -Result : Result;
    return true;
}

/* Moves the cursor over spaces and tabs. */
void Str_RemoveWhiteSpace(const char **Cursor)
{
    const char *P = *Cursor;
    while (*P == ' ' || *P == '\t')
        P++;
    *Cursor = P;
}

/* Moves the cursor past the next line feed, or to the end of the string. */
void Str_RemoveThroughEndOfLine(const char **Cursor)
{
    const char *P = *Cursor;
    while (*P && *P != '\n')
        P++;
    if (*P == '\n')
        P++;
    *Cursor = P;
}

} // namespace corvane::cvnutildataio
