/** The page: loads the program, lets it play or show a recorded game, and begins again when that has ended. */

import { canFillScreen } from './full-screen.js';
import { watchDrops, watchEscape, watchFocus, watchPointer } from './input.js';
import { CAN_LINK, unpack } from './link.js';
import { LoadError, loadFiles } from './loading.js';
import { Offer } from './offer.js';
import { makePanel } from './panel.js';
import { Picture } from './picture.js';
import { makeGame } from './playing.js';
import { Recordings } from './recordings.js';
import { callAtRefreshes, RateMeter } from './refreshing.js';
import { Sound } from './sound.js';
import { makeWatching } from './watching.js';

const PROGRAM = 'mygame.wasm';

const element = (id) => document.getElementById(id);
const showTrouble = (sentence) => window.showTrouble(sentence);

const picture = new Picture(element('room'), element('picture'));
const sound = new Sound();
const meter = new RateMeter();
const recordings = new Recordings();
const isFree = (button) => picture.leavesFree(button);
const fullScreenButton = new Offer(element('full-screen'), isFree);
const recordingsButton = new Offer(element('show-recordings'), isFree);

/** Who hears what the program tells of a recorded game. */
const tells = {};

/** @returns the program, ready to start, with its files */
async function load() {
  const showProgress = (share) => (element('progress').value = share);
  const [{ default: makeProgram }, files] = await Promise.all([import('./mygame.js'), loadFiles(showProgress)]);
  const program = await makeProgram({
    wasmBinary: files.get(PROGRAM),
    placeCanvas: (width, height, place) => {
      picture.place(width, height, place);
      fullScreenButton.place();
      recordingsButton.place();
    },
    showRows: (...rows) => picture.showRows(...rows),
    showNote: (note) => (element('note').textContent = note),
    startSound: (path) => sound.start(path.slice(1)),
    recordLines: (lines) => {
      recordings.add(lines);
      recordingsButton.offer(false);
    },
    tellFault: (fault) => tells.fault(fault),
    tellPlace: (place) => tells.place(place),
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

/** Lets the player play, watch and choose, with all that happens to the page passed on. */
function run(program) {
  const page = { size: null, inFront: false, meter, picture };
  /** The game or the recorded one; null while the player chooses. */
  let stage = null;

  const choose = (sentence, playText) => {
    stage = null;
    element('note').textContent = '';
    recordingsButton.offer(false);
    panel.show(sentence, playText);
  };
  const play = () => {
    leave();
    // The page is no longer the one of a link.
    history.replaceState(null, '', location.pathname + location.search);
    panel.hide();
    recordings.begin();
    stage = game;
    game.start();
    recordings.names().then((names) => recordingsButton.offer(stage === game && !recordings.hasBegun && names.length > 0));
  };
  const watch = (recording) => {
    leave();
    panel.hide();
    recordingsButton.offer(false);
    stage = watching;
    const fault = watching.start(recording);
    if (fault) choose(`This recording cannot be shown: ${fault}.`, 'Play');
  };
  const leave = () => {
    if (stage === game) game.quit();
    if (stage === watching) watching.stop();
  };
  const openLink = async (packed) => {
    if (!CAN_LINK) return choose('This browser is too old to show a recorded game; a newer one shows it.', 'Play');
    const recording = await unpack(packed).catch(() => null);
    if (recording === null) choose('This link to a recorded game is damaged or incomplete.', 'Play');
    else watch(recording);
  };
  const start = () => {
    fullScreenButton.offer(canFillScreen(element('full-screen')));
    element('progress').hidden = true;
    if (location.hash.length > 1) openLink(location.hash.slice(1));
    else play();
  };

  const game = makeGame(program, page, element('paused'), () => choose('The game has ended.', 'Play again'));
  const watching = makeWatching(program, page);
  const panel = makePanel(recordings, play, watch);
  const leaveToPanel = () => {
    leave();
    choose('', 'Play');
  };
  tells.fault = watching.tellFault;
  tells.place = watching.tellPlace;

  element('play').addEventListener('click', play);
  element('leave').addEventListener('click', leaveToPanel);
  element('show-recordings').addEventListener('click', leaveToPanel);
  picture.watchSize((...newSize) => {
    const isFirst = page.size === null;
    page.size = newSize;
    if (isFirst) start();
    stage?.resize();
  });
  watchFocus((now) => {
    page.inFront = now;
    if (!now) sound.stop();
    stage?.changeFocus();
  });
  watchPointer(element('room'), (x, y) => picture.pixelAt(x, y), {
    press: (x, y) => stage?.press(x, y),
    move: (x, y) => stage?.move(x, y),
    release: (x, y) => stage?.release(x, y),
    cancel: () => stage?.cancel(),
  });
  watchEscape(() => (stage === watching ? leaveToPanel() : stage?.pressEscape()));
  watchDrops(watch);
  addEventListener('hashchange', () => location.reload());
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
    run(await load());
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
