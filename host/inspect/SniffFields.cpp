/*
 * SniffFields.cpp - fields of a line and their kinds.
 */
#include "SniffFields.h"

#include "LoaderNumber.h"

namespace corvane::inspect {
namespace {

std::string_view trim(std::string_view text, size_t &offset)
{
    size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos)
        return {};
    size_t last = text.find_last_not_of(" \t");
    offset += first;
    return text.substr(first, last - first + 1);
}

/* Two or more numbers written together: cut before each sign that follows
   a digit or point, every piece is a number. */
bool touching(std::string_view text)
{
    size_t pieces = 0, start = 0;
    for (size_t i = 1; i <= text.size(); ++i) {
        bool cut = i == text.size() ||
                   ((text[i] == '-' || text[i] == '+') &&
                    ((text[i - 1] >= '0' && text[i - 1] <= '9') || text[i - 1] == '.'));
        if (!cut)
            continue;
        if (!readLoaderNumber(text.substr(start, i - start)))
            return false;
        ++pieces;
        start = i;
    }
    return pieces > 1;
}

} // namespace

FieldKind fieldKind(std::string_view text)
{
    if (text.empty())
        return FieldKind::empty;
    NumberScan scan = scanLoaderNumber(text);
    if (scan.accepted) {
        if (scan.end < text.size())
            return FieldKind::innerBlank;
        if (scan.dExponent)
            return FieldKind::dExponent;
        if (scan.noDigits)
            return FieldKind::loneSign;
        return FieldKind::number;
    }
    if (isDecimalCommaNumber(text))
        return FieldKind::decimalComma;
    return touching(text) ? FieldKind::touching : FieldKind::unreadable;
}

std::vector<Field> splitFields(std::string_view line, Separator separator)
{
    std::vector<Field> fields;
    if (separator == Separator::blanks) {
        size_t at = 0;
        while ((at = line.find_first_not_of(" \t", at)) != std::string_view::npos) {
            size_t end = line.find_first_of(" \t", at);
            std::string_view text = line.substr(at, end == std::string_view::npos ? line.npos
                                                                                 : end - at);
            fields.push_back({std::string(text), at, fieldKind(text)});
            at = end;
        }
        return fields;
    }
    char cut = separator == Separator::tab ? '\t' : separator == Separator::semicolon ? ';' : ',';
    size_t at = 0;
    for (;;) {
        size_t end = line.find(cut, at);
        size_t offset = at;
        std::string_view text =
            trim(line.substr(at, end == std::string_view::npos ? line.npos : end - at), offset);
        fields.push_back({std::string(text), offset, fieldKind(text)});
        if (end == std::string_view::npos)
            return fields;
        at = end + 1;
    }
}

bool meansNumber(FieldKind kind)
{
    return kind == FieldKind::number || kind == FieldKind::dExponent ||
           kind == FieldKind::decimalComma || kind == FieldKind::touching;
}

bool loaderReads(FieldKind kind)
{
    return kind == FieldKind::number || kind == FieldKind::dExponent ||
           kind == FieldKind::loneSign || kind == FieldKind::innerBlank;
}

LineFit lineFit(const std::vector<Field> &fields)
{
    LineFit fit;
    for (const Field &field : fields) {
        if (meansNumber(field.kind))
            ++fit.numbers;
        else if (field.kind != FieldKind::empty && field.kind != FieldKind::loneSign)
            ++fit.others;
    }
    return fit;
}


} // namespace corvane::inspect
