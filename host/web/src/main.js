// The page of corvane ui: the host's main window with its menu and data
// view, the dialogs that are up, and the boxes the add-on waits on, all
// drawn from the state the server streams; the user's actions go back as
// requests.
import { act, watchActions } from './actions.js';
import { fetchState } from './api.js';
import { answerOnce, messageBox, ProgressBox } from './boxes.js';
import { DataView } from './dataview.js';
import { DialogStack } from './dialogs.js';
import { h } from './dom.js';
import { fileChooser } from './filechooser.js';
import { installKeyboard } from './keyboard.js';
import { MenuBar } from './menu.js';
import { connect } from './stream.js';

const $ = (id) => document.getElementById(id);
const NOTICE_MS = 8000;

const page = {
  header: $('main-window'),
  dataRoot: $('data-view'),
  dialogLayer: $('dialog-layer'),
  boxLayer: $('box-layer'),
  connection: $('connection'),
  notice: $('notice'),
  busy: $('busy'),
};

let noticeTimer = null;
function notify(...content) {
  page.notice.replaceChildren(...content);
  page.notice.hidden = false;
  clearTimeout(noticeTimer);
  noticeTimer = setTimeout(() => {
    page.notice.hidden = true;
  }, NOTICE_MS);
}

// While the user's actions are on their way the dialogs keep what the user
// did in them, and states that arrive meanwhile are not drawn. Once all are
// done the page asks for the state: the answer to an action and the event
// stream travel apart, and an older state must not flip a choice back.
let actionsPending = 0;

watchActions({
  refused: (error) => notify(`Not done: ${error.message}`),
  pendingChanged: (count) => {
    actionsPending = count;
    document.body.classList.toggle('waiting', count > 0);
    if (count > 0) return;
    fetchState()
      .then((state) => {
        if (actionsPending === 0 && state.version >= (lastState?.version ?? 0)) render(state);
      })
      .catch(() => refreshLayers()); // the stream brings the state when it is back
  },
});

const menu = new MenuBar($('menubar'), act);
const dialogs = new DialogStack(page.dialogLayer, act, () => lastState?.dialogs ?? []);
const dataView = new DataView(page.dataRoot);
const progress = new ProgressBox((error) => notify(error.message));
installKeyboard(dialogs, page.boxLayer);

// The box shown, by id: a new id replaces it, an answered one goes at once.
let shownBox = { id: null, el: null };
let focusNewBox = false; // a new box takes the focus once its layer shows
const answered = new Set();

function renderBoxes(state) {
  const box = state.box && !answered.has(state.box.id) ? state.box : null;
  if ((box?.id ?? null) !== shownBox.id) {
    shownBox.el?.remove();
    shownBox = { id: box?.id ?? null, el: null };
    if (box) {
      const send = answerOnce(box, (error) => notify(`The answer was not taken: ${error.message}`));
      const answer = (value) => {
        answered.add(box.id);
        send(typeof value === 'object' ? value : { answer: value });
        shownBox.el?.remove();
        shownBox = { id: null, el: null };
        refreshLayers();
      };
      shownBox.el = box.kind === 'file' ? fileChooser(box, answer) : messageBox(box, answer);
      page.boxLayer.append(shownBox.el);
      focusNewBox = true;
    }
  }
  if (state.progress) {
    progress.update(state.progress, !progress.el.isConnected);
    if (!progress.el.isConnected) page.boxLayer.prepend(progress.el);
  } else {
    progress.el.remove();
  }
  page.busy.hidden = !state.busy;
  page.busy.textContent = state.busy ?? '';
}

let lastState = null;

// Whichever is on top takes input; everything under it is inert.
function refreshLayers() {
  const boxUp = page.boxLayer.childElementCount > 0;
  const dialogsUp = (lastState?.dialogs.length ?? 0) > 0;
  page.boxLayer.hidden = !boxUp;
  page.header.inert = boxUp || dialogsUp;
  page.dataRoot.inert = boxUp || dialogsUp;
  if (!lastState) return;
  if (actionsPending === 0) dialogs.render(lastState.dialogs, boxUp);
  else dialogs.setBlocked(boxUp);
}

function render(state) {
  lastState = state;
  document.body.dataset.version = String(state.version);
  menu.render(state.loaders ?? [], state.dialogs.length === 0);
  renderBoxes(state);
  refreshLayers();
  if (focusNewBox) {
    focusNewBox = false;
    shownBox.el?.focusFirst?.();
  }
  dataView.render(state.dataSets ?? []);
}

connect({
  state: render,
  help: ({ page: url }) => {
    // Opened without "noopener", which would hide whether the tab opened.
    const tab = window.open(url, '_blank');
    if (tab) tab.opener = null;
    else notify('Help: ', h('a', { href: url, target: '_blank', rel: 'noopener' }, url));
  },
  connection: (up) => {
    page.connection.hidden = up;
    page.connection.textContent = up ? '' : 'The connection to corvane was lost. Reconnecting...';
    document.body.classList.toggle('offline', !up);
  },
});
