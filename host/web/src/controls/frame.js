// A frame: a border around a group of controls, its label on the top edge.
import { h, setText } from '../dom.js';

export function create() {
  return h('div', { class: 'ctl frame' }, h('span', { class: 'frame-label' }));
}

export function update(el, control) {
  const label = el.firstChild;
  setText(label, control.label ?? '');
  label.hidden = !control.label;
}
