/*
 * DataOutput.cpp - streaming JSON and CSV writers of host data sets.
 */
#include "DataOutput.h"

#include <algorithm>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include "NumberText.h"

namespace corvane::cli {
namespace {

/* "a", "b" joined by ", " inside brackets, each item made by text(item). */
template <typename Range, typename Text>
void writeInlineArray(std::FILE *out, const Range &items, Text text)
{
    std::fputc('[', out);
    bool first = true;
    for (const auto &item : items) {
        if (!first)
            std::fputs(", ", out);
        first = false;
        std::fputs(text(item).c_str(), out);
    }
    std::fputc(']', out);
}

void writeJsonValues(std::FILE *out, const host::Field &field)
{
    std::fputc('[', out);
    for (size_t p = 0; p < field.size(); ++p) {
        if (p > 0)
            std::fputs(", ", out);
        auto text = numberText(field.get(p), field.type());
        std::fputs(text ? text->c_str() : "null", out);
    }
    std::fputc(']', out);
}

void writeJsonZone(std::FILE *out, const host::Zone &zone, const std::string &in)
{
    fmt::print(out, "{}{{\n", in);
    fmt::print(out, "{}  \"name\": {},\n", in, jsonString(zone.name));
    fmt::print(out, "{}  \"imax\": {},\n", in, zone.imax);
    fmt::print(out, "{}  \"jmax\": {},\n", in, zone.jmax);
    fmt::print(out, "{}  \"kmax\": {},\n", in, zone.kmax);
    fmt::print(out, "{}  \"fieldTypes\": ", in);
    writeInlineArray(out, zone.fields, [](const host::Field &field) {
        return jsonString(host::fieldTypeName(field.type()));
    });
    fmt::print(out, ",\n{}  \"values\": [", in);
    for (size_t v = 0; v < zone.fields.size(); ++v) {
        fmt::print(out, "{}\n{}    ", v > 0 ? "," : "", in);
        writeJsonValues(out, zone.fields[v]);
    }
    fmt::print(out, "{}]\n{}}}", zone.fields.empty() ? "" : "\n" + in + "  ", in);
}

/* One data set as a JSON object indented by in, without a final newline. */
void writeJsonDataSet(std::FILE *out, const host::DataSet &set, const std::string &in)
{
    fmt::print(out, "{}{{\n", in);
    fmt::print(out, "{}  \"title\": {},\n", in, jsonString(set.title));
    fmt::print(out, "{}  \"variables\": ", in);
    writeInlineArray(out, set.variables, [](const std::string &name) { return jsonString(name); });
    fmt::print(out, ",\n{}  \"plotType\": {},\n", in,
               set.initialPlotType ? fmt::format("{}", *set.initialPlotType) : "null");
    fmt::print(out, "{}  \"zones\": [", in);
    for (size_t z = 0; z < set.zones.size(); ++z) {
        fmt::print(out, "{}\n", z > 0 ? "," : "");
        writeJsonZone(out, set.zones[z], in + "    ");
    }
    fmt::print(out, "{}],\n", set.zones.empty() ? "" : "\n" + in + "  ");
    fmt::print(out, "{}  \"loaderInstructions\": ", in);
    if (set.loaderInstructions) {
        fmt::print(out, "{{\n{}    \"loader\": {},\n{}    \"strings\": ", in,
                   jsonString(set.loaderInstructions->loader), in);
        writeInlineArray(out, set.loaderInstructions->strings,
                         [](const std::string &text) { return jsonString(text); });
        fmt::print(out, "\n{}  }}\n", in);
    } else {
        std::fputs("null\n", out);
    }
    fmt::print(out, "{}}}", in);
}

void writeCsvDataSet(std::FILE *out, const host::DataSet &set)
{
    bool zoneColumn = set.zones.size() > 1;
    std::string header = zoneColumn ? "zone" : "";
    for (const auto &name : set.variables) {
        if (!header.empty() || &name != &set.variables.front())
            header += ',';
        header += csvCell(name);
    }
    fmt::print(out, "{}\n", header);
    for (size_t z = 0; z < set.zones.size(); ++z) {
        const host::Zone &zone = set.zones[z];
        auto points = static_cast<size_t>(std::max<LgIndex_t>(zone.points(), 0));
        for (size_t p = 0; p < points; ++p) {
            if (zoneColumn)
                fmt::print(out, "{}", z + 1);
            for (size_t v = 0; v < zone.fields.size(); ++v) {
                if (zoneColumn || v > 0)
                    std::fputc(',', out);
                const host::Field &field = zone.fields[v];
                if (p >= field.size())
                    continue;
                if (auto text = numberText(field.get(p), field.type()))
                    std::fputs(text->c_str(), out);
            }
            std::fputc('\n', out);
        }
    }
}

} // namespace

std::string asUtf8(std::string_view text)
{
    std::string out;
    out.reserve(text.size());
    size_t i = 0;
    while (i < text.size()) {
        auto byte = static_cast<unsigned char>(text[i]);
        size_t length = byte < 0x80 ? 1 : (byte >> 5) == 0x6 ? 2 : (byte >> 4) == 0xE ? 3
                                      : (byte >> 3) == 0x1E ? 4 : 0;
        bool valid = length > 0 && i + length <= text.size();
        for (size_t k = 1; valid && k < length; ++k)
            valid = (static_cast<unsigned char>(text[i + k]) >> 6) == 0x2;
        if (valid) {
            out.append(text.substr(i, length));
            i += length;
        } else {
            out += static_cast<char>(0xC0 | (byte >> 6));
            out += static_cast<char>(0x80 | (byte & 0x3F));
            ++i;
        }
    }
    return out;
}

std::string jsonString(std::string_view text)
{
    return nlohmann::json(asUtf8(text))
        .dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

std::string csvCell(std::string_view text)
{
    if (text.find_first_of(",\"\n\r") == std::string_view::npos)
        return std::string(text);
    std::string cell = "\"";
    for (char c : text) {
        if (c == '"')
            cell += '"';
        cell += c;
    }
    return cell + '"';
}

void writeJson(std::FILE *out, std::span<const host::DataSet> sets)
{
    if (sets.size() == 1) {
        writeJsonDataSet(out, sets.front(), "");
        std::fputc('\n', out);
        return;
    }
    std::fputc('[', out);
    for (size_t i = 0; i < sets.size(); ++i) {
        fmt::print(out, "{}\n", i > 0 ? "," : "");
        writeJsonDataSet(out, sets[i], "  ");
    }
    fmt::print(out, "{}]\n", sets.empty() ? "" : "\n");
}

void writeCsv(std::FILE *out, std::span<const host::DataSet> sets)
{
    for (size_t i = 0; i < sets.size(); ++i) {
        if (i > 0)
            std::fputc('\n', out);
        writeCsvDataSet(out, sets[i]);
    }
}

} // namespace corvane::cli
