// Draws plot data by its kind: XY lines, a 2-D scatter or grid image, a
// 3-D scatter. The grid image is told from the scatter by its three series.
import { PLOT_KIND } from './plotdata.js';
import { gridImage } from './image.js';
import { scatterPlot } from './scatter2d.js';
import { xyPlot } from './xy.js';

// Resolves to an object with destroy(). three.js is fetched only for a
// 3-D scatter.
export async function drawPlot(target, plot, variables, width, height) {
  switch (plot.kind) {
  case PLOT_KIND.xy:
    return xyPlot(target, plot, variables, width, height);
  case PLOT_KIND.scatter2d:
    return plot.series.length === 3
      ? gridImage(target, plot, variables, width, height)
      : scatterPlot(target, plot, variables, width, height);
  case PLOT_KIND.scatter3d: {
    const { scatter3d } = await import('./scatter3d.js');
    return scatter3d(target, plot, variables, width, height);
  }
  default:
    throw new Error(`unknown plot kind ${plot.kind}`);
  }
}
