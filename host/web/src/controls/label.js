// A label: a static text, or one that shows a value the add-on sets.
import { h, setText } from '../dom.js';

export function create() {
  return h('span', { class: 'ctl label' });
}

export function update(el, control) {
  setText(el, control.text ?? control.label ?? '');
  el.classList.toggle('value', control.label === null);
}
