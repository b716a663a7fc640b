// XY lines (plot type 3): every variable against the first one, with uPlot.
// The x values come in the order of the points, not sorted, so the x range
// is set from the data.
import uPlot from 'uplot';
import { SERIES_COLORS } from './colors.js';
import { extent } from './plotdata.js';

// NaN (a non-finite value) becomes a gap.
const withGaps = (values) => Array.from(values, (v) => (Number.isNaN(v) ? null : v));

export function xyPlot(target, plot, variables, width, height) {
  const [x, ...ys] = plot.series;
  const series = [{ label: variables[0] }, ...ys.map((_, i) => ({
    label: variables[i + 1] ?? `series ${i + 1}`,
    stroke: SERIES_COLORS[i % SERIES_COLORS.length],
    width: 1.5,
    points: { show: false },
  }))];
  const xRange = extent(x);
  return new uPlot({
    width,
    height,
    series,
    scales: { x: { time: false, range: () => xRange } },
    axes: [{ label: variables[0] }, {}],
    cursor: { drag: { x: true, y: true } },
  }, [x, ...ys.map(withGaps)], target);
}
