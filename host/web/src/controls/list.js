// A list: a click selects an item; in a multi-selection list Ctrl-click
// adds or removes one and Shift-click adds a range. The selection goes to
// the server in the order the items were selected.
import { h, setText } from '../dom.js';

// The selection after a click on position (1-based) with the modifiers.
export function nextSelection(current, position, { multi, ctrl, shift, anchor }) {
  if (!multi || (!ctrl && !shift)) return [position];
  if (shift && anchor) {
    const step = position >= anchor ? 1 : -1;
    const added = [];
    for (let p = anchor; p !== position + step; p += step) if (!current.includes(p)) added.push(p);
    return [...current, ...added];
  }
  if (current.includes(position)) return current.filter((p) => p !== position);
  return [...current, position];
}

export function create(control, ctx) {
  const el = h('div', { class: 'ctl list', role: 'listbox', tabindex: '0' });
  const choose = (selection) => {
    if (selection.length === 0) return;
    el.control.selected = selection; // shown at once, confirmed by the next state
    paint(el);
    ctx.act({ type: 'select', control: control.id, items: selection });
  };
  el.addEventListener('click', (event) => {
    const row = event.target.closest('.list-item');
    if (!row || !el.control.sensitive) return;
    const position = Number(row.dataset.position);
    const selection = nextSelection(el.control.selected ?? [], position, {
      multi: Boolean(el.control.multi),
      ctrl: event.ctrlKey || event.metaKey,
      shift: event.shiftKey,
      anchor: el.anchor,
    });
    if (!event.shiftKey) el.anchor = position;
    choose(selection);
  });
  el.addEventListener('keydown', (event) => {
    if (!el.control.sensitive || (event.key !== 'ArrowDown' && event.key !== 'ArrowUp')) return;
    event.preventDefault();
    const count = el.control.items?.length ?? 0;
    const selected = el.control.selected ?? [];
    const last = selected[selected.length - 1] ?? 0;
    const next = Math.min(count, Math.max(1, last + (event.key === 'ArrowDown' ? 1 : -1)));
    if (count > 0 && next !== last) {
      el.anchor = next;
      choose([next]);
    }
  });
  return el;
}

function paint(el) {
  const selected = new Set(el.control.selected ?? []);
  [...el.children].forEach((row, index) => {
    const on = selected.has(index + 1);
    row.classList.toggle('selected', on);
    row.setAttribute('aria-selected', on ? 'true' : 'false');
  });
}

export function update(el, control) {
  el.control = { ...control };
  const items = control.items ?? [];
  while (el.children.length > items.length) el.lastChild.remove();
  while (el.children.length < items.length) {
    el.append(h('div', { class: 'list-item', role: 'option', dataset: { position: el.children.length + 1 } }));
  }
  items.forEach((text, index) => setText(el.children[index], text));
  el.setAttribute('aria-multiselectable', control.multi ? 'true' : 'false');
  el.setAttribute('aria-disabled', control.sensitive ? 'false' : 'true');
  el.tabIndex = control.sensitive ? 0 : -1;
  paint(el);
}
