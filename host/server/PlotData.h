/*
 * PlotData.h - a zone's values made small enough to plot W pixels wide,
 * in the binary form the page reads: little-endian 32-bit unsigned
 * integers [0x43565031, kind, seriesCount, pointCount], then seriesCount
 * arrays of pointCount 32-bit floats.
 *
 * The kind is the data set's plot type (3 XY lines, 2 a 2-D scatter, 1 a
 * 3-D scatter), or without one the zone's shape (K > 1: 1, J > 1: 2,
 * else 3), lowered while there are too few variables for it.
 *  - 3: every variable, the first (x) and the others against it. A zone of
 *    at most 2W points is sent whole, in its order. A larger one is cut
 *    into W columns of equal width over x's range; each column with points
 *    gives two points (one if it holds one): at its smallest and largest x,
 *    each other variable's minimum and maximum in the order they come in
 *    the zone. Columns in x order; points whose x is not finite are left
 *    out, and a variable without a finite value in a column is NaN there.
 *  - 2: the first two variables, at most 200 000 points, evenly sampled
 *    (point floor(k n / 200000) for k = 0, 1, ...). A grid with its indices
 *    added (variables I, J and one more, J > 1) is reduced instead to at
 *    most W x H cells, I fastest: each cell the means of I, J and the value
 *    over its block of points (finite values only).
 *  - 1: the first three variables, sampled as for 2.
 */
#ifndef CORVANE_SERVER_PLOTDATA_H
#define CORVANE_SERVER_PLOTDATA_H

#include <cstdint>
#include <string>
#include <vector>

#include "DataModel.h"

namespace corvane::server {

inline constexpr std::uint32_t plotMagic = 0x43565031;
inline constexpr std::size_t scatterLimit = 200000;

struct PlotSeries {
    std::uint32_t kind = 3;
    std::vector<std::vector<float>> series; /* equally long */
};

/* The series to plot for a zone of the data set, width x height pixels
   (each at least 1). */
PlotSeries plotSeries(const host::DataSet &set, const host::Zone &zone, std::size_t width,
                      std::size_t height);
/* The binary form. */
std::string encodePlot(const PlotSeries &plot);

} // namespace corvane::server

#endif
