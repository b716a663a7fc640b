// Colours of the plots: one per series, and a colour map for values.
export const SERIES_COLORS = ['#1f6fd1', '#d1501f', '#2e9e44', '#9b3fc4', '#c49a1f', '#1fa7b8', '#c43f7a', '#5b5b5b'];

// A blue-to-yellow map: t in [0, 1] to [r, g, b] bytes.
const STOPS = [[68, 1, 84], [59, 82, 139], [33, 145, 140], [94, 201, 98], [253, 231, 37]];
export function colorMap(t) {
  const x = Math.max(0, Math.min(1, Number.isFinite(t) ? t : 0)) * (STOPS.length - 1);
  const i = Math.min(STOPS.length - 2, Math.floor(x));
  const f = x - i;
  return STOPS[i].map((c, k) => Math.round(c + (STOPS[i + 1][k] - c) * f));
}
