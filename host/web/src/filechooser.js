// The file chooser: browses the server's folders from the folder of the
// proposed name (or the home folder), folders first, files filtered by the
// box's pattern unless "All files" is picked, a name field (prefilled in
// write mode, required), and answers with an absolute path or cancelled.
import { h, clear } from './dom.js';
import { listFolder } from './api.js';
import { boxWindow } from './boxes.js';

const ALL_FILES = '*';

// The last part of a path.
export const baseName = (path) => (path ?? '').replace(/\/+$/, '').split('/').pop() ?? '';

// The absolute path a name typed in folder dir stands for.
export function chosenPath(dir, name) {
  const trimmed = name.trim();
  if (trimmed.startsWith('/')) return trimmed;
  return `${dir.replace(/\/+$/, '')}/${trimmed}`;
}

export function fileChooser(box, answer) {
  const writing = box.mode === 'write';
  const patterns = box.filter && box.filter !== ALL_FILES ? [box.filter, ALL_FILES] : [ALL_FILES];
  let dir = null;

  const location = h('input', { type: 'text', class: 'chooser-location', 'aria-label': 'Folder', spellcheck: 'false' });
  const up = h('button', { type: 'button', class: 'chooser-up', title: 'Parent folder' }, 'Up');
  const entries = h('div', { class: 'chooser-entries', role: 'listbox', tabindex: '0', 'aria-label': 'Files' });
  const filter = h('select', { class: 'chooser-filter', 'aria-label': 'Files of type' },
    patterns.map((p) => h('option', { value: p }, p === ALL_FILES ? 'All files (*)' : p)));
  const name = h('input', { type: 'text', class: 'chooser-name', 'aria-label': 'File name', spellcheck: 'false',
    value: writing ? baseName(box.defaultName) : '' });
  const problem = h('p', { class: 'chooser-problem', role: 'alert' });
  const accept = h('button', { type: 'button', class: 'ok' }, writing ? 'Save' : 'Open');
  const cancel = h('button', { type: 'button', class: 'cancel' }, 'Cancel');

  let latest = 0; // only the folder asked for last is shown
  const show = async (target) => {
    problem.textContent = '';
    const request = ++latest;
    try {
      const listing = await listFolder(target, filter.value);
      if (request !== latest) return;
      dir = listing.dir;
      if (!location.dataset.dirty) location.value = dir; // not over a path being typed
      up.disabled = listing.parent === null;
      up.onclick = () => show(listing.parent);
      clear(entries);
      for (const entry of listing.entries) {
        const row = h('div', {
          class: `chooser-entry ${entry.dir ? 'folder' : 'file'}`,
          role: 'option',
          dataset: { name: entry.name },
        }, h('span', { class: 'entry-name' }, entry.dir ? `${entry.name}/` : entry.name),
        h('span', { class: 'entry-size' }, entry.dir ? '' : String(entry.size ?? '')));
        row.addEventListener('click', () => {
          entries.querySelectorAll('.selected').forEach((e) => e.classList.remove('selected'));
          row.classList.add('selected');
          if (!entry.dir) name.value = entry.name;
        });
        row.addEventListener('dblclick', () => (entry.dir ? show(`${dir}/${entry.name}`) : finish()));
        entries.append(row);
      }
    } catch (error) {
      if (request === latest) problem.textContent = error.message;
    }
  };

  const finish = () => {
    if (!name.value.trim()) {
      problem.textContent = 'Enter a file name.';
      name.focus();
      return;
    }
    if (dir === null && !name.value.trim().startsWith('/')) return;
    answer({ path: chosenPath(dir ?? '/', name.value) });
  };

  // Arrow keys move through the entries; Enter opens a folder or picks a file.
  entries.addEventListener('keydown', (event) => {
    const rows = [...entries.children];
    const at = rows.findIndex((row) => row.classList.contains('selected'));
    if (event.key === 'ArrowDown' || event.key === 'ArrowUp') {
      event.preventDefault();
      const next = rows[Math.max(0, Math.min(rows.length - 1, at + (event.key === 'ArrowDown' ? 1 : -1)))];
      next?.click();
      next?.scrollIntoView({ block: 'nearest' });
    } else if (event.key === 'Enter' && at >= 0) {
      event.preventDefault();
      event.stopPropagation(); // the chooser may be gone before the page sees the key
      rows[at].dispatchEvent(new MouseEvent('dblclick'));
    }
  });
  accept.addEventListener('click', finish);
  cancel.addEventListener('click', () => answer({ path: null }));
  filter.addEventListener('change', () => show(dir));
  location.addEventListener('input', () => {
    location.dataset.dirty = '1';
  });
  location.addEventListener('keydown', (event) => {
    if (event.key === 'Enter') {
      event.preventDefault();
      delete location.dataset.dirty;
      show(location.value.trim());
    }
  });
  name.addEventListener('keydown', (event) => {
    if (event.key === 'Enter') {
      event.preventDefault();
      finish();
    }
  });

  const el = boxWindow('file', box.title || (writing ? 'Save File' : 'Open File'), [
    h('div', { class: 'chooser-bar' }, up, location),
    entries,
    h('label', { class: 'chooser-row' }, h('span', {}, 'File name:'), name),
    h('label', { class: 'chooser-row' }, h('span', {}, 'Files of type:'), filter),
    problem,
  ], [accept, cancel]);
  el.addEventListener('keydown', (event) => {
    if (event.key === 'Escape') {
      event.preventDefault();
      answer({ path: null });
    }
  });
  el.focusFirst = () => name.focus();
  show(null);
  return el;
}
