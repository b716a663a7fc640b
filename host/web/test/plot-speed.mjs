// Measures how long the page takes to fetch and draw the plot of a data set
// of a million points (XY lines, 2-D scatter, 3-D scatter): from the plot
// request to the drawn plot, as the page records it. A measurement, not a
// test: node test/plot-speed.mjs, after the release build.
import { mkdtempSync, rmSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { launchBrowser, startServer } from './harness.mjs';

const POINTS = 1_000_000;
const scratch = mkdtempSync(join(tmpdir(), 'corvane-plot-speed-'));
const dataSet = (title, plotType, variables, value) => ({
  title, variables, plotType,
  zones: [{ name: 'Zone 1', imax: POINTS, jmax: 1, kmax: 1, fieldTypes: variables.map(() => 'double'),
    values: variables.map((_, v) => Array.from({ length: POINTS }, (_, p) => value(v, p))) }],
});
const file = join(scratch, 'million.json');
writeFileSync(file, JSON.stringify([
  dataSet('XY lines', 3, ['t', 'a', 'b'], (v, p) => (v === 0 ? p : Math.sin(p / 5000 + v) + Math.random() * 0.1)),
  dataSet('2-D scatter', 2, ['x', 'y'], (v) => Math.random() + v),
  dataSet('3-D scatter', 1, ['x', 'y', 'z'], () => Math.random()),
]));

process.env.CORVANE_WEB_SERVER = 'mock';
const server = await startServer({ extraArgs: ['--preload', file] });
const browser = await launchBrowser();
try {
  const page = await browser.context.newPage();
  await page.goto(server.url);
  for (let i = 0; i < 3; i += 1) {
    await page.locator('.dataset-tabs button').nth(i).click();
    await page.locator('.plot:is([data-state="drawn"], [data-state="failed"])').waitFor({ timeout: 60000 });
    const plot = page.locator('.plot');
    const [title, state, points, ms] = [await page.locator('.dataset-title').textContent(),
      await plot.getAttribute('data-state'), await plot.getAttribute('data-points'), await plot.getAttribute('data-draw-ms')];
    console.log(`${title}: ${POINTS} points, ${state}, ${points ?? '-'} points sent, ${ms ?? '-'} ms`);
  }
} finally {
  await browser.close();
  await server.stop();
  rmSync(scratch, { recursive: true, force: true });
}
