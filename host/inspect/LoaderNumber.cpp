/*
 * LoaderNumber.cpp - the loader's number syntax on the host.
 */
#include "LoaderNumber.h"

#include <cctype>
#include <charconv>
#include <cmath>

#include <fmt/format.h>

namespace corvane::inspect {
namespace {

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool isSpace(char c)
{
    return std::isspace(static_cast<unsigned char>(c)) != 0;
}

/* The decimal number without sign at text, as strtod reads its longest
   prefix. */
double magnitude(std::string_view text)
{
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

} // namespace

NumberScan scanLoaderNumber(std::string_view text)
{
    NumberScan scan;
    size_t p = 0;
    while (p < text.size() && (text[p] == ' ' || text[p] == '\t'))
        ++p;
    scan.start = p;
    scan.end = p;
    bool negative = false;
    if (p < text.size() && (text[p] == '+' || text[p] == '-')) {
        negative = text[p] == '-';
        ++p;
    }
    size_t body = p;
    size_t digits = 0;
    while (p < text.size() && isDigit(text[p]))
        ++p, ++digits;
    if (p < text.size() && text[p] == '.') {
        ++p;
        while (p < text.size() && isDigit(text[p]))
            ++p, ++digits;
    }
    if (p == scan.start)
        return scan;
    size_t mantissaEnd = p;
    if (p < text.size() && (text[p] == 'E' || text[p] == 'e' || text[p] == 'D' || text[p] == 'd')) {
        scan.dExponent = text[p] == 'D' || text[p] == 'd';
        ++p;
        if (p < text.size() && (text[p] == '+' || text[p] == '-'))
            ++p;
        size_t first = p;
        int exponent = 0;
        while (p < text.size() && isDigit(text[p])) {
            if (exponent <= 308)
                exponent = exponent * 10 + (text[p] - '0');
            ++p;
        }
        if (p == first || (p - first >= 2 && exponent > 308))
            return scan;
    }
    if (p < text.size() && !isSpace(text[p]) && text[p] != '\0')
        return scan;
    scan.accepted = true;
    scan.noDigits = digits == 0;
    scan.end = p;
    std::string_view read = text.substr(body, (scan.dExponent ? mantissaEnd : p) - body);
    double value = digits == 0 ? 0.0 : magnitude(read);
    scan.value = negative ? -value : value;
    return scan;
}

std::optional<double> readLoaderNumber(std::string_view text)
{
    NumberScan scan = scanLoaderNumber(text);
    if (!scan.accepted || scan.end != text.size() || scan.start != 0)
        return std::nullopt;
    return scan.value;
}

bool isDecimalCommaNumber(std::string_view text)
{
    size_t p = 0;
    if (p < text.size() && (text[p] == '+' || text[p] == '-'))
        ++p;
    size_t before = p;
    while (p < text.size() && isDigit(text[p]))
        ++p;
    if (p == before || p == text.size() || text[p] != ',')
        return false;
    size_t after = ++p;
    while (p < text.size() && isDigit(text[p]))
        ++p;
    return p == text.size() && p > after;
}

std::optional<double> meantNumber(std::string_view text)
{
    std::string copy(text);
    if (isDecimalCommaNumber(text)) {
        copy[copy.find(',')] = '.';
    } else {
        NumberScan scan = scanLoaderNumber(text);
        if (!scan.accepted || !scan.dExponent || scan.start != 0 || scan.end != text.size())
            return std::nullopt;
        for (char &c : copy)
            if (c == 'D' || c == 'd')
                c = 'E';
    }
    bool negative = !copy.empty() && copy[0] == '-';
    size_t body = !copy.empty() && (copy[0] == '-' || copy[0] == '+') ? 1 : 0;
    double value = magnitude(std::string_view(copy).substr(body));
    return negative ? -value : value;
}

std::string numberText(double value)
{
    if (value == 0)
        return std::signbit(value) ? "-0" : "0";
    return fmt::format("{}", value);
}

} // namespace corvane::inspect
