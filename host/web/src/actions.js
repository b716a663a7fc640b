// The user's actions, sent one at a time in the order they were made: a
// field left and then OK pressed reach the server in that order, each
// after every callback of the one before has run.
import { sendAction } from './api.js';

let tail = Promise.resolve();
let onRefused = () => {};
let pending = 0;
let onPendingChange = () => {};

// refused(error) hears every action the server refused (409 and the like);
// pendingChanged(count) hears how many actions are on their way.
export function watchActions({ refused, pendingChanged }) {
  if (refused) onRefused = refused;
  if (pendingChanged) onPendingChange = pendingChanged;
}

// Queues an action, or a function that makes it when its turn comes (from
// the state then, e.g. the top dialog for a key press) and may return null
// to send nothing. The promise settles once the server has run it (true)
// or refused it or nothing was sent (false).
export function act(actionOrMaker) {
  pending += 1;
  onPendingChange(pending);
  const done = tail.then(async () => {
    const action = typeof actionOrMaker === 'function' ? actionOrMaker() : actionOrMaker;
    try {
      if (!action) return false;
      await sendAction(action);
      return true;
    } catch (error) {
      onRefused(error, action);
      return false;
    } finally {
      pending -= 1;
      onPendingChange(pending);
    }
  });
  tail = done;
  return done;
}
