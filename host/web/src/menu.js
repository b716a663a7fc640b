// The host's main window menu: File > Load Data... lists the registered
// loaders; picking one opens its dialog (only when no dialog is up).
import { h, clear } from './dom.js';

export class MenuBar {
  constructor(root, act) {
    this.root = root;
    this.act = act;
    this.loaders = null;
    this.fileButton = h('button', { type: 'button', class: 'menu-title', 'aria-haspopup': 'true', 'aria-expanded': 'false' }, 'File');
    this.loadItem = h('button', { type: 'button', class: 'menu-item', role: 'menuitem', 'aria-haspopup': 'true' }, 'Load Data...');
    this.loaderMenu = h('div', { class: 'submenu', role: 'menu', hidden: true, 'aria-label': 'Loaders' });
    this.fileMenu = h('div', { class: 'menu', role: 'menu', hidden: true }, this.loadItem, this.loaderMenu);
    root.append(h('div', { class: 'menu-group' }, this.fileButton, this.fileMenu));

    this.fileButton.addEventListener('click', () => this.openMenu(this.fileMenu.hidden));
    this.loadItem.addEventListener('click', () => {
      this.loaderMenu.hidden = !this.loaderMenu.hidden;
      this.loaderMenu.querySelector('button')?.focus();
    });
    document.addEventListener('click', (event) => {
      if (!root.contains(event.target)) this.openMenu(false);
    });
    root.addEventListener('keydown', (event) => {
      if (event.key === 'Escape') {
        this.openMenu(false);
        this.fileButton.focus();
      }
    });
  }

  openMenu(open) {
    this.fileMenu.hidden = !open;
    this.fileButton.setAttribute('aria-expanded', open ? 'true' : 'false');
    if (!open) this.loaderMenu.hidden = true;
  }

  // loaders: the names in the host's menu; enabled: no dialog is up.
  render(loaders, enabled) {
    this.loadItem.disabled = !enabled;
    if (!enabled) this.openMenu(false);
    const key = JSON.stringify(loaders);
    if (key === this.loaders) return;
    this.loaders = key;
    clear(this.loaderMenu);
    for (const loader of loaders) {
      this.loaderMenu.append(h('button', {
        type: 'button',
        class: 'menu-item',
        role: 'menuitem',
        onclick: () => {
          this.openMenu(false);
          this.act({ type: 'openLoader', loader });
        },
      }, loader));
    }
    if (loaders.length === 0) this.loaderMenu.append(h('p', { class: 'menu-empty' }, 'No loader is registered.'));
  }
}
