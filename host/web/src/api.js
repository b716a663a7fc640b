// The server's HTTP interface as functions: actions, box answers, folders
// of the file chooser, data-set tables, plots and checks, layouts.

// The error a refused request carries ({"error": ...}), as an Error.
async function failure(response) {
  let text = `${response.status} ${response.statusText}`;
  try {
    const body = await response.json();
    if (body && body.error) text = body.error;
  } catch {
    // Not JSON: the status says enough.
  }
  const error = new Error(text);
  error.status = response.status;
  return error;
}

async function postJson(url, body) {
  const response = await fetch(url, {
    method: 'POST',
    headers: { 'Content-Type': 'application/json' },
    body: JSON.stringify(body),
  });
  if (!response.ok) throw await failure(response);
  return response.json();
}

async function getJson(url) {
  const response = await fetch(url);
  if (!response.ok) throw await failure(response);
  return response.json();
}

export const fetchState = () => getJson('/api/state');
export const sendAction = (action) => postJson('/api/action', action);
export const answerBox = (answer) => postJson('/api/box', answer);
export const cancelProgress = () => postJson('/api/progress/cancel', {});
export const saveLayout = (path) => postJson('/api/layout', { path });

export function listFolder(dir, filter) {
  const query = new URLSearchParams();
  if (dir !== null && dir !== undefined) query.set('dir', dir);
  if (filter) query.set('filter', filter);
  return getJson(`/api/files?${query}`);
}

export function dataTable(index, zone, rows) {
  return getJson(`/api/datasets/${index}/table?zone=${zone}&rows=${rows}`);
}

export async function plotData(index, zone, width, height) {
  const response = await fetch(
    `/api/datasets/${index}/plot?zone=${zone}&width=${width}&height=${height}`);
  if (!response.ok) throw await failure(response);
  return response.arrayBuffer();
}

// Where the loaded numbers may differ from what the file means: the check
// report of the data set's load ({"found", "kinds", "places", "text"}).
export const checkReport = (index) => getJson(`/api/datasets/${index}/check`);

export const exportUrl = (index, format) => `/api/datasets/${index}/export.${format}`;
