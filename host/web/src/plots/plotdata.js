// The binary plot data of /api/datasets/I/plot: a little-endian header of
// four 32-bit unsigned integers [magic, kind, seriesCount, pointCount],
// then seriesCount arrays of pointCount 32-bit floats.
export const PLOT_MAGIC = 0x43565031;
export const PLOT_KIND = { scatter3d: 1, scatter2d: 2, xy: 3 };

// {kind, series: [Float32Array...], count}, or an Error for a buffer that
// is not plot data.
export function parsePlot(buffer) {
  if (buffer.byteLength < 16) return new Error('plot data too short');
  const view = new DataView(buffer);
  const [magic, kind, seriesCount, count] = [0, 4, 8, 12].map((offset) => view.getUint32(offset, true));
  if (magic !== PLOT_MAGIC) return new Error('not plot data');
  if (buffer.byteLength !== 16 + seriesCount * count * 4) return new Error('plot data of the wrong length');
  const series = [];
  for (let s = 0; s < seriesCount; s += 1) {
    const offset = 16 + s * count * 4;
    // Copied when unaligned or big-endian would differ; here the offset is a multiple of 4.
    series.push(new Float32Array(buffer, offset, count));
  }
  return { kind, series, count };
}

// The smallest and largest value of arrays (NaN left out), or null when
// there is none.
export function span(...arrays) {
  let lo = Infinity;
  let hi = -Infinity;
  for (const values of arrays) {
    for (let i = 0; i < values.length; i += 1) {
      if (values[i] < lo) lo = values[i];
      if (values[i] > hi) hi = values[i];
    }
  }
  return lo <= hi ? [lo, hi] : null;
}

// A range to plot arrays in: their span, widened by a half around a single
// value, or [0, 1] when there is no finite value.
export function extent(...arrays) {
  const range = span(...arrays);
  if (!range || !Number.isFinite(range[0]) || !Number.isFinite(range[1])) return [0, 1];
  const [lo, hi] = range;
  return lo === hi ? [lo - 0.5, hi + 0.5] : [lo, hi];
}
