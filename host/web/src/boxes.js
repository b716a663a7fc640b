// The modal boxes the add-on waits on: error, warning, information and
// question boxes, and the progress box with its bar and Cancel. The file
// chooser is a box too (filechooser.js).
import { h } from './dom.js';
import { answerBox, cancelProgress } from './api.js';

const TITLES = { error: 'Error', warning: 'Warning', information: 'Information', question: 'Question' };

// The box window: a title, the content and a row of buttons.
export function boxWindow(kind, title, content, buttons) {
  return h('section', { class: `box box-${kind}`, role: 'alertdialog', 'aria-modal': 'true', 'aria-label': title },
    h('div', { class: 'dialog-title' }, title),
    h('div', { class: 'box-content' }, content),
    h('div', { class: 'dialog-buttons' }, buttons));
}

// A message or question box; answer(true|false) sends the answer.
export function messageBox(box, answer) {
  const title = TITLES[box.kind] ?? 'Message';
  const text = h('p', { class: 'box-text' }, box.text);
  const buttons = box.kind === 'question'
    ? [h('button', { type: 'button', class: 'yes', onclick: () => answer(true) }, 'Yes'),
       h('button', { type: 'button', class: 'no', onclick: () => answer(false) }, 'No')]
    : [h('button', { type: 'button', class: 'ok', onclick: () => answer(true) }, 'OK')];
  const el = boxWindow(box.kind, title, text, buttons);
  el.addEventListener('keydown', (event) => {
    if (event.key === 'Escape') {
      event.preventDefault();
      answer(box.kind !== 'question');
    }
  });
  el.focusFirst = () => buttons[0].focus();
  return el;
}

// Sends a box's answer once.
export function answerOnce(box, onError) {
  let sent = false;
  return (answer) => {
    if (sent) return;
    sent = true;
    answerBox({ id: box.id, ...answer }).catch(onError);
  };
}

// The progress box: label, bar, percent and, when the add-on allows it,
// Cancel. Kept across states and patched.
export class ProgressBox {
  constructor(onError) {
    this.bar = h('div', { class: 'progress-fill' });
    this.percent = h('span', { class: 'progress-percent' });
    this.label = h('p', { class: 'box-text' });
    this.cancel = h('button', {
      type: 'button',
      class: 'cancel',
      onclick: () => {
        this.cancel.disabled = true;
        cancelProgress().catch(onError);
      },
    }, 'Cancel');
    this.el = boxWindow('progress', 'Working', [this.label,
      h('div', { class: 'progress-bar', role: 'progressbar' }, this.bar), this.percent], [this.cancel]);
    this.el.addEventListener('keydown', (event) => {
      if (event.key === 'Escape' && !this.cancel.hidden && !this.cancel.disabled) this.cancel.click();
    });
  }

  // fresh: the box was not up before this state, so its Cancel starts anew.
  update(progress, fresh) {
    const percent = Math.max(0, Math.min(100, Number(progress.percent) || 0));
    this.label.textContent = progress.label;
    this.bar.style.width = `${percent}%`;
    this.bar.parentElement.setAttribute('aria-valuenow', String(percent));
    this.percent.textContent = `${percent}%`;
    if (fresh) this.cancel.disabled = false;
    this.cancel.hidden = !progress.cancel;
  }
}
