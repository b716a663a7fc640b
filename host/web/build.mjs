// Bundles the page with esbuild: src/main.js into app.js (three.js in a
// chunk of its own under assets/, loaded for a 3-D plot only), app.css with
// uPlot's styles, and index.html and assets/ copied, into the folder given
// by --out (default: dist). Only what it writes is replaced there: the
// folder also holds the help pages, which the build copies in beside them.
import { build } from 'esbuild';
import { cpSync, mkdirSync, rmSync } from 'node:fs';
import { dirname, join, resolve } from 'node:path';
import { fileURLToPath } from 'node:url';

const here = dirname(fileURLToPath(import.meta.url));
const outFlag = process.argv.indexOf('--out');
const out = resolve(outFlag > 0 ? process.argv[outFlag + 1] : join(here, 'dist'));

// What this script writes, removed before each build (old chunks included).
const ours = ['app.js', 'app.css', 'index.html', 'assets'];
const clear = () => ours.forEach((name) => rmSync(join(out, name), { recursive: true, force: true }));
clear();
mkdirSync(out, { recursive: true });
try {
  await build({
    absWorkingDir: here,
    entryPoints: { app: 'src/main.js' },
    bundle: true,
    format: 'esm',
    splitting: true,
    chunkNames: 'assets/[name]-[hash]',
    minify: true,
    target: ['chrome110', 'firefox110', 'safari16'],
    outdir: out,
    logLevel: 'warning',
  });
  await build({
    absWorkingDir: here,
    entryPoints: ['app.css'],
    bundle: true,
    minify: true,
    outdir: out,
    logLevel: 'warning',
  });
} catch {
  // esbuild has printed the errors.
  clear();
  process.exit(1);
}
cpSync(join(here, 'index.html'), join(out, 'index.html'));
cpSync(join(here, 'assets'), join(out, 'assets'), { recursive: true });
