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

  const show = async (target) => {
    problem.textContent = '';
    try {
      const listing = await listFolder(target, filter.value);
      dir = listing.dir;
      location.value = dir;
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
      problem.textContent = error.message;
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

  accept.addEventListener('click', finish);
  cancel.addEventListener('click', () => answer({ path: null }));
  filter.addEventListener('change', () => show(dir));
  location.addEventListener('keydown', (event) => {
    if (event.key === 'Enter') {
      event.preventDefault();
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
