/*
 * SniffFields.h - a line cut into fields by a candidate separator, and what
 * each field is to the loader: a number it reads, a number it reads wrong
 * (a D exponent, a lone sign, a cell with an inner blank), a number it
 * cannot read (a decimal comma, numbers that touch), something else it cannot read (text, NaN,
 * ---, quotes), or an empty cell.
 */
#ifndef CORVANE_INSPECT_SNIFFFIELDS_H
#define CORVANE_INSPECT_SNIFFFIELDS_H

#include <string>
#include <string_view>
#include <vector>

namespace corvane::inspect {

/* Blanks: runs of blanks and tabs (no empty fields); the others cut at
   every occurrence, so that empty cells survive. */
enum class Separator { tab, semicolon, comma, blanks };

enum class FieldKind {
    empty,
    number,
    dExponent,
    loneSign,
    innerBlank,
    decimalComma,
    touching, /* numbers written together, as in 4.0-0.5 */
    unreadable
};

struct Field {
    std::string text; /* trimmed of blanks and tabs */
    size_t offset = 0; /* where the field's text starts in the line */
    FieldKind kind = FieldKind::empty;
};

std::vector<Field> splitFields(std::string_view line, Separator separator);
FieldKind fieldKind(std::string_view text);

/* A number the file means (read right, wrong or not at all by the loader). */
bool meansNumber(FieldKind kind);
/* A value the loader reads, right or wrong. */
bool loaderReads(FieldKind kind);

/* How well a separator cuts a line: numbers minus fields that are neither
   numbers nor empty; a line looks like data when it holds a number and no
   more other fields than numbers. */
struct LineFit {
    int numbers = 0;
    int others = 0;
    bool dataLike() const { return numbers >= 1 && numbers >= others; }
    int score() const { return numbers - others; }
};
LineFit lineFit(const std::vector<Field> &fields);

} // namespace corvane::inspect

#endif
