// The server-sent event stream: state and help events, the connection
// shown to the user, and a new connection after the stream dropped.
const RETRY_MS = [500, 1000, 2000, 4000];

// handlers: state(json), help({page}), connection(true|false).
export function connect(handlers) {
  let source = null;
  let attempt = 0;
  let timer = null;

  const open = () => {
    timer = null;
    source = new EventSource('/api/events');
    source.addEventListener('open', () => {
      attempt = 0;
      handlers.connection(true);
    });
    source.addEventListener('state', (event) => handlers.state(JSON.parse(event.data)));
    source.addEventListener('help', (event) => handlers.help(JSON.parse(event.data)));
    source.addEventListener('error', () => {
      // The browser's own retry stops after an HTTP error; one schedule for
      // both kinds of drop keeps the behaviour the same.
      source.close();
      handlers.connection(false);
      const delay = RETRY_MS[Math.min(attempt, RETRY_MS.length - 1)];
      attempt += 1;
      if (timer === null) timer = setTimeout(open, delay);
    });
  };
  open();
  return () => {
    if (timer !== null) clearTimeout(timer);
    if (source) source.close();
  };
}
