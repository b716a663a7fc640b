// A multi-line text; read-only ones (the data preview) are monospaced,
// scroll both ways and do not wrap.
import { h } from '../dom.js';
import { makeEditable, showText } from './editing.js';

export function create(control, ctx) {
  const area = h('textarea', { class: 'ctl text', spellcheck: 'false' });
  return makeEditable(area, control, ctx);
}

export function update(el, control) {
  const readOnly = Boolean(control.readOnly);
  el.classList.toggle('read-only', readOnly);
  el.wrap = readOnly ? 'off' : 'soft';
  showText(el, control);
}
