// Small DOM helpers shared by every view.

// Makes an element: h('button', {class: 'x', onclick: f}, 'text', child).
// Keys starting with "on" add listeners; class, text and dataset are set as
// such; other keys become attributes (false and null leave them out).
export function h(tag, props = {}, ...children) {
  const el = document.createElement(tag);
  for (const [key, value] of Object.entries(props)) {
    if (value === false || value === null || value === undefined) continue;
    if (key.startsWith('on')) el.addEventListener(key.slice(2), value);
    else if (key === 'class') el.className = value;
    else if (key === 'text') el.textContent = value;
    else if (key === 'dataset') Object.assign(el.dataset, value);
    else if (key === 'style') Object.assign(el.style, value);
    else el.setAttribute(key, value === true ? '' : value);
  }
  for (const child of children.flat()) {
    if (child === null || child === undefined || child === false) continue;
    el.append(child instanceof Node ? child : String(child));
  }
  return el;
}

// Sets a text only when it differs, so that selections and carets survive.
export function setText(el, text) {
  if (el.textContent !== text) el.textContent = text;
}

// Turns an attribute on or off.
export function setFlag(el, name, on) {
  if (on) el.setAttribute(name, '');
  else el.removeAttribute(name);
}

// Removes every child of el.
export function clear(el) {
  while (el.firstChild) el.firstChild.remove();
}
