// A stand-in for the server of corvane ui, for the page's tests while the
// real one is not there: it serves the page and answers the HTTP interface
// (host/web/API.md) by replaying the user's actions so far as a
// `corvane ui --script` run, and reads the dialogs back from a dump, the
// boxes from the transcript and the data sets from the run's outputs.
//
//   node mock-server.mjs --corvane BIN --web DIR [--port N]
//
// It prints "Open http://127.0.0.1:PORT/?token=TOKEN" as corvane ui does.
// Runs in the current folder, with ORDALIS_DIR as the loader's library.
import { spawnSync } from 'node:child_process';
import { randomBytes } from 'node:crypto';
import { cpSync, existsSync, mkdirSync, mkdtempSync, readdirSync, readFileSync, realpathSync, rmSync, statSync, writeFileSync, copyFileSync } from 'node:fs';
import { createServer } from 'node:http';
import { homedir, tmpdir } from 'node:os';
import { basename, dirname, extname, join, resolve } from 'node:path';
import { fileURLToPath } from 'node:url';

const arg = (name, fallback) => {
  const i = process.argv.indexOf(name);
  return i > 0 ? process.argv[i + 1] : fallback;
};
const corvane = resolve(arg('--corvane', 'corvane'));
const webDir = resolve(arg('--web', 'dist'));
const helpDir = resolve(dirname(fileURLToPath(import.meta.url)), '../help');
const port = Number(arg('--port', '0'));
const token = randomBytes(16).toString('hex');
const library = process.env.ORDALIS_DIR ?? mkdtempSync(join(tmpdir(), 'ordalis-'));
const work = mkdtempSync(join(tmpdir(), 'corvane-mock-'));
const librarySnapshot = join(work, 'library');
cpSync(library, librarySnapshot, { recursive: true });

const LOADER = 'Ordalis Loader';
const state = { version: 1, loaders: [LOADER], dialogs: [], box: null, progress: null, busy: null, dataSets: [] };
// The data sets as corvane writes them, with values; --preload FILE.json
// starts with the data sets of FILE (one or an array), for measurements.
let fullSets = [];
const preload = arg('--preload', null);
if (preload) {
  const data = JSON.parse(readFileSync(preload, 'utf8'));
  fullSets = Array.isArray(data) ? data : [data];
}
const preloaded = fullSets.length;
let csvParts = [];
let opened = false;
let steps = []; // script lines after the loader's first opening
let shownEvents = 0; // transcript events already shown
const dialogIds = new Map(); // title -> id
const clients = new Set();
let waitingBox = null; // {box, resolve}

// State and events ------------------------------------------------------

function publish() {
  state.version += 1;
  const text = `event: state\ndata: ${JSON.stringify(state)}\n\n`;
  for (const client of clients) client.write(text);
}

function sendHelp(page) {
  const text = `event: help\ndata: ${JSON.stringify({ page: `/help/${basename(page)}` })}\n\n`;
  for (const client of clients) client.write(text);
}

const summary = (set, index) => ({
  index, title: set.title, variables: set.variables, plotType: set.plotType,
  zones: set.zones.map((z) => ({ name: z.name, imax: z.imax, jmax: z.jmax, kmax: z.kmax, points: z.imax * z.jmax * z.kmax })),
});
state.dataSets = fullSets.map(summary);

// Shows a box and waits for its answer.
let nextBoxId = 1;
function ask(box) {
  return new Promise((done) => {
    state.box = { id: nextBoxId++, ...box };
    waitingBox = { box: state.box, resolve: done };
    publish();
  });
}

// The replayed run ------------------------------------------------------

const quote = (text) => `"${String(text).replace(/[\\"\n\r\t]/g, (c) => ({ '\\': '\\\\', '"': '\\"', '\n': '\\n', '\r': '\\r', '\t': '\\t' })[c])}"`;

function withIds(dump) {
  return dump.dialogs.map((dialog) => {
    if (!dialogIds.has(dialog.title)) dialogIds.set(dialog.title, dialogIds.size + 1);
    const id = dialogIds.get(dialog.title);
    return {
      id,
      ...dialog,
      buttons: ['ok', 'cancel', 'help'],
      controls: dialog.controls.map((control, i) => {
        const extra = {};
        if (control.kind === 'text') extra.readOnly = control.caption === 'Data Preview';
        if (control.kind === 'list') extra.multi = dialog.title === 'Variables to load';
        return { id: id * 1000 + i + 1, ...control, ...extra };
      }),
    };
  });
}

