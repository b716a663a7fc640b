// The page driven in headless Chromium as a user drives it, against
// corvane ui (or the mock server until the real one is built): a file
// loaded through the loader's dialogs, the data view, the exports compared
// with corvane load, a question box, help, a second tab, a dropped stream.
import assert from 'node:assert/strict';
import { spawnSync } from 'node:child_process';
import { copyFileSync, existsSync, mkdtempSync, readFileSync, rmSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { after, afterEach, before, test } from 'node:test';
import { corvane, launchBrowser, repoRoot, shoot, startServer } from './harness.mjs';

const examples = join(repoRoot, 'examples');
let server;
let browser;

before(async () => {
  server = await startServer();
  browser = await launchBrowser();
  console.log(`# browser tests against the ${server.kind} server`);
});

after(async () => {
  await browser?.close();
  await server?.stop();
});

// After each test, whatever it left up is answered No or cancelled, so that
// the next test starts with no box and no dialog.
afterEach(async () => {
  const call = async (path, body) => {
    const response = await fetch(`${server.origin}${path}?token=${new URL(server.url).searchParams.get('token')}`,
      body ? { method: 'POST', headers: { 'Content-Type': 'application/json' }, body: JSON.stringify(body) } : {});
    return response.json();
  };
  for (let round = 0; round < 20; round += 1) {
    const state = await call('/api/state');
    if (state.box) await call('/api/box', state.box.kind === 'file' ? { id: state.box.id, path: null } : { id: state.box.id, answer: false });
    else if (state.progress) await call('/api/progress/cancel', {});
    else if (state.dialogs.length > 0) await call('/api/action', { type: 'dialogButton', dialog: state.dialogs.at(-1).id, button: 'cancel' });
    else return;
  }
});

// Retries an assertion until it holds or the time is up.
async function eventually(check, timeout = 15000) {
  const end = Date.now() + timeout;
  for (;;) {
    try {
      return await check();
    } catch (error) {
      if (Date.now() > end) throw error;
      await new Promise((done) => setTimeout(done, 100));
    }
  }
}

const dialog = (page, title) => page.locator(`section.dialog[aria-label="${title}"]`);
const topTitles = (page) => page.locator('section.dialog .dialog-title').allTextContents();
const button = (scope, name) => scope.getByRole('button', { name, exact: true });

async function expectDialogs(page, titles) {
  await eventually(async () => assert.deepEqual(await topTitles(page), titles));
}

async function listItems(list) {
  return list.locator('.list-item').allTextContents();
}

async function selectedItems(list) {
  return list.locator('.list-item.selected').allTextContents();
}

// File > Load Data... > Ordalis Loader.
async function openLoader(page) {
  await button(page, 'File').click();
  await page.getByRole('menuitem', { name: 'Load Data...' }).click();
  await page.getByRole('menuitem', { name: 'Ordalis Loader' }).click();
}

async function openPage() {
  const page = await browser.context.newPage();
  await page.goto(server.url);
  await page.locator('.main-window').waitFor();
  return page;
}

test('the page is refused without the token and works with the token URL', async () => {
  const bare = await fetch(`${server.origin}/`);
  assert.equal(bare.status, 403);
  const page = await openPage();
  assert.equal(new URL(page.url()).pathname, '/');
  await eventually(async () => assert.equal(await page.locator('.data-view').textContent(),
    'No data loaded yet. Use File > Load Data... to load a file.'));
  await page.close();
});

test('a file loaded through the dialogs, shown, exported and kept in a layout', async () => {
  const page = await openPage();
  const errors = [];
  page.on('pageerror', (error) => errors.push(error.message));

  // File > Load Data... lists the loaders; the loader's dialog comes up.
  await button(page, 'File').click();
  await page.getByRole('menuitem', { name: 'Load Data...' }).click();
  assert.deepEqual(await page.locator('.submenu .menu-item').allTextContents(), ['Ordalis Loader']);
  await page.getByRole('menuitem', { name: 'Ordalis Loader' }).click();
  await expectDialogs(page, ['Ordalis Loader']);
  const main = dialog(page, 'Ordalis Loader');
  assert.equal(await main.locator('.label.value').first().textContent(), 'No file selected.');
  assert.equal(await button(main, 'Scan File').isDisabled(), true);

  // Browse...: the chooser lists the examples folder, folders first, then
  // the files of the set's pattern, *.txt.
  await button(main, 'Browse...').click();
  const chooser = page.locator('.box-file');
  await chooser.waitFor();
  // The first listing (the home folder) is in before another folder is typed.
  await eventually(async () => assert.notEqual(await chooser.getByLabel('Folder').inputValue(), ''));
  await chooser.getByLabel('Folder').fill(examples);
  await chooser.getByLabel('Folder').press('Enter');
  await eventually(async () => assert.deepEqual(
    (await chooser.locator('.entry-name').allTextContents()).slice(0, 4),
    ['realdata/', 'scripts/', 'cooling_curve.txt', 'duct_pressure.txt']));
  // Arrow keys walk the entries, Enter picks the file.
  await chooser.getByRole('listbox', { name: 'Files' }).focus();
  for (let i = 0; i < 3; i += 1) await page.keyboard.press('ArrowDown');
  assert.equal(await chooser.getByLabel('File name').inputValue(), 'cooling_curve.txt');
  await page.keyboard.press('Enter');
  const dataFile = join(examples, 'cooling_curve.txt');
  // The loader shows the path, shortened in the middle when it is longer than 37 characters.
  const fileName = main.locator('.label.value').first();
  await eventually(async () => {
    const shown = await fileName.textContent();
    if (dataFile.length <= 37) assert.equal(shown, dataFile);
    else assert.match(shown, /^\/.*\.\.\.\/cooling_curve\.txt$/);
  });
  const preview = main.getByRole('textbox', { name: 'Data Preview' });
  await eventually(async () => assert.equal(await preview.inputValue(),
    '  1: "Cooling curve of sample A"\n  2: time temperature\n  3: 0 95.5\n  4: 60 81.25\n  5: 120 70\n  6: 180 61.75\n  7: 240 55.5\n'));
  assert.equal(await preview.evaluate((el) => [el.readOnly, getComputedStyle(el).whiteSpace].join()), 'true,pre');
  await shoot(page, 'main-dialog');

  // A new set, made current; its sections edited in the section dialogs.
  const sets = main.getByRole('listbox', { name: 'Config Files:' });
  await button(main, 'New').click();
  await eventually(async () => assert.deepEqual(await listItems(sets), ['<untitled>', '<untitled>']));
  assert.deepEqual(await sets.locator('.list-item').evaluateAll((rows) => rows.map((r) => r.classList.contains('selected'))), [false, true]);

  await button(main, 'Title...').click();
  await expectDialogs(page, ['Ordalis Loader', 'Dataset Title']);
  const title = dialog(page, 'Dataset Title');
  assert.equal(await main.evaluate((el) => el.inert && el.classList.contains('below')), true);
  const lineNumber = title.getByRole('textbox', { name: 'Line Number:' });
  assert.equal(await lineNumber.isDisabled(), true);
  await title.getByRole('radio', { name: 'Use Line Number:' }).check();
  await eventually(async () => assert.equal(await lineNumber.isDisabled(), false));
  await lineNumber.fill('1');
  await lineNumber.press('Tab');
  await shoot(page, 'title-dialog');
  await button(title, 'OK').click();
  await expectDialogs(page, ['Ordalis Loader']);

  await button(main, 'Variables...').click();
  const variables = dialog(page, 'Variable Import Instructions');
  await variables.waitFor();
  await variables.getByRole('radio', { name: 'Scan for Variable Names' }).check();
  const startLine = variables.getByRole('textbox', { name: 'Start Line:' });
  await eventually(async () => assert.equal(await startLine.isDisabled(), false));
  await startLine.fill('2');
  await startLine.press('Tab');
  // Tab goes on in the order the controls were created: End Line is next.
  assert.equal(await page.evaluate(() => document.activeElement.getAttribute('aria-label')), 'End Line:');
  await page.keyboard.type('2');
  await page.keyboard.press('Tab');
  await variables.getByRole('combobox', { name: 'Delimiter:' }).selectOption('Space');
  await shoot(page, 'variables-dialog');
  // Enter presses OK.
  await variables.getByRole('combobox', { name: 'Delimiter:' }).press('Enter');
  await expectDialogs(page, ['Ordalis Loader']);

  // A second tab shows the same dialogs; typing in the first survives the
  // changes the second makes.
  const other = await browser.context.newPage();
  await other.goto(`${server.origin}/`);
  await button(main, 'Data...').click();
  await expectDialogs(page, ['Ordalis Loader', 'Data Import Instructions']);
  await expectDialogs(other, ['Ordalis Loader', 'Data Import Instructions']);
  const data = dialog(page, 'Data Import Instructions');
  const dataStart = data.getByRole('textbox', { name: 'Start Line:' });
  await dataStart.click();
  await dataStart.fill('3');
  const zones = (tab) => dialog(tab, 'Data Import Instructions').getByRole('checkbox', { name: 'Allow Multiple Zones' });
  const zoneKeyword = data.getByRole('textbox', { name: 'Zones end on line with keyword:' });
  assert.equal(await zoneKeyword.isDisabled(), true);
  await zones(other).check();
  await eventually(async () => assert.equal(await zones(page).isChecked(), true));
  assert.equal(await zoneKeyword.isDisabled(), false);
  assert.deepEqual(await page.evaluate(() => [document.activeElement.getAttribute('aria-label'), document.activeElement.value]), ['Start Line:', '3']);
  await zones(other).uncheck();
  await eventually(async () => assert.equal(await zones(page).isChecked(), false));
  await other.close();

  // Block format: the loader says what else it needs in a message box,
  // which takes the focus and is closed with Enter.
  await data.getByRole('radio', { name: 'Block Format (All of V1, All of V2)' }).click();
  const message = page.locator('.box-warning');
  await message.waitFor();
  assert.deepEqual([await message.locator('.dialog-title').textContent(), await message.locator('.box-text').textContent()],
    ['Warning', 'If the data format is BLOCK, then you must also specify the dimensions.']);
  await eventually(async () => assert.equal(await page.evaluate(() => document.activeElement.textContent), 'OK'));
  await page.keyboard.press('Enter');
  await message.waitFor({ state: 'detached' });
  await eventually(async () => assert.equal(await data.getByRole('radio', { name: 'Block Format (All of V1, All of V2)' }).isChecked(), true));
  await data.getByRole('radio', { name: 'Point Format (V1,V2,...Vn)' }).click();
  await eventually(async () => assert.equal(await data.getByRole('radio', { name: 'Point Format (V1,V2,...Vn)' }).isChecked(), true));
  // The loader switched to given dimensions; back to calculated ones.
  await eventually(async () => assert.equal(await data.getByRole('radio', { name: 'Specify Dimensions' }).isChecked(), true));
  await data.getByRole('radio', { name: 'Auto-Calculate IMax' }).click();
  await eventually(async () => assert.equal(await data.getByRole('textbox', { name: 'IMax:' }).isDisabled(), true));

  await data.getByRole('radio', { name: 'First All Numeric Line' }).check();
  await data.getByRole('radio', { name: 'End of File' }).check();
  await data.getByRole('combobox', { name: 'Data Value Delimiter:' }).selectOption('Space');
  await eventually(async () => assert.equal(await data.getByRole('textbox', { name: 'Start Line:' }).isDisabled(), true));
  await shoot(page, 'data-dialog');
  await button(data, 'OK').click();
  await expectDialogs(page, ['Ordalis Loader']);

  // The other section dialogs, each left with Escape (Cancel).
  for (const [label, name, shot] of [['General Filters...', 'General Filters', 'filters-dialog'], ['View Options...', 'View Options', 'view-options-dialog']]) {
    await button(main, label).click();
    await expectDialogs(page, ['Ordalis Loader', name]);
    await shoot(page, shot);
    await page.keyboard.press('Escape');
    await expectDialogs(page, ['Ordalis Loader']);
  }

  // Saved to the library: the chooser proposes untitled.twc.
  await button(main, 'Save...').click();
  await chooser.waitFor();
  assert.equal(await chooser.getByLabel('File name').inputValue(), 'untitled.twc');
  await chooser.getByLabel('File name').fill('cooling_curve.twc');
  await button(chooser, 'Save').click();
  await eventually(async () => assert.deepEqual(await listItems(sets), ['<untitled>', 'cooling_curve.twc']));

  // The processed preview.
  await main.getByRole('radio', { name: 'View Processed Data' }).check();
  await button(main, 'Scan File').click();
  await eventually(async () => assert.match(await preview.inputValue(), /^ time  temperature \n------ ----------- \n/));
  assert.match(await preview.inputValue(), /\n {3}240 {8}55\.5 /);

  await button(main, 'OK').click();
  await expectDialogs(page, []);

  // The data view: title, variables, zones, plot and table.
  const view = page.locator('.data-view');
  await eventually(async () => assert.equal(await view.locator('.dataset-title').textContent(), 'Cooling curve of sample A'));
  assert.equal(await view.locator('.dataset-variables').textContent(), 'Variables: time, temperature');
  assert.deepEqual(await view.locator('table.zones tbody td').allTextContents(), ['Zone 1', '5', '5']);
  assert.equal(await view.locator('.plot-head h3').textContent(), 'Plot: XY lines');
  await eventually(async () => assert.equal(await view.locator('.plot').getAttribute('data-state'), 'drawn'));
  assert.equal(await view.locator('.plot').getAttribute('data-points'), '5');
  assert.deepEqual(await view.locator('.plot .u-legend .u-series th').allTextContents(), ['time', 'temperature']);
  await eventually(async () => assert.deepEqual(await view.locator('table.rows tr').evaluateAll(
    (rows) => rows.map((r) => [...r.cells].map((c) => c.textContent).join(' '))),
  ['time temperature', '0 95.5', '60 81.25', '120 70', '180 61.75', '240 55.5']));
  // The check of the load, as corvane check prints it.
  await eventually(async () => assert.equal(await view.locator('.check').getAttribute('data-state'), 'clean'));
  assert.equal(await view.locator('.check-report').textContent(),
    `${dataFile}: nothing found where the loaded numbers may differ from the file\n`);
  await shoot(view.locator('.dataset'), 'plot');

  // The CSV export is what corvane load writes for the same file and set.
  const scratch = mkdtempSync(join(tmpdir(), 'corvane-web-test-'));
  try {
    const [download] = await Promise.all([page.waitForEvent('download'), view.getByText('Export CSV').click()]);
    const exported = readFileSync(await download.path(), 'utf8');
    const set = join(server.library, 'cooling_curve.twc');
    const loaded = spawnSync(corvane, ['load', dataFile, '--set', set, '-o', join(scratch, 'load.csv')], { encoding: 'utf8' });
    assert.equal(loaded.status, 0, loaded.stderr);
    assert.equal(exported, readFileSync(join(scratch, 'load.csv'), 'utf8'));
    assert.equal(exported, 'time,temperature\n0,95.5\n60,81.25\n120,70\n180,61.75\n240,55.5\n');

    const [jsonDownload] = await Promise.all([page.waitForEvent('download'), view.getByText('Export JSON').click()]);
    const json = JSON.parse(readFileSync(await jsonDownload.path(), 'utf8'));
    assert.deepEqual([json.title, json.variables, json.zones[0].values], ['Cooling curve of sample A', ['time', 'temperature'], [[0, 60, 120, 180, 240], [95.5, 81.25, 70, 61.75, 55.5]]]);

    // The layout, and corvane replay of it loads the same data again.
    const layout = join(scratch, 'run.layout.json');
    assert.match(await view.locator('.layout-form .hint').textContent(), /^corvane replay FILE replays a saved layout/);
    await view.getByLabel('Layout file').fill(layout);
    await button(view, 'Save Layout').click();
    await eventually(async () => assert.equal(await view.locator('.layout-result').textContent(),
      `Layout saved to ${layout}. Replay it with: corvane replay ${layout}`));
    const replayed = spawnSync(corvane, ['replay', layout, '-o', join(scratch, 'replay.csv')], { encoding: 'utf8' });
    assert.equal(replayed.status, 0, replayed.stderr);
    assert.equal(readFileSync(join(scratch, 'replay.csv'), 'utf8'), exported);
  } finally {
    rmSync(scratch, { recursive: true, force: true });
  }
  assert.deepEqual(errors, []);
  await page.close();
});

test('a question box answered No keeps the set; Help opens its page in a new tab', async () => {
  const page = await openPage();
  await openLoader(page);
  const main = dialog(page, 'Ordalis Loader');
  await main.waitFor();
  const sets = main.getByRole('listbox', { name: 'Config Files:' });
  await eventually(async () => assert.deepEqual(await listItems(sets), ['<untitled>', 'cooling_curve.twc']));
  await sets.getByText('cooling_curve.twc').click();
  await eventually(async () => assert.deepEqual(await selectedItems(sets), ['cooling_curve.twc']));

  await button(main, 'Delete').click();
  const question = page.locator('.box-question');
  await question.waitFor();
  assert.equal(await question.locator('.box-text').textContent(),
    `Are you sure you want to permanently delete the file "${join(server.library, 'cooling_curve.twc')}" ?`);
  await eventually(async () => assert.equal(await main.evaluate((el) => el.inert), true));
  await shoot(page, 'question-box');
  await button(question, 'No').click();
  await question.waitFor({ state: 'detached' });
  await eventually(async () => assert.deepEqual(await listItems(sets), ['<untitled>', 'cooling_curve.twc']));
  await eventually(async () => assert.equal(existsSync(join(server.library, 'cooling_curve.twc')), true));

  const [help] = await Promise.all([browser.context.waitForEvent('page'), button(main, 'Help').click()]);
  await help.waitForLoadState();
  assert.equal(new URL(help.url()).pathname, '/help/addon_ordalis_loader_overview.html');
  await help.close();

  await page.keyboard.press('Escape');
  await expectDialogs(page, []);
  await page.close();
});

test('several variables selected with Ctrl-click, in the order clicked', async () => {
  const page = await openPage();
  await openLoader(page);
  const main = dialog(page, 'Ordalis Loader');
  await main.waitFor();
  await button(main, 'New').click();
  await button(main, 'Variables...').click();
  const variables = dialog(page, 'Variable Import Instructions');
  await variables.getByRole('radio', { name: 'Enter Variable Names' }).check();
  const names = variables.getByRole('textbox', { name: 'Variable Names: (separate by carriage return or comma)' });
  await names.fill('index\nx\ny\npressure\nflag');
  // Enter inside a multi-line text is a line break, not OK.
  await names.press('End');
  await names.press('Enter');
  await names.press('Backspace');
  await expectDialogs(page, ['Ordalis Loader', 'Variable Import Instructions']);
  await button(variables, 'Select Variables to Load...').click();
  await expectDialogs(page, ['Ordalis Loader', 'Variable Import Instructions', 'Variables to load']);
  const pick = dialog(page, 'Variables to load');
  await button(pick, '<< Move All').click();
  const skip = pick.getByRole('listbox').first();
  await eventually(async () => assert.deepEqual(await listItems(skip), ['index', 'x', 'y', 'pressure', 'flag']));
  await skip.getByText('pressure', { exact: true }).click();
  await skip.getByText('x', { exact: true }).click({ modifiers: ['Control'] });
  await skip.getByText('flag', { exact: true }).click({ modifiers: ['Control'] });
  await skip.getByText('flag', { exact: true }).click({ modifiers: ['Control'] });
  await eventually(async () => assert.deepEqual(await selectedItems(skip), ['x', 'pressure']));
  await button(pick, 'Move >>').click();
  const load = pick.getByRole('listbox').nth(1);
  await eventually(async () => assert.deepEqual(await listItems(load), ['pressure', 'x']));
  await eventually(async () => assert.equal(await pick.locator('.label.value').first().textContent(), '2,4'));
  await shoot(page, 'variables-to-load-dialog');
  for (const below of [['Ordalis Loader', 'Variable Import Instructions'], ['Ordalis Loader'], []]) {
    await page.keyboard.press('Escape');
    await expectDialogs(page, below);
  }
  await page.close();
});

test('a dropped event stream is shown and the page reconnects', async () => {
  const page = await browser.context.newPage();
  let attempts = 0;
  await page.route('**/api/events', (route) => {
    attempts += 1;
    if (attempts === 1) return route.fulfill({ status: 200, contentType: 'text/event-stream', body: '' });
    if (attempts === 2) return route.fulfill({ status: 503, body: 'down' });
    return route.continue();
  });
  await page.goto(server.url);
  const banner = page.locator('#connection');
  await banner.waitFor({ state: 'visible' });
  assert.equal(await banner.textContent(), 'The connection to corvane was lost. Reconnecting...');
  await banner.waitFor({ state: 'hidden' });
  assert.equal(attempts, 3);
  await eventually(async () => assert.equal(await button(page, 'File').isVisible(), true));
  await page.close();
});

test('the progress box shows its label and bar, and Cancel is sent once', async () => {
  // A state with a progress box, as the server sends it during a long scan.
  const page = await browser.context.newPage();
  const state = { version: 9, loaders: ['Ordalis Loader'], dialogs: [], box: null, busy: 'Loading data...',
    progress: { label: 'Scanning file...', percent: 40, cancel: true }, dataSets: [] };
  await page.route('**/api/events', (route) => route.fulfill({
    status: 200, contentType: 'text/event-stream', body: `event: state\ndata: ${JSON.stringify(state)}\n\n` }));
  const cancels = [];
  await page.route('**/api/progress/cancel', (route) => {
    cancels.push(route.request().method());
    return route.fulfill({ status: 200, contentType: 'application/json', body: '{"ok":true}' });
  });
  await page.goto(server.url);
  const box = page.locator('.box-progress');
  await box.waitFor();
  assert.deepEqual([await box.locator('.box-text').textContent(), await box.locator('.progress-percent').textContent(),
    await box.locator('.progress-fill').evaluate((el) => el.style.width), await page.locator('#busy').textContent()],
  ['Scanning file...', '40%', '40%', 'Loading data...']);
  await button(box, 'Cancel').click();
  await eventually(async () => assert.deepEqual(cancels, ['POST']));
  assert.equal(await button(box, 'Cancel').isDisabled(), true);
  await page.close();
});
