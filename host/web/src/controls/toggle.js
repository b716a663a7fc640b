// A toggle: a check box with its label.
import { h, setText } from '../dom.js';

export function create(control, ctx) {
  const box = h('input', {
    type: 'checkbox',
    onchange: () => ctx.act({ type: 'toggle', control: control.id, on: box.checked }),
  });
  return h('label', { class: 'ctl toggle' }, box, h('span'));
}

export function update(el, control) {
  const [box, text] = el.children;
  box.checked = Boolean(control.on);
  box.disabled = !control.sensitive;
  setText(text, control.label ?? '');
}
