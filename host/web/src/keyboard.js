// The keyboard in the dialogs: Tab moves through the top window's controls
// in the order they were created and stays in that window; Enter presses
// OK (a text field's text is sent first; not inside a multi-line text, and
// a focused button takes Enter itself); Escape presses Cancel.

const FOCUSABLE = 'input:not([disabled]), select:not([disabled]), textarea:not([disabled]), button:not([disabled]):not([hidden]), [tabindex="0"]';

// The window that takes input: a box when one is up, else the top dialog.
// dialogs: the DialogStack; boxLayer: the element boxes go in.
export function installKeyboard(dialogs, boxLayer) {
  document.addEventListener('keydown', (event) => {
    const box = boxLayer.hidden ? null : boxLayer.lastElementChild;
    const top = dialogs.top ? dialogs.windows.get(dialogs.top.id)?.el : null;
    const active = box ?? top;
    if (!active) return;

    if (event.key === 'Tab') {
      const stops = [...active.querySelectorAll(FOCUSABLE)].filter((el) => el.offsetParent !== null);
      if (stops.length === 0) return;
      const first = stops[0];
      const last = stops[stops.length - 1];
      if (!active.contains(document.activeElement)) {
        event.preventDefault();
        (event.shiftKey ? last : first).focus();
      } else if (!event.shiftKey && document.activeElement === last) {
        event.preventDefault();
        first.focus();
      } else if (event.shiftKey && document.activeElement === first) {
        event.preventDefault();
        last.focus();
      }
      return;
    }
    if (box) return; // boxes handle Enter and Escape themselves
    if (!top.contains(event.target) && event.target !== document.body) return;

    if (event.key === 'Escape') {
      event.preventDefault();
      dialogs.pressTop('cancel');
    } else if (event.key === 'Enter' && !event.isComposing) {
      const target = event.target;
      if (target.tagName === 'TEXTAREA' || target.tagName === 'BUTTON' || target.tagName === 'A') return;
      event.preventDefault();
      target.commit?.();
      dialogs.pressTop('ok');
    }
  });
}
