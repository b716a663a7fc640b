// What text fields and multi-line texts share: the text the state holds is
// shown unless the user is typing in the control, and the text typed is
// sent once, as the user leaves the control (or presses Enter in a field).

// Shows the state's text without taking away what the user is typing.
export function showText(el, control) {
  const typing = el.dataset.dirty === '1' && document.activeElement === el;
  el.knownText = control.text ?? '';
  if (!typing && el.value !== el.knownText) el.value = el.knownText;
  if (!typing) delete el.dataset.dirty;
  el.readOnly = Boolean(control.readOnly);
  el.disabled = !control.sensitive;
}

// Makes el an editable text of control id that sends what was typed.
export function makeEditable(el, control, ctx) {
  el.addEventListener('input', () => {
    el.dataset.dirty = '1';
  });
  el.commit = () => {
    delete el.dataset.dirty;
    if (el.readOnly || el.disabled || el.value === el.knownText) return;
    el.knownText = el.value;
    ctx.act({ type: 'text', control: control.id, text: el.value });
  };
  el.addEventListener('change', el.commit);
  el.addEventListener('blur', el.commit);
  return el;
}
