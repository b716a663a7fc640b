// What the browser tests share: a corvane ui server (the real one, or the
// mock while the real one is not built) started on a free port in a
// scratch library, and headless Chromium opened on its token URL.
import { spawn, spawnSync } from 'node:child_process';
import { existsSync, mkdirSync, mkdtempSync, rmSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { dirname, join, resolve } from 'node:path';
import { fileURLToPath } from 'node:url';
import { chromium } from 'playwright-core';

const here = dirname(fileURLToPath(import.meta.url));
export const repoRoot = resolve(here, '../../..');
export const binDir = resolve(process.env.CORVANE_BIN_DIR ?? join(repoRoot, 'build/release/bin'));
export const corvane = join(binDir, 'corvane');
export const artifacts = resolve(process.env.CORVANE_ARTIFACTS ?? join(binDir, '../artifacts'));
export const CHROMIUM = process.env.CHROMIUM ?? '/usr/bin/chromium';
const CHROMIUM_ARGS = ['--headless', '--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run',
  '--disable-background-networking', '--disable-component-update', '--disable-sync'];

// Which server the tests drive: CORVANE_WEB_SERVER=real|mock, else the
// real one when corvane ui offers --no-open.
export function serverKind() {
  const asked = process.env.CORVANE_WEB_SERVER;
  if (asked === 'real' || asked === 'mock') return asked;
  const help = spawnSync(corvane, ['ui', '--help'], { encoding: 'utf8' });
  return `${help.stdout}${help.stderr}`.includes('--no-open') ? 'real' : 'mock';
}

// Starts the server in cwd with a fresh library; resolves to
// {url, origin, library, stop()} once it printed its URL.
// extraArgs go to the mock server only.
export async function startServer({ cwd = repoRoot, extraArgs = [] } = {}) {
  const library = mkdtempSync(join(tmpdir(), 'corvane-web-lib-'));
  const kind = serverKind();
  const [command, args] = kind === 'real'
    ? [corvane, ['ui', '--no-open', '--port', '0']]
    : [process.execPath, [join(here, 'mock-server.mjs'), '--corvane', corvane, '--web', join(binDir, 'web'), '--port', '0', ...extraArgs]];
  const child = spawn(command, args, { cwd, env: { ...process.env, ORDALIS_DIR: library }, stdio: ['ignore', 'pipe', 'pipe'] });
  let errors = '';
  child.stderr.on('data', (chunk) => { errors += chunk; });
  const url = await new Promise((done, fail) => {
    let out = '';
    const timer = setTimeout(() => fail(new Error(`no URL printed by the ${kind} server; stderr: ${errors}`)), 20000);
    child.stdout.on('data', (chunk) => {
      out += chunk;
      const found = /Open (http:\/\/127\.0\.0\.1:\d+\/\?token=[0-9a-f]{32})/.exec(out);
      if (found) {
        clearTimeout(timer);
        done(found[1]);
      }
    });
    child.on('exit', (status) => fail(new Error(`the ${kind} server ended with ${status}: ${errors}`)));
  });
  const stop = () => new Promise((done) => {
    if (child.exitCode !== null) {
      done();
      return;
    }
    child.on('exit', () => done());
    child.kill('SIGTERM');
  }).then(() => rmSync(library, { recursive: true, force: true }));
  return { kind, url, origin: new URL(url).origin, library, stop, stderr: () => errors };
}

// Headless Chromium with a new empty profile; fails when Chromium is not
// installed (scripts/setup.sh installs it).
export async function launchBrowser() {
  if (!existsSync(CHROMIUM)) throw new Error(`Chromium is missing at ${CHROMIUM}: run scripts/setup.sh`);
  const profile = mkdtempSync(join(tmpdir(), 'corvane-chromium-'));
  const downloads = mkdtempSync(join(tmpdir(), 'corvane-downloads-'));
  const context = await chromium.launchPersistentContext(profile, {
    executablePath: CHROMIUM,
    headless: true,
    args: CHROMIUM_ARGS,
    acceptDownloads: true,
    downloadsPath: downloads,
    viewport: { width: 1280, height: 1000 },
  });
  return {
    context,
    close: async () => {
      await context.close();
      rmSync(profile, { recursive: true, force: true });
      rmSync(downloads, { recursive: true, force: true });
    },
  };
}

// A screenshot into the artefacts folder.
export async function shoot(target, name) {
  mkdirSync(artifacts, { recursive: true });
  const path = join(artifacts, `${name}.png`);
  await target.screenshot({ path });
  return path;
}
