/*
 * PlotData.cpp - decimation, sampling and grid reduction of a zone.
 */
#include "PlotData.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

namespace corvane::server {

namespace {

constexpr float nan = std::numeric_limits<float>::quiet_NaN();

std::uint32_t kindOf(const host::DataSet &set, const host::Zone &zone)
{
    int type = set.initialPlotType.value_or(0);
    std::uint32_t kind = type >= 1 && type <= 3 ? static_cast<std::uint32_t>(type)
                         : zone.kmax > 1        ? 1
                         : zone.jmax > 1        ? 2
                                                : 3;
    std::size_t variables = set.variables.size();
    if (kind == 1 && variables < 3)
        kind = 2;
    if (kind == 2 && variables < 2)
        kind = 3;
    return kind;
}

bool isIndexGrid(const host::DataSet &set, const host::Zone &zone)
{
    return set.variables.size() == 3 && set.variables[0] == "I" && set.variables[1] == "J" &&
           zone.jmax > 1 && zone.kmax == 1;
}

/* Every point of the first count variables. */
PlotSeries whole(const host::Zone &zone, std::size_t count, std::uint32_t kind)
{
    PlotSeries plot{kind, {}};
    auto points = static_cast<std::size_t>(zone.points());
    for (std::size_t v = 0; v < count; ++v) {
        std::vector<float> values(points);
        for (std::size_t p = 0; p < points; ++p)
            values[p] = static_cast<float>(zone.fields[v].get(p));
        plot.series.push_back(std::move(values));
    }
    return plot;
}

/* The first count variables at evenly spaced points, at most limit. */
PlotSeries sampled(const host::Zone &zone, std::size_t count, std::uint32_t kind)
{
    auto points = static_cast<std::size_t>(zone.points());
    if (points <= scatterLimit)
        return whole(zone, count, kind);
    PlotSeries plot{kind, {}};
    for (std::size_t v = 0; v < count; ++v) {
        std::vector<float> values(scatterLimit);
        for (std::size_t k = 0; k < scatterLimit; ++k)
            values[k] = static_cast<float>(zone.fields[v].get(k * points / scatterLimit));
        plot.series.push_back(std::move(values));
    }
    return plot;
}

/* Minimum and maximum of one variable in one column, with where they are. */
struct Extremes {
    double min = 0, max = 0;
    std::size_t minAt = 0, maxAt = 0;
    bool any = false;

