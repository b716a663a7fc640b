/*
 * CheckReport.h - what check found, by kind: the count and the places in
 * file order; as the summary text (counts, the first places of each kind)
 * and as JSON (every place).
 */
#ifndef CORVANE_INSPECT_CHECKREPORT_H
#define CORVANE_INSPECT_CHECKREPORT_H

#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "Hazard.h"

namespace corvane::inspect {

struct CheckReport {
    struct Kind {
        HazardKind kind;
        long long count = 0;
        std::vector<Place> places; /* in line order; at most placesLimit */
    };
    std::string file;
    std::vector<Kind> kinds; /* every kind, in the order of hazardKinds */
    long long found() const;
};

/* Places kept per kind; the count goes on past it. */
inline constexpr size_t placesLimit = 100000;

/* Collects the places the detectors find. */
class ReportBuilder : public PlaceSink {
public:
    void add(Place place) override;
    CheckReport build(std::string file);

private:
    std::vector<CheckReport::Kind> kinds_ = initialKinds();
    static std::vector<CheckReport::Kind> initialKinds();
};

/* "line 5, column 9: TEXT" (no column for a whole line). */
std::string placeText(const Place &place);

/* The summary: a first line with the total, then for each kind found its
   title and count and its first shown places. */
std::string reportText(const CheckReport &report, size_t shown = 5);

/* {"file", "found", "kinds": [{"kind", "title", "count"}...],
    "places": [{"kind", "line", "column", "text"}...]} */
nlohmann::json reportJson(const CheckReport &report);

} // namespace corvane::inspect

#endif
