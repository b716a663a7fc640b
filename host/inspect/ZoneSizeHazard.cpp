/*
 * ZoneSizeHazard.cpp - zones of different sizes: with sizes found in the
 * file, a zone whose size differs from the one most zones have (when more
 * than half have it); with given sizes, a zone whose variables were not
 * filled by the file and got 0 or the blank value.
 */
#include <map>

#include <fmt/format.h>

#include "Hazard.h"

namespace corvane::inspect {
namespace {

class ZoneSize : public Detector {
public:
    ZoneSize(const InstructionSet &set, PlaceSink &sink) : set_(set), sink_(sink) {}

    void finish(const TraceSummary &summary) override
    {
        if (set_.autoDimension)
            differentSizes(summary.zones);
        else
            unfilledZones(summary);
    }

private:
    void differentSizes(const std::vector<ZoneTrace> &zones)
    {
        std::map<long long, size_t> sizes;
        for (const ZoneTrace &zone : zones)
            if (zone.firstLine != 0) /* a zone without lines fails the load itself */
                ++sizes[zone.rows];
        long long common = 0;
        size_t most = 0;
        for (const auto &[rows, seen] : sizes) {
            if (seen > most) {
                common = rows;
                most = seen;
            }
        }
        if (most * 2 <= zones.size())
            return;
        for (size_t z = 0; z < zones.size(); ++z) {
            if (zones[z].firstLine != 0 && zones[z].rows != common)
                sink_.add({HazardKind::zoneSize, zones[z].firstLine, 0,
                           fmt::format("zone {} has {} point{} where the other zones have {}",
                                       z + 1, zones[z].rows, zones[z].rows == 1 ? "" : "s",
                                       common)});
        }
    }

    void unfilledZones(const TraceSummary &summary)
    {
        for (size_t z = 0; z < summary.zones.size(); ++z) {
            const ZoneTrace &zone = summary.zones[z];
            if (zone.lastLine == 0)
                continue; /* no line to show: the load found no values */
            for (size_t v = 0; v < zone.valueCounts.size(); ++v) {
                long long found = zone.valueCounts[v];
                if (found >= summary.pointsPerZone)
                    continue;
                sink_.add({HazardKind::zoneSize, zone.lastLine, 0,
                           fmt::format("zone {}, variable \"{}\": {} of {} values in the file; the "
                                       "other {} got {}",
                                       z + 1, summary.names[v], found, summary.pointsPerZone,
                                       summary.pointsPerZone - found, fillText(set_))});
            }
        }
    }

    const InstructionSet &set_;
    PlaceSink &sink_;
};

} // namespace

std::unique_ptr<Detector> zoneSizeDetector(const InstructionSet &set, PlaceSink &sink)
{
    return std::make_unique<ZoneSize>(set, sink);
}

} // namespace corvane::inspect
