// An image of a grid (plot type 2 of an index-expanded grid): the cells
// (i, j, value) coloured by value on a canvas, with a colour bar.
import { h } from '../dom.js';
import { colorMap } from './colors.js';
import { extent } from './plotdata.js';

export function gridImage(target, plot, variables, width, height) {
  const [is, js, values] = plot.series;
  const [iMin, iMax] = extent(is);
  const [jMin, jMax] = extent(js);
  const ni = Math.max(1, Math.round(iMax - iMin) + 1);
  const nj = Math.max(1, Math.round(jMax - jMin) + 1);
  const [vMin, vMax] = extent(values);

  // One pixel per cell, J up, then scaled without smoothing.
  const cells = h('canvas', { width: ni, height: nj });
  const cellCtx = cells.getContext('2d');
  const image = cellCtx.createImageData(ni, nj);
  for (let p = 0; p < values.length; p += 1) {
    const ci = Math.round(is[p] - iMin);
    const cj = nj - 1 - Math.round(js[p] - jMin);
    const [r, g, b] = colorMap((values[p] - vMin) / (vMax - vMin));
    const o = (cj * ni + ci) * 4;
    image.data.set([r, g, b, Number.isNaN(values[p]) ? 0 : 255], o);
  }
  cellCtx.putImageData(image, 0, 0);

  const barWidth = 60;
  const canvas = h('canvas', { class: 'grid-image', width: width, height, 'aria-label': `${variables[2] ?? 'value'} over ${variables[0]} and ${variables[1]}` });
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
  ctx.fillText(String(vMax), width - barWidth + 20, 12);
  ctx.fillText(String(vMin), width - barWidth + 20, height - 2);
  target.append(canvas);
  return { destroy: () => canvas.remove() };
}
