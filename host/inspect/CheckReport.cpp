/*
 * CheckReport.cpp - collecting, summarising and writing what check found.
 */
#include "CheckReport.h"

#include <algorithm>

#include <fmt/format.h>

namespace corvane::inspect {

long long CheckReport::found() const
{
    long long total = 0;
    for (const Kind &kind : kinds)
        total += kind.count;
    return total;
}

std::vector<CheckReport::Kind> ReportBuilder::initialKinds()
{
    std::vector<CheckReport::Kind> kinds;
    for (HazardKind kind : hazardKinds)
        kinds.push_back({kind, 0, {}});
    return kinds;
}

void ReportBuilder::add(Place place)
{
    auto &kind = kinds_[static_cast<size_t>(place.kind)];
    ++kind.count;
    if (kind.places.size() < placesLimit)
        kind.places.push_back(std::move(place));
}

CheckReport ReportBuilder::build(std::string file)
{
    for (auto &kind : kinds_)
        std::stable_sort(kind.places.begin(), kind.places.end(),
                         [](const Place &a, const Place &b) {
                             return a.line != b.line ? a.line < b.line : a.column < b.column;
                         });
    CheckReport report{std::move(file), std::move(kinds_)};
    kinds_ = initialKinds();
    return report;
}

std::string placeText(const Place &place)
{
    if (place.column > 0)
        return fmt::format("line {}, column {}: {}", place.line, place.column, place.text);
    return fmt::format("line {}: {}", place.line, place.text);
}

std::string reportText(const CheckReport &report, size_t shown)
{
    long long found = report.found();
    if (found == 0)
        return fmt::format("{}: nothing found where the loaded numbers may differ from the file\n",
                           report.file);
    std::string text = fmt::format("{}: {} place{} where the loaded numbers may differ from the "
                                   "file\n",
                                   report.file, found, found == 1 ? "" : "s");
    for (const auto &kind : report.kinds) {
        if (kind.count == 0)
            continue;
        text += fmt::format("{}: {}\n", hazardTitle(kind.kind), kind.count);
        size_t listed = std::min(shown, kind.places.size());
        for (size_t i = 0; i < listed; ++i)
            text += "  " + placeText(kind.places[i]) + "\n";
        if (kind.count > static_cast<long long>(listed))
            text += fmt::format("  ... and {} more (--json lists every place)\n",
                                kind.count - static_cast<long long>(listed));
    }
    return text;
}

nlohmann::json reportJson(const CheckReport &report)
{
    nlohmann::json kinds = nlohmann::json::array();
    nlohmann::json places = nlohmann::json::array();
    for (const auto &kind : report.kinds) {
        nlohmann::json entry = {
            {"kind", hazardId(kind.kind)}, {"title", hazardTitle(kind.kind)}, {"count", kind.count}};
        if (kind.count > static_cast<long long>(kind.places.size()))
            entry["listed"] = kind.places.size();
        kinds.push_back(std::move(entry));
        for (const Place &place : kind.places)
            places.push_back({{"kind", hazardId(place.kind)},
                              {"line", place.line},
                              {"column", place.column > 0 ? nlohmann::json(place.column)
                                                          : nlohmann::json(nullptr)},
                              {"text", place.text}});
    }
    return {{"file", report.file},
            {"found", report.found()},
            {"kinds", std::move(kinds)},
            {"places", std::move(places)}};
}

} // namespace corvane::inspect
