// Every control kind of the dialog toolkit, by the kind name of the state.
import * as button from './button.js';
import * as field from './field.js';
import * as frame from './frame.js';
import * as label from './label.js';
import * as list from './list.js';
import * as option from './option.js';
import * as radio from './radio.js';
import * as text from './text.js';
import * as toggle from './toggle.js';

export const controlKinds = { frame, label, button, toggle, radio, option, field, text, list };
