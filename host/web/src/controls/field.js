// A one-line text field.
import { h } from '../dom.js';
import { makeEditable, showText } from './editing.js';

export function create(control, ctx) {
  const input = h('input', { type: 'text', class: 'ctl field', spellcheck: 'false', autocomplete: 'off' });
  return makeEditable(input, control, ctx);
}

export const update = showText;
