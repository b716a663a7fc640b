/*
 * LoaderNumber.h - what the loader takes for a number, worked out on the
 * host: [sign] digits [. digits] [(E|e|D|d) [sign] digits], ending at the
 * end of the text or at white space. The value is the one the loader
 * stores: a D exponent is not read (1.5D3 is 1.5) and a lone sign or point
 * is 0. Also what a number-like text means when the loader reads it
 * otherwise (a D exponent, a decimal comma).
 */
#ifndef CORVANE_INSPECT_LOADERNUMBER_H
#define CORVANE_INSPECT_LOADERNUMBER_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace corvane::inspect {

struct NumberScan {
    bool accepted = false;
    double value = 0;     /* the value the loader stores */
    size_t start = 0;     /* where the number starts, past blanks and tabs */
    size_t end = 0;       /* just past the number */
    bool dExponent = false; /* written with a D exponent, which is not read */
    bool noDigits = false;  /* a lone sign or point, read as 0 */
};

/* The loader's number scan of text, from its start. */
NumberScan scanLoaderNumber(std::string_view text);

/* The value the loader reads when text (without blanks) is one whole
   number, or nothing. */
std::optional<double> readLoaderNumber(std::string_view text);

/* The value the text means when it is a number the loader reads otherwise
   or not at all: 1.5D-03 (0.0015), 0,914 (0.914). Nothing for any other
   text. */
std::optional<double> meantNumber(std::string_view text);

/* True for text written as a number with a decimal comma: [sign] digits ,
   digits (one comma). */
bool isDecimalCommaNumber(std::string_view text);

/* The shortest text that reads back to value (1, 0.1, 1e+20, -999). */
std::string numberText(double value);

} // namespace corvane::inspect

#endif
