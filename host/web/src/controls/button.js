// A push button of the add-on's.
import { h, setText } from '../dom.js';

export function create(control, ctx) {
  return h('button', {
    type: 'button',
    class: 'ctl button',
    onclick: () => ctx.act({ type: 'press', control: control.id }),
  });
}

export function update(el, control) {
  setText(el, control.label ?? '');
  el.disabled = !control.sensitive;
}
