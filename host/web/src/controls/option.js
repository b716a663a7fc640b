// An option menu: a drop-down list that picks one item.
import { h, setText } from '../dom.js';

export function create(control, ctx) {
  const select = h('select', {
    class: 'ctl option',
    onchange: () => ctx.act({ type: 'choose', control: control.id, item: select.selectedIndex + 1 }),
  });
  return select;
}

export function update(el, control) {
  const items = control.items ?? [];
  while (el.options.length > items.length) el.lastChild.remove();
  while (el.options.length < items.length) el.append(h('option'));
  items.forEach((text, index) => setText(el.options[index], text));
  el.selectedIndex = (control.selected?.[0] ?? 0) - 1;
  el.disabled = !control.sensitive;
}