function runScript() {
  rmSync(library, { recursive: true, force: true });
  cpSync(librarySnapshot, library, { recursive: true });
  const files = { script: join(work, 'run.txt'), dump: join(work, 'dump.json'), transcript: join(work, 't.jsonl'),
    json: join(work, 'out.json'), csv: join(work, 'out.csv'), layout: join(work, 'layout.json') };
  for (const f of [files.dump, files.json, files.csv, files.layout]) rmSync(f, { force: true });
  writeFileSync(files.script, [...steps, `dump ${quote(files.dump)}`].join('\n') + '\n');
  const run = spawnSync(corvane, ['ui', '--script', files.script, '--transcript', files.transcript,
    '-o', files.json, '-o', files.csv, '--save-layout', files.layout, '-q'], {
    encoding: 'utf8',
    // Every replay but the last stops with dialogs up, which a real run
    // does not; what the loader keeps for an open dialog is not a leak here.
    env: { ...process.env, ASAN_OPTIONS: `${process.env.ASAN_OPTIONS ?? ''}:detect_leaks=0` },
  });
  const events = existsSync(files.transcript)
    ? readFileSync(files.transcript, 'utf8').split('\n').filter(Boolean).map((l) => JSON.parse(l)) : [];
  return { status: run.status, stderr: run.stderr, files, events };
}

const unquote = (text) => text.replace(/\\(.)/g, (_, c) => ({ n: '\n', r: '\r', t: '\t' })[c] ?? c);

// The box a failed run stopped at, and the script line that answers it.
const UNANSWERED = /^corvane: .*?:(\d+): no (file|answer) queued for the (?:file chooser|question) "(.*)"$/m;

function chooserFor(label, title) {
  if (/Save|Rename/.test(label)) return { kind: 'file', mode: 'write', title, defaultName: join(library, 'untitled.twc'), filter: '*.twc' };
  if (/Load/.test(label)) return { kind: 'file', mode: 'read', title, defaultName: `${library}/`, filter: '*.twc' };
  return { kind: 'file', mode: 'read', title, defaultName: '', filter: '*.*' };
}

// Runs the steps until the run holds, answering the boxes it stops at;
// then shows the new messages and takes over dialogs and data sets.
async function replay(labels) {
  for (;;) {
    state.busy = 'Working...';
    const run = runScript();
    state.busy = null;
    const unanswered = UNANSWERED.exec(run.stderr);
    if (run.status === 0) {
      for (const event of run.events.slice(shownEvents)) {
        if (event.event === 'error') await ask({ kind: 'error', text: event.text });
        else if (event.event === 'message' && event.answer === 'ok') await ask({ kind: event.type === 'warning' ? 'warning' : 'information', text: event.text });
        else if (event.event === 'help') sendHelp(event.page);
      }
      shownEvents = run.events.length;
      state.box = null;
      state.dialogs = withIds(JSON.parse(readFileSync(run.files.dump, 'utf8')));
      if (existsSync(run.files.json)) {
        const data = JSON.parse(readFileSync(run.files.json, 'utf8'));
        fullSets = [...fullSets.slice(0, preloaded), ...(Array.isArray(data) ? data : [data])];
        csvParts = readFileSync(run.files.csv, 'utf8').split('\n\n');
        copyFileSync(run.files.layout, join(work, 'last-layout.json'));
      }
      state.dataSets = fullSets.map(summary);
      publish();
      return null;
    }
    if (!unanswered) return run.stderr.trim().split('\n').pop().replace(/^corvane: [^:]*:\d+: /, '');
    const line = Number(unanswered[1]) - 1;
    if (unanswered[2] === 'file') {
      const answer = await ask(chooserFor(labels[line] ?? '', unquote(unanswered[3])));
      steps.splice(line, 0, answer.path === null ? 'file cancel' : `file ${quote(answer.path)}`);
    } else {
      const answer = await ask({ kind: 'question', text: unquote(unanswered[3]) });
      steps.splice(line, 0, `answer ${answer.answer ? 'yes' : 'no'}`);
    }
    labels.splice(line, 0, '');
  }
}

const stepLabels = [];