    void add(double value, std::size_t at)
    {
        if (!std::isfinite(value))
            return;
        if (!any || value < min)
            min = value, minAt = at;
        if (!any || value > max)
            max = value, maxAt = at;
        any = true;
    }
};

struct Column {
    std::size_t count = 0;
    std::size_t only = 0; /* the point, when count is 1 */
    double xMin = 0, xMax = 0;
};

PlotSeries decimated(const host::Zone &zone, std::size_t width)
{
    std::size_t variables = zone.fields.size();
    auto points = static_cast<std::size_t>(zone.points());
    if (points <= 2 * width)
        return whole(zone, variables, 3);

    const host::Field &x = zone.fields[0];
    double low = std::numeric_limits<double>::infinity();
    double high = -low;
    for (std::size_t p = 0; p < points; ++p) {
        double value = x.get(p);
        if (std::isfinite(value))
            low = std::min(low, value), high = std::max(high, value);
    }
    std::vector<Column> columns(width);
    std::vector<Extremes> extremes(width * variables);
    for (std::size_t p = 0; p < points; ++p) {
        double value = x.get(p);
        if (!std::isfinite(value))
            continue;
        std::size_t c = 0;
        if (high > low)
            c = std::min(width - 1,
                         static_cast<std::size_t>((value - low) / (high - low) *
                                                  static_cast<double>(width)));
        Column &column = columns[c];
        if (column.count == 0)
            column.xMin = column.xMax = value, column.only = p;
        column.xMin = std::min(column.xMin, value);
        column.xMax = std::max(column.xMax, value);
        ++column.count;
        for (std::size_t v = 1; v < variables; ++v)
            extremes[c * variables + v].add(zone.fields[v].get(p), p);
    }

    PlotSeries plot{3, std::vector<std::vector<float>>(variables)};
    for (std::size_t c = 0; c < width; ++c) {
        const Column &column = columns[c];
        if (column.count == 0)
            continue;
        if (column.count == 1) {
            for (std::size_t v = 0; v < variables; ++v)
                plot.series[v].push_back(static_cast<float>(zone.fields[v].get(column.only)));
            continue;
        }
        plot.series[0].push_back(static_cast<float>(column.xMin));
        plot.series[0].push_back(static_cast<float>(column.xMax));
        for (std::size_t v = 1; v < variables; ++v) {
            const Extremes &e = extremes[c * variables + v];
            float first = nan, second = nan;
            if (e.any) {
                bool minFirst = e.minAt <= e.maxAt;
                first = static_cast<float>(minFirst ? e.min : e.max);
                second = static_cast<float>(minFirst ? e.max : e.min);
            }
            plot.series[v].push_back(first);
            plot.series[v].push_back(second);
        }
    }
    return plot;
}

/* The cell's block along one index: [begin, end) of cell a of cells. */
std::pair<std::size_t, std::size_t> block(std::size_t a, std::size_t cells, std::size_t size)
{
    return {a * size / cells, (a + 1) * size / cells};
}

PlotSeries reducedGrid(const host::Zone &zone, std::size_t width, std::size_t height)
{
    auto imax = static_cast<std::size_t>(zone.imax);
    auto jmax = static_cast<std::size_t>(zone.jmax);
    std::size_t ni = std::min(imax, width);
    std::size_t nj = std::min(jmax, height);
    PlotSeries plot{2, std::vector<std::vector<float>>(3)};
    for (std::size_t b = 0; b < nj; ++b) {
        auto [j0, j1] = block(b, nj, jmax);
        for (std::size_t a = 0; a < ni; ++a) {
            auto [i0, i1] = block(a, ni, imax);
            for (std::size_t v = 0; v < 3; ++v) {
                double sum = 0;
                std::size_t count = 0;
                for (std::size_t j = j0; j < j1; ++j)
                    for (std::size_t i = i0; i < i1; ++i)
                        if (double value = zone.fields[v].get(j * imax + i); std::isfinite(value))
                            sum += value, ++count;
                double mean = count ? sum / static_cast<double>(count) : std::nan("");
                plot.series[v].push_back(static_cast<float>(mean));
            }
        }
    }
    return plot;
}

void appendWord(std::string &out, std::uint32_t word)
{
    for (int shift = 0; shift < 32; shift += 8)
        out.push_back(static_cast<char>((word >> shift) & 0xff));
}

} // namespace

PlotSeries plotSeries(const host::DataSet &set, const host::Zone &zone, std::size_t width,
                      std::size_t height)
{
    width = std::max<std::size_t>(width, 1);
    height = std::max<std::size_t>(height, 1);
    std::uint32_t kind = kindOf(set, zone);
    if (zone.fields.empty())
        return {kind, {}};
    if (kind == 3)
        return decimated(zone, width);
    if (kind == 2 && isIndexGrid(set, zone))
        return reducedGrid(zone, width, height);
    return sampled(zone, kind == 2 ? 2 : 3, kind);
}

std::string encodePlot(const PlotSeries &plot)
{
    std::size_t points = plot.series.empty() ? 0 : plot.series.front().size();
    std::string out;
    out.reserve(16 + 4 * points * plot.series.size());
    appendWord(out, plotMagic);
    appendWord(out, plot.kind);
    appendWord(out, static_cast<std::uint32_t>(plot.series.size()));
    appendWord(out, static_cast<std::uint32_t>(points));
    for (const std::vector<float> &values : plot.series)
        for (float value : values)
            appendWord(out, std::bit_cast<std::uint32_t>(value));
    return out;
}

} // namespace corvane::server
