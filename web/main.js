/** The page: loads the program, lets it play, and begins again when it has ended. */

import { offerFullScreen } from './full-screen.js';
import { watchEscape, watchFocus, watchPointer } from './input.js';
import { LoadError, loadFiles } from './loading.js';
import { Picture } from './picture.js';
import { callAtRefreshes, RateMeter } from './refreshing.js';
import { Sound } from './sound.js';

const PROGRAM = 'mygame.wasm';

/** What `runForRefresh` of program/web/main.cpp returns. */
const GO_ON = 1;
const END = 2;

const element = (id) => document.getElementById(id);
const showTrouble = (sentence) => window.showTrouble(sentence);

const panel = element('panel');
const again = element('again');
const paused = element('paused');
const picture = new Picture(element('room'), element('picture'));
const sound = new Sound();
const meter = new RateMeter();
const placeFullScreenButton = offerFullScreen(element('full-screen'), (button) => picture.leavesFree(button));

/** @returns the program, ready to start, with its files */
async function load() {
  const showProgress = (share) => (element('progress').value = share);
  const [{ default: makeProgram }, files] = await Promise.all([import('./mygame.js'), loadFiles(showProgress)]);
  const program = await makeProgram({
    wasmBinary: files.get(PROGRAM),
    placeCanvas: (width, height, place) => {
      picture.place(width, height, place);
      placeFullScreenButton();
    },
    showRows: (...rows) => picture.showRows(...rows),
    showNote: (note) => (element('note').textContent = note),
    startSound: (path) => sound.start(path.slice(1)),
    print: () => {},
    printErr: () => {},
  });
  files.delete(PROGRAM);
  for (const [name, bytes] of files) {
    if (name.endsWith('.wav')) sound.add(name, bytes);
    program.FS.writeFile(`/${name}`, bytes);
  }
  return program;
}

/** Lets the program play, with all that happens to the page passed on to it. */
function play(program) {
  let running = false;
  let inFront = false;
  /** Whether the program has seen that it is in front. What brings it there is no tap in the game. */
  let awake = false;
  let rate = 0;
  let size = null;

  const run = (time) => {
    const next = program._runForRefresh(time);
    if (next === END) end();
    awake = next === GO_ON;
    return awake;
  };
  const refresh = callAtRefreshes((time) => {
    if (!running) return false;
    meter.add(time);
    tellRate();
    return run(time);
  });
  const tellRate = () => {
    if (meter.rate === rate) return;
    rate = meter.rate;
    program._setRefreshRate(rate);
  };
  const start = () => {
    running = true;
    again.hidden = true;
    panel.hidden = true;
    paused.hidden = inFront;
    program._start();
    program._resizeRoom(...size);
    if (inFront) program._gainFocus();
    refresh();
  };
  const end = () => {
    running = false;
    paused.hidden = true;
    element('message').textContent = 'The game has ended.';
    again.hidden = false;
    panel.hidden = false;
    again.focus();
  };

  element('progress').hidden = true;
  again.addEventListener('click', start);
  picture.watchSize((...newSize) => {
    const isFirst = size === null;
    size = newSize;
    if (isFirst) start();
    if (!running) return;
    program._resizeRoom(...size);
    refresh();
  });
  watchFocus((now) => {
    inFront = now;
    paused.hidden = now || !running;
    if (!now) sound.stop();
    if (!running) return;
    if (now) {
      program._gainFocus();
      refresh();
    } else {
      // There may be no refresh for a long time.
      program._loseFocus();
      run(performance.now());
    }
  });
  watchPointer(element('room'), (x, y) => picture.pixelAt(x, y), {
    press: (x, y) => awake && program._pressPointer(x, y),
    move: (x, y) => running && program._movePointer(x, y),
    release: (x, y) => running && program._releasePointer(x, y),
    cancel: () => running && program._cancelPointer(),
  });
  watchEscape(() => running && program._pressEscape());
  for (const type of ['pointerdown', 'pointerup', 'keydown']) addEventListener(type, () => sound.allow(), true);
}

/** Keeps the page for the time when there is no network. Where a browser keeps nothing the game plays all the same. */
function keepForOffline() {
  try {
    navigator.serviceWorker.register('service-worker.js', { updateViaCache: 'none' }).catch(() => {});
  } catch {
    // No service workers here.
  }
}

/** @returns a sentence that says what the browser lacks; empty when it lacks nothing */
function whatIsMissing() {
  if (typeof WebAssembly !== 'object') return 'This browser cannot run the game: it has no WebAssembly, or it is switched off.';
  if (typeof ResizeObserver !== 'function' || !window.PointerEvent)
    return 'This browser is too old for the game; a newer one plays it.';
  return picture.canDraw ? '' : 'This browser cannot show the game: it does not let the page draw.';
}

async function begin() {
  const missing = whatIsMissing();
  if (missing) return showTrouble(missing);
  let loading = true;
  callAtRefreshes((time) => {
    meter.add(time);
    return loading;
  })();
  try {
    play(await load());
  } catch (fault) {
    if (fault instanceof LoadError) showTrouble(fault.message);
    else if (fault instanceof TypeError) showTrouble('The game cannot start: its file mygame.js is missing or damaged.');
    else showTrouble('The game cannot start: this browser refuses its program.');
  } finally {
    loading = false;
  }
  keepForOffline();
}

begin();