// The script line of an action, or a refusal.
function lineOf(action) {
  const top = state.dialogs[state.dialogs.length - 1];
  if (action.type === 'dialogButton') {
    if (!top || action.dialog !== top.id) return { refused: 'the dialog is not the top dialog' };
    return { line: `press ${{ ok: 'OK', cancel: 'Cancel', help: 'Help' }[action.button]}`, label: action.button };
  }
  const control = top?.controls.find((c) => c.id === action.control);
  if (!control) return { refused: 'no such control in the top dialog' };
  if (!control.sensitive) return { refused: 'the control is insensitive' };
  const name = `${control.kind}#${top.controls.filter((c) => c.kind === control.kind).indexOf(control) + 1}`;
  switch (action.type) {
  case 'press': return { line: `press ${name}`, label: control.label };
  case 'toggle': return { line: `toggle ${name} ${action.on ? 'on' : 'off'}` };
  case 'choose': {
    const item = control.items?.[action.item - 1];
    if (item === undefined) return { refused: 'no such item' };
    return { line: control.kind === 'radio' ? `choose ${quote(item)}` : `set ${name} ${quote(item)}` };
  }
  case 'text': return { line: `set ${name} ${quote(action.text)}` };
  case 'select': return { line: `select ${name} ${action.items.map((i) => `#${i}`).join(' ')}` };
  default: return { refused: `unknown action ${action.type}` };
  }
}

let queue = Promise.resolve();
function perform(action) {
  const done = queue.then(async () => {
    if (state.box) return 'a box is waiting';
    if (action.type === 'openLoader') {
      if (state.dialogs.length > 0) return 'a dialog is up';
      if (opened) {
        steps.push('open');
        stepLabels.push('');
      }
      opened = true;
    } else {
      const { line, label, refused } = lineOf(action);
      if (refused) return refused;
      steps.push(line);
      stepLabels.push(label ?? '');
    }
    const failed = await replay(stepLabels);
    if (failed) {
      steps.pop();
      stepLabels.pop();
    }
    return failed;
  });
  queue = done.catch(() => {});
  return done;
}

// Folders of the file chooser ------------------------------------------

const globRegex = (pattern) => new RegExp(`^${pattern.replace(/[.+^${}()|[\]\\]/g, '\\$&').replace(/\*/g, '.*').replace(/\?/g, '.')}$`);

function listFolder(query) {
  let dir = query.get('dir');
  if (!dir) {
    const proposed = state.box?.kind === 'file' ? state.box.defaultName : '';
    dir = proposed ? (proposed.endsWith('/') ? proposed : dirname(proposed)) : homedir();
  }
  let real;
  try {
    real = realpathSync(dir);
  } catch {
    return [404, { error: `no folder ${dir}` }];
  }
  if (!statSync(real).isDirectory()) return [403, { error: `${real} is not a folder` }];
  const filter = query.get('filter') ?? '';
  const all = filter === '' || filter === '*' || filter === '*.*';
  const match = globRegex(filter);
  const entries = [];
  for (const name of readdirSync(real)) {
    let info;
    try {
      info = statSync(join(real, name));
    } catch {
      continue;
    }
    if (info.isDirectory()) entries.push({ name, dir: true, size: 0 });
    else if (info.isFile() && (all || match.test(name))) entries.push({ name, dir: false, size: info.size });
  }
  entries.sort((a, b) => (a.dir !== b.dir ? (a.dir ? -1 : 1) : a.name < b.name ? -1 : a.name > b.name ? 1 : 0));
  return [200, { dir: real, parent: real === '/' ? null : dirname(real), entries }];
}

// Data sets --------------------------------------------------------------

function plotBuffer(set, zoneIndex, width) {
  const zone = set.zones[zoneIndex];
  const v = zone.values;
  const names = set.variables;
  let kind = set.plotType === 1 && v.length >= 3 ? 1 : set.plotType === 2 && v.length >= 2 ? 2 : 3;
  let series;
  if (kind === 3) {
    const count = v[0].length;
    let keep = [...Array(count).keys()];
    if (count > 2 * width) {
      keep = [];
      const per = count / width;
      for (let c = 0; c < width; c += 1) {
        const from = Math.floor(c * per);
        const to = Math.min(count, Math.floor((c + 1) * per));
        let lo = from;
        let hi = from;
        for (let p = from; p < to; p += 1) {
          if ((v[1] ?? v[0])[p] < (v[1] ?? v[0])[lo]) lo = p;
          if ((v[1] ?? v[0])[p] > (v[1] ?? v[0])[hi]) hi = p;
        }
        keep.push(Math.min(lo, hi), Math.max(lo, hi));
      }
    }
    series = v.map((values) => keep.map((p) => values[p]));
  } else if (kind === 2 && names[0] === 'I' && names[1] === 'J' && v.length === 3) {
    series = v;
  } else {
    const step = Math.ceil(v[0].length / 200000);
    series = v.slice(0, kind === 1 ? 3 : 2).map((values) => values.filter((_, p) => p % step === 0));
  }
  const count = series[0].length;
  const buffer = Buffer.alloc(16 + series.length * count * 4);
  [0x43565031, kind, series.length, count].forEach((n, i) => buffer.writeUInt32LE(n, i * 4));
  series.forEach((values, s) => values.forEach((x, p) => buffer.writeFloatLE(x === null ? NaN : x, 16 + (s * count + p) * 4)));
  return buffer;
}

// HTTP -------------------------------------------------------------------

const TYPES = { '.html': 'text/html; charset=utf-8', '.js': 'text/javascript', '.css': 'text/css', '.svg': 'image/svg+xml', '.json': 'application/json' };

function send(res, status, body, type = 'application/json') {
  res.writeHead(status, { 'Content-Type': type });
  res.end(type === 'application/json' ? JSON.stringify(body) : body);
}

function sendFile(res, file) {
  if (!existsSync(file) || !statSync(file).isFile()) return send(res, 404, { error: 'not found' });
  return send(res, 200, readFileSync(file), TYPES[extname(file)] ?? 'application/octet-stream');
}

const readBody = (req) => new Promise((done) => {
  let text = '';
  req.on('data', (chunk) => { text += chunk; });
  req.on('end', () => {
    try {
      done(JSON.parse(text || '{}'));
    } catch {
      done(null);
    }
  });
});

const server = createServer(async (req, res) => {
  const url = new URL(req.url, 'http://127.0.0.1');
  const cookie = /(?:^|;\s*)corvane_token=([0-9a-f]+)/.exec(req.headers.cookie ?? '')?.[1];
  if (url.pathname === '/' && url.searchParams.get('token') === token) {
    res.writeHead(303, { Location: '/', 'Set-Cookie': `corvane_token=${token}; HttpOnly; SameSite=Strict; Path=/` });
    return res.end();
  }
  if (cookie !== token && url.searchParams.get('token') !== token) return send(res, 403, { error: 'no valid token' });

  const path = url.pathname;
  if (req.method === 'GET') {
    if (path === '/') return sendFile(res, join(webDir, 'index.html'));
    if (path === '/app.js' || path === '/app.css' || path.startsWith('/assets/')) return sendFile(res, join(webDir, path.replace(/\.\./g, '')));
    if (path.startsWith('/help/')) return sendFile(res, join(helpDir, basename(path)));
    if (path === '/api/state') return send(res, 200, state);
    if (path === '/api/events') {
      res.writeHead(200, { 'Content-Type': 'text/event-stream', 'Cache-Control': 'no-cache' });
      res.write(`event: state\ndata: ${JSON.stringify(state)}\n\n`);
      clients.add(res);
      req.on('close', () => clients.delete(res));
      return undefined;
    }
    if (path === '/api/files') return send(res, ...listFolder(url.searchParams));
    const data = /^\/api\/datasets\/(\d+)\/(table|plot|export\.csv|export\.json)$/.exec(path);
    if (data) {
      const set = fullSets[Number(data[1])];
      if (!set) return send(res, 404, { error: 'no such data set' });
      const zone = Number(url.searchParams.get('zone') ?? 1) - 1;
      if (!set.zones[zone]) return send(res, 404, { error: 'no such zone' });
      if (data[2] === 'table') {
        const rows = Math.min(1000, Number(url.searchParams.get('rows') ?? 100));
        const values = set.zones[zone].values;
        return send(res, 200, { variables: set.variables, rows: values[0].slice(0, rows).map((_, p) => values.map((v) => v[p])) });
      }
      if (data[2] === 'plot') return send(res, 200, plotBuffer(set, zone, Number(url.searchParams.get('width') ?? 1000)), 'application/octet-stream');
      if (data[2] === 'export.csv') return send(res, 200, `${csvParts[Number(data[1]) - preloaded].replace(/\n?$/, '\n')}`, 'text/csv');
      return send(res, 200, JSON.stringify(set, null, 2), 'application/json; charset=utf-8');
    }
    return send(res, 404, { error: 'not found' });
  }
  const body = await readBody(req);
  if (body === null) return send(res, 400, { error: 'the body is not JSON' });
  if (path === '/api/action') {
    const refused = await perform(body);
    return refused ? send(res, 409, { error: refused }) : send(res, 200, { ok: true });
  }
  if (path === '/api/box') {
    if (!waitingBox || waitingBox.box.id !== body.id) return send(res, 409, { error: 'no such box is waiting' });
    const { resolve: answer } = waitingBox;
    waitingBox = null;
    state.box = null;
    publish();
    answer(body);
    return send(res, 200, { ok: true });
  }
  if (path === '/api/progress/cancel') return send(res, 409, { error: 'no progress box is up' });
  if (path === '/api/layout') {
    if (!existsSync(join(work, 'last-layout.json'))) return send(res, 409, { error: 'nothing was loaded' });
    try {
      mkdirSync(dirname(body.path), { recursive: false });
    } catch { /* the folder is there */ }
    copyFileSync(join(work, 'last-layout.json'), body.path);
    return send(res, 200, { ok: true });
  }
  return send(res, 404, { error: 'not found' });
});

server.listen(port, '127.0.0.1', () => {
  process.stdout.write(`Open http://127.0.0.1:${server.address().port}/?token=${token}\n`);
});
const stop = () => {
  server.close();
  for (const client of clients) client.end();
  rmSync(work, { recursive: true, force: true });
  process.exit(0);
};
process.on('SIGTERM', stop);
process.on('SIGINT', stop);
