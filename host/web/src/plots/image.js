// An image of a grid (plot type 2 of an index-expanded grid): the cells
// (i, j, value) coloured by value on a canvas, with a colour bar.
import { h } from '../dom.js';
import { colorMap } from './colors.js';
import { extent, span } from './plotdata.js';

// The distinct values of an index series, ascending, by their column.
function columns(values) {
  const sorted = [...new Set(values)].filter((v) => !Number.isNaN(v)).sort((a, b) => a - b);
  return new Map(sorted.map((v, position) => [v, position]));
}

export function gridImage(target, plot, variables, width, height) {
  const [is, js, values] = plot.series;
  // A reduced grid's indices need not be whole numbers: each distinct one
  // is a column (row) of the image.
  const iColumn = columns(is);
  const jRow = columns(js);
  const ni = Math.max(1, iColumn.size);
  const nj = Math.max(1, jRow.size);
  const [iMin, iMax] = span(is) ?? [0, 0];
  const [jMin, jMax] = span(js) ?? [0, 0];
  const [vMin, vMax] = extent(values);

  // One pixel per cell, J up, then scaled without smoothing.
  const cells = h('canvas', { width: ni, height: nj });
  const cellCtx = cells.getContext('2d');
  const image = cellCtx.createImageData(ni, nj);
  for (let p = 0; p < values.length; p += 1) {
    const ci = iColumn.get(is[p]);
    const row = jRow.get(js[p]);
    if (ci === undefined || row === undefined) continue;
    const cj = nj - 1 - row;
    const [r, g, b] = colorMap((values[p] - vMin) / (vMax - vMin));
    const o = (cj * ni + ci) * 4;
    image.data.set([r, g, b, Number.isNaN(values[p]) ? 0 : 255], o);
  }
  cellCtx.putImageData(image, 0, 0);

  const barWidth = 90;
  const canvas = h('canvas', { class: 'grid-image', width, height });
  const ctx = canvas.getContext('2d');
  ctx.imageSmoothingEnabled = false;
  ctx.drawImage(cells, 0, 0, width - barWidth - 10, height);
  for (let y = 0; y < height; y += 1) {
    const [r, g, b] = colorMap(1 - y / (height - 1));
    ctx.fillStyle = `rgb(${r},${g},${b})`;
    ctx.fillRect(width - barWidth, y, 16, 1);
  }
  ctx.fillStyle = '#333';
  ctx.font = '12px sans-serif';
  const label = (v) => String(Number(v.toPrecision(4)));
  ctx.fillText(label(vMax), width - barWidth + 22, 12);
  ctx.fillText(label(vMin), width - barWidth + 22, height - 2);
  const caption = h('p', { class: 'plot-note' },
    `${variables[2] ?? 'value'} over ${variables[0]} ${iMin} to ${iMax} (across) and ${variables[1]} ${jMin} to ${jMax} (up)`);
  target.append(canvas, caption);
  return {
    destroy: () => {
      canvas.remove();
      caption.remove();
    },
  };
}
