// The dialogs that are up, bottom to top, as modal windows laid out from
// the toolkit's positions and sizes. Windows and controls are kept by id
// and only patched when the state changes, so focus and typing survive.
// Only the top dialog takes input; those below are dimmed and inert.
import { h, setText } from './dom.js';
import { controlKinds } from './controls/index.js';

// CSS pixels per dialog unit.
export const UNIT_PX = 2;
const STACK_OFFSET_PX = 28;
const BUTTON_LABELS = { ok: 'OK', apply: 'Apply', cancel: 'Cancel', help: 'Help' };
// The dialog's own buttons when the state does not list them.
const DEFAULT_BUTTONS = ['ok', 'cancel', 'help'];

const INPUT_KINDS = new Set(['field', 'text', 'option', 'list']);

const px = (units) => `${units * UNIT_PX}px`;

function place(el, control) {
  el.style.left = px(control.x);
  el.style.top = px(control.y);
  if (control.kind === 'label') return; // a label has no size: it takes its text's
  el.style.width = px(control.width);
  el.style.height = px(control.height);
}

export class DialogStack {
  // layer: the element the windows go in; act(action): sends an action;
  // latest(): the dialogs of the newest state, drawn or not.
  constructor(layer, act, latest) {
    this.layer = layer;
    this.act = act;
    this.latest = latest;
    this.windows = new Map(); // dialog id -> {el, body, buttons, controls: Map}
    this.topId = null;
    this.blocked = false;
  }

  // The top dialog's state, or null.
  get top() {
    return this.dialogs?.[this.dialogs.length - 1] ?? null;
  }

  // blocked: a box is up, so not even the top dialog takes input.
  render(dialogs, blocked) {
    this.dialogs = dialogs;
    this.blocked = blocked;
    const live = new Set(dialogs.map((d) => d.id));
    for (const [id, win] of this.windows) {
      if (!live.has(id)) {
        win.el.remove();
        this.windows.delete(id);
      }
    }
    dialogs.forEach((dialog, index) => {
      let win = this.windows.get(dialog.id);
      if (!win) {
        win = this.createWindow(dialog);
        this.windows.set(dialog.id, win);
      }
      // Bottom to top; moved only when out of place, as a move takes the focus away.
      if (this.layer.children[index] !== win.el) this.layer.insertBefore(win.el, this.layer.children[index] ?? null);
      this.updateWindow(win, dialog, index, index === dialogs.length - 1);
    });
    this.layer.hidden = dialogs.length === 0;
    this.focusTop();
  }

  createWindow(dialog) {
    const title = h('div', { class: 'dialog-title' });
    const body = h('div', { class: 'dialog-body' });
    const buttons = h('div', { class: 'dialog-buttons' });
    const el = h('section', { class: 'dialog', role: 'dialog', 'aria-modal': 'true', tabindex: '-1' }, title, body, buttons);
    el.dataset.dialogId = dialog.id;
    el.addEventListener('focusin', (event) => {
      el.lastFocus = event.target;
    });
    return { el, title, body, buttons, controls: new Map(), buttonIds: '' };
  }

  updateWindow(win, dialog, index, isTop) {
    setText(win.title, dialog.title);
    win.el.setAttribute('aria-label', dialog.title);
    win.el.style.left = `calc(50% - ${px(dialog.width / 2)} + ${index * STACK_OFFSET_PX}px)`;
    win.el.style.top = `${16 + index * STACK_OFFSET_PX}px`;
    win.body.style.width = px(dialog.width);
    win.body.style.height = px(dialog.height);
    const active = isTop && !this.blocked;
    win.el.classList.toggle('below', !isTop);
    win.el.inert = !active;

    const live = new Set(dialog.controls.map((c) => c.id));
    for (const [id, el] of win.controls) {
      if (!live.has(id)) {
        el.remove();
        win.controls.delete(id);
      }
    }
    const ctx = { act: this.act };
    for (const control of dialog.controls) {
      const kind = controlKinds[control.kind];
      if (!kind) continue;
      let el = win.controls.get(control.id);
      if (el && el.dataset.kind !== control.kind) {
        el.remove();
        el = undefined;
      }
      if (!el) {
        el = kind.create(control, ctx);
        el.dataset.kind = control.kind;
        el.dataset.controlId = control.id;
        win.controls.set(control.id, el);
        win.body.append(el); // the order of creation is the Tab order
      }
      place(el, control);
      // Inputs are named by their caption, as a user reads it beside them.
      if (INPUT_KINDS.has(control.kind) && control.caption) el.setAttribute('aria-label', control.caption.trim());
      el.classList.toggle('insensitive', !control.sensitive);
      kind.update(el, control, ctx);
    }
    this.updateButtons(win, dialog);
  }

  updateButtons(win, dialog) {
    const names = dialog.buttons ?? DEFAULT_BUTTONS;
    const key = names.join(',');
    if (win.buttonIds === key) return;
    win.buttonIds = key;
    win.buttons.replaceChildren(...names.map((name) => h('button', {
      type: 'button',
      class: `dialog-button ${name}`,
      dataset: { button: name },
      onclick: () => this.act({ type: 'dialogButton', dialog: dialog.id, button: name }),
    }, BUTTON_LABELS[name] ?? name)));
  }

  // Only whether a box blocks the top dialog, drawing nothing else: for a
  // box that closes while the user's actions are still on their way.
  setBlocked(blocked) {
    if (blocked === this.blocked || !this.dialogs) return;
    this.blocked = blocked;
    const top = this.top;
    for (const [id, win] of this.windows) win.el.inert = blocked || id !== top?.id;
    this.focusTop();
  }

  // Presses a button of the dialog on top when the press is sent, which
  // after earlier actions may be another one than the page shows now.
  pressTop(name) {
    if (!this.top || this.blocked) return;
    this.act(() => {
      const dialogs = this.latest();
      const top = dialogs[dialogs.length - 1];
      return top && (top.buttons ?? DEFAULT_BUTTONS).includes(name)
        ? { type: 'dialogButton', dialog: top.id, button: name } : null;
    });
  }

  // A new top dialog gets the focus on its first control; one that is top
  // again gets back the control that had it.
  focusTop() {
    const top = this.top;
    const id = top && !this.blocked ? top.id : null;
    if (id === this.topId) return;
    this.topId = id;
    if (id === null) return;
    const win = this.windows.get(id);
    const previous = win.el.lastFocus;
    if (previous && win.el.contains(previous) && !previous.disabled) {
      previous.focus();
      return;
    }
    const first = win.el.querySelector(
      'input:not([disabled]), select:not([disabled]), textarea:not([disabled]), button:not([disabled]), .list[tabindex="0"]');
    (first ?? win.el).focus?.();
  }
}
