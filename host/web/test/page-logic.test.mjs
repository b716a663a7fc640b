// The page's own reckoning, without a browser: list selections by clicks
// and modifiers, the chooser's paths, and the binary plot data.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { nextSelection } from '../src/controls/list.js';
import { baseName, chosenPath } from '../src/filechooser.js';
import { extent, parsePlot } from '../src/plots/plotdata.js';

test('list clicks give the selection in the order the items were picked', () => {
  const rows = [
    // current, clicked, modifiers, expected
    [[2], 4, { multi: false, ctrl: true }, [4]],
    [[2], 4, { multi: true }, [4]],
    [[2], 4, { multi: true, ctrl: true }, [2, 4]],
    [[4, 2], 1, { multi: true, ctrl: true }, [4, 2, 1]],
    [[4, 2, 1], 2, { multi: true, ctrl: true }, [4, 1]],
    [[2], 5, { multi: true, shift: true, anchor: 2 }, [2, 3, 4, 5]],
    [[5], 2, { multi: true, shift: true, anchor: 5 }, [5, 4, 3, 2]],
    [[1, 3], 4, { multi: true, shift: true, anchor: 2 }, [1, 3, 2, 4]],
    [[3], 1, { multi: true, shift: true }, [3, 1]],
  ];
  for (const [current, clicked, modifiers, expected] of rows) {
    assert.deepEqual(nextSelection(current, clicked, modifiers), expected, JSON.stringify([current, clicked, modifiers]));
  }
});

test('the chooser answers with absolute paths', () => {
  assert.equal(chosenPath('/home/u/sets', 'cooling.twc'), '/home/u/sets/cooling.twc');
  assert.equal(chosenPath('/', ' a.twc '), '/a.twc');
  assert.equal(chosenPath('/home/u/sets/', '/tmp/other.twc'), '/tmp/other.twc');
  assert.equal(baseName('/home/u/addonconfig/tabwise/untitled.twc'), 'untitled.twc');
  assert.equal(baseName('/home/u/addonconfig/tabwise/'), 'tabwise');
  assert.equal(baseName(''), '');
});

function plotBuffer(header, values) {
  const buffer = new ArrayBuffer(16 + values.length * 4);
  const view = new DataView(buffer);
  header.forEach((n, i) => view.setUint32(i * 4, n, true));
  values.forEach((v, i) => view.setFloat32(16 + i * 4, v, true));
  return buffer;
}

test('plot data is read by its header, and anything else is refused', () => {
  const plot = parsePlot(plotBuffer([0x43565031, 3, 2, 3], [0, 1, 2, 10, 0.5, NaN]));
  assert.equal(plot.kind, 3);
  assert.equal(plot.count, 3);
  assert.deepEqual(plot.series.map((s) => Array.from(s)), [[0, 1, 2], [10, 0.5, NaN]]);

  assert.equal(parsePlot(new ArrayBuffer(8)).message, 'plot data too short');
  assert.equal(parsePlot(plotBuffer([0x43565032, 3, 1, 1], [1])).message, 'not plot data');
  assert.equal(parsePlot(plotBuffer([0x43565031, 3, 2, 3], [1, 2, 3])).message, 'plot data of the wrong length');

  assert.deepEqual(extent(new Float32Array([3, NaN, -1, 2])), [-1, 3]);
  assert.deepEqual(extent([7, 7]), [6.5, 7.5]);
  assert.deepEqual(extent([NaN], []), [0, 1]);
});
