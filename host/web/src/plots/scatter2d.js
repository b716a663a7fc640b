// A 2-D scatter (plot type 2) of the first two variables, with uPlot's
// faceted mode; the points are drawn as small squares straight onto its
// canvas, which keeps 200 000 points fast.
import uPlot from 'uplot';
import { SERIES_COLORS } from './colors.js';
import { extent } from './plotdata.js';

function drawPoints(u, seriesIndex) {
  const [xs, ys] = u.data[seriesIndex];
  const { ctx, bbox } = u;
  const size = Math.max(1, Math.round(2 * devicePixelRatio));
  ctx.save();
  ctx.beginPath();
  ctx.rect(bbox.left, bbox.top, bbox.width, bbox.height);
  ctx.clip();
  ctx.fillStyle = SERIES_COLORS[0];
  for (let i = 0; i < xs.length; i += 1) {
    const px = u.valToPos(xs[i], 'x', true);
    const py = u.valToPos(ys[i], 'y', true);
    if (Number.isFinite(px) && Number.isFinite(py)) ctx.fillRect(px - size / 2, py - size / 2, size, size);
  }
  ctx.restore();
  return null;
}

export function scatterPlot(target, plot, variables, width, height) {
  const [x, y] = plot.series;
  const xRange = extent(x);
  const yRange = extent(y);
  return new uPlot({
    mode: 2,
    width,
    height,
    legend: { show: false },
    cursor: { show: false },
    scales: { x: { time: false, range: () => xRange }, y: { range: () => yRange } },
    axes: [{ label: variables[0] }, { label: variables[1] }],
    series: [{}, { label: variables[1], stroke: SERIES_COLORS[0], paths: drawPoints, points: { show: false } }],
  }, [null, [x, y]], target);
}
