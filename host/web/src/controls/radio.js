// A radio box: its items stacked in the box's rectangle, one picked.
import { h, setText } from '../dom.js';

function item(control, ctx, position) {
  const input = h('input', {
    type: 'radio',
    name: `radio-${control.id}`,
    onchange: () => ctx.act({ type: 'choose', control: control.id, item: position }),
  });
  return h('label', { class: 'radio-item' }, input, h('span'));
}

export function create() {
  return h('div', { class: 'ctl radio', role: 'radiogroup' });
}

export function update(el, control, ctx) {
  const items = control.items ?? [];
  while (el.children.length > items.length) el.lastChild.remove();
  while (el.children.length < items.length) el.append(item(control, ctx, el.children.length + 1));
  const picked = control.selected?.[0] ?? 0;
  items.forEach((text, index) => {
    const row = el.children[index];
    const [input, span] = row.children;
    setText(span, text);
    input.checked = index + 1 === picked;
    input.disabled = !control.sensitive;
    row.style.height = `${100 / items.length}%`;
  });
}
