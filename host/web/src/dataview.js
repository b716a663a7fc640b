// The data view below the menu: the data sets loaded so far; for the one
// picked, its title, variables, zones and their sizes, a plot by its plot
// type, a table of the first rows, the check of the load, the exports and
// the layout.
import { h, clear } from './dom.js';
import { checkReport, dataTable, exportUrl, plotData, saveLayout } from './api.js';
import { parsePlot } from './plots/plotdata.js';
import { drawPlot } from './plots/index.js';

const TABLE_ROWS = 20;
const PLOT_HEIGHT = 420;
const PLOT_NAMES = { 1: '3-D scatter', 2: '2-D scatter', 3: 'XY lines' };

const zoneSize = (zone) => [zone.imax, zone.jmax, zone.kmax].filter((n, i) => i === 0 || n > 1).join(' × ');

export class DataView {
  constructor(root) {
    this.root = root;
    this.signature = '';
    this.picked = null; // index of the data set shown
    this.plot = null;
    this.generation = 0; // of the zone shown last
  }

  render(dataSets) {
    const signature = JSON.stringify(dataSets);
    if (signature === this.signature) return;
    const grew = dataSets.length > (this.signature ? JSON.parse(this.signature).length : 0);
    this.signature = signature;
    this.dataSets = dataSets;
    if (grew || this.picked === null || this.picked >= dataSets.length) this.picked = dataSets.length - 1;
    this.draw();
  }

  draw() {
    this.plot?.destroy();
    this.plot = null;
    clear(this.root);
    if (this.dataSets.length === 0) {
      this.root.append(h('p', { class: 'empty' }, 'No data loaded yet. Use File > Load Data... to load a file.'));
      return;
    }
    const tabs = h('nav', { class: 'dataset-tabs', 'aria-label': 'Data sets' }, this.dataSets.map((set, i) => h('button', {
      type: 'button',
      class: i === this.picked ? 'picked' : '',
      'aria-pressed': i === this.picked ? 'true' : 'false',
      onclick: () => {
        this.picked = i;
        this.draw();
      },
    }, `${i + 1}. ${set.title}`)));
    this.root.append(tabs, this.dataSetView(this.dataSets[this.picked]));
  }

  dataSetView(set) {
    const zonePick = h('select', { class: 'zone-pick', 'aria-label': 'Zone' },
      set.zones.map((zone, i) => h('option', { value: i + 1 }, zone.name)));
    zonePick.hidden = set.zones.length < 2;
    const plotBox = h('div', { class: 'plot' });
    const tableBox = h('div', { class: 'table-box' });
    const showZone = () => this.showZone(set, Number(zonePick.value), plotBox, tableBox);
    zonePick.addEventListener('change', showZone);

    const view = h('article', { class: 'dataset' },
      h('h2', { class: 'dataset-title' }, set.title),
      h('p', { class: 'dataset-variables' }, h('strong', {}, 'Variables: '), set.variables.join(', ')),
      h('table', { class: 'zones' },
        h('thead', {}, h('tr', {}, ['Zone', 'Size', 'Points'].map((t) => h('th', {}, t)))),
        h('tbody', {}, set.zones.map((zone) => h('tr', {},
          h('td', {}, zone.name), h('td', {}, zoneSize(zone)), h('td', {}, String(zone.points)))))),
      this.checkView(set),
      this.exports(set),
      h('div', { class: 'plot-head' },
        h('h3', {}, `Plot: ${PLOT_NAMES[set.plotType] ?? PLOT_NAMES[3]}`), zonePick),
      plotBox,
      h('h3', {}, `First ${TABLE_ROWS} rows`),
      tableBox);
    queueMicrotask(showZone);
    return view;
  }

  // The check of the load, the summary as corvane check prints it: the
  // count, then per kind found its count and first places.
  checkView(set) {
    const status = h('p', { class: 'check-result', role: 'status' }, 'Checking the load...');
    const box = h('section', { class: 'check', 'aria-label': 'Check' }, h('h3', {}, 'Check'), status);
    box.dataset.state = 'checking';
    checkReport(set.index).then((report) => {
      status.remove();
      box.append(h('pre', { class: 'check-report' }, report.text));
      box.dataset.state = report.found === 0 ? 'clean' : 'found';
    }, (error) => {
      status.textContent = `No check: ${error.message}`;
      box.dataset.state = 'failed';
    });
    return box;
  }

  exports(set) {
    const path = h('input', { type: 'text', class: 'layout-path', 'aria-label': 'Layout file', placeholder: '/path/to/run.layout.json', spellcheck: 'false' });
    const result = h('p', { class: 'layout-result', role: 'status' });
    const save = async () => {
      const file = path.value.trim();
      if (!file.startsWith('/')) {
        result.textContent = 'Give the layout file as an absolute path.';
        return;
      }
      try {
        await saveLayout(file);
        result.textContent = `Layout saved to ${file}. Replay it with: corvane replay ${file}`;
      } catch (error) {
        result.textContent = `The layout was not saved: ${error.message}`;
      }
    };
    path.addEventListener('keydown', (event) => {
      if (event.key === 'Enter') save();
    });
    return h('div', { class: 'dataset-actions' },
      h('a', { class: 'button export-csv', href: exportUrl(set.index, 'csv'), download: `dataset${set.index + 1}.csv` }, 'Export CSV'),
      h('a', { class: 'button export-json', href: exportUrl(set.index, 'json'), download: `dataset${set.index + 1}.json` }, 'Export JSON'),
      h('div', { class: 'layout-form' },
        h('label', {}, 'Save the layout of this run\'s loads to ', path),
        h('button', { type: 'button', class: 'save-layout', onclick: save }, 'Save Layout'),
        h('p', { class: 'hint' }, h('code', {}, 'corvane replay FILE'),
          ' replays a saved layout: it loads the same files the same way again.'),
        result));
  }

  async showZone(set, zone, plotBox, tableBox) {
    this.plot?.destroy();
    this.plot = null;
    // A newer zone or data set shown meanwhile makes this one's results moot.
    const generation = ++this.generation;
    const current = () => generation === this.generation;
    clear(plotBox);
    clear(tableBox);
    const width = Math.max(300, Math.floor(plotBox.clientWidth || 900));
    const started = performance.now();
    plotBox.dataset.state = 'loading';
    try {
      const plot = parsePlot(await plotData(set.index, zone, width, PLOT_HEIGHT));
      if (!current()) return;
      if (plot instanceof Error) throw plot;
      const drawn = await drawPlot(plotBox, plot, set.variables, width, PLOT_HEIGHT);
      if (!current()) {
        drawn.destroy();
        return;
      }
      this.plot = drawn;
      plotBox.dataset.points = String(plot.count);
      plotBox.dataset.drawMs = String(Math.round(performance.now() - started));
      plotBox.dataset.state = 'drawn';
    } catch (error) {
      plotBox.append(h('p', { class: 'plot-note' }, `No plot: ${error.message}`));
      plotBox.dataset.state = 'failed';
    }
    try {
      const table = await dataTable(set.index, zone, TABLE_ROWS);
      if (!current()) return;
      tableBox.append(h('table', { class: 'rows' },
        h('thead', {}, h('tr', {}, table.variables.map((v) => h('th', {}, v)))),
        h('tbody', {}, table.rows.map((row) => h('tr', {}, row.map((v) => h('td', {}, v === null ? '' : String(v))))))));
    } catch (error) {
      tableBox.append(h('p', { class: 'plot-note' }, `No table: ${error.message}`));
    }
  }
}
