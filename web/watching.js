/** Watching a recorded game, with a bar to move in it. */

import { callAtRefreshes } from './refreshing.js';

/** Where the program looks for it, see program/web/watching.cpp. */
const FILE = '/recording';

const STEP_MS = 5000;
/** Every so often the bar moves while a game goes on. */
const BAR_MS = 100;

const element = (id) => document.getElementById(id);

function minutesAndSeconds(ms) {
  const seconds = Math.floor(ms / 1000);
  return `${Math.floor(seconds / 60)}:${String(seconds % 60).padStart(2, '0')}`;
}

const speedText = (quarters) => `${{ 1: '¼', 2: '½' }[quarters] ?? quarters / 4} ×`;

/** Whether a key stands for something else where the player is: a button's own key, or one of the browser's. */
function belongsToOthers(event) {
  const onButton = event.key === ' ' && event.target.tagName === 'BUTTON';
  return event.altKey || event.ctrlKey || event.metaKey || onButton;
}

/**
 * @param program with its files; none of its games may be running while one is watched
 * @param {{size: number[]}} page what is known of it
 */
export function makeWatching(program, page) {
  const place = element('place');
  let watching = false;
  /** What the program told last. */
  let told = {};
  /** Of that, what the bar shows. */
  let shown = '';
  let fault = '';

  const refresh = callAtRefreshes((time) => watching && program._watchForRefresh(time) !== 0);
  const change = (what, ...rest) => {
    program[what](...rest);
    refresh();
  };
  const isAtEnd = () => told.ms === told.lengthMs;
  const toggle = () => {
    // At the end there is nothing to pause.
    if (isAtEnd()) change('_seek', 0);
    if (!isAtEnd() || told.paused) change('_togglePause');
  };
  const KEYS = {
    ' ': toggle,
    ArrowLeft: () => change('_seek', told.ms - STEP_MS),
    ArrowRight: () => change('_seek', told.ms + STEP_MS),
    '+': () => change('_faster'),
    '=': () => change('_faster'), // Where the plus sign is on the same key.
    '-': () => change('_slower'),
  };

  function show() {
    const stands = told.paused || isAtEnd();
    const time = `${minutesAndSeconds(told.ms)} of ${minutesAndSeconds(told.lengthMs)}`;
    element('pause').setAttribute('aria-label', isAtEnd() ? 'Watch again' : stands ? 'Go on' : 'Pause');
    element('pause').classList.toggle('stands', stands);
    element('time').textContent = time;
    element('speed').textContent = speedText(told.quarters);
    element('play').classList.toggle('wanted', isAtEnd());
    place.max = told.lengthMs;
    place.value = told.ms;
    place.setAttribute('aria-valuetext', time);
    element('note').textContent = told.wrongFrame
      ? `The pictures are not those recorded, from frame ${told.wrongFrame} on.`
      : '';
  }

  element('pause').addEventListener('click', toggle);
  element('slower').addEventListener('click', KEYS['-']);
  element('faster').addEventListener('click', KEYS['+']);
  place.addEventListener('input', () => change('_seek', Number(place.value)));
  addEventListener('keydown', (event) => {
    if (!watching || belongsToOthers(event) || !KEYS[event.key]) return;
    event.preventDefault();
    KEYS[event.key]();
  });

  return {
    /**
     * Begins to watch.
     * @param {string | Uint8Array} recording a script
     * @returns {string} what is wrong with it; empty where nothing is
     */
    start(recording) {
      shown = '';
      program.FS.writeFile(FILE, recording);
      if (!program._watch()) return fault;
      watching = true;
      document.documentElement.classList.add('watching');
      element('bar').hidden = false;
      element('pause').focus();
      program._resizeRoom(...page.size);
      refresh();
      return '';
    },
    stop() {
      watching = false;
      program._stopWatching();
      document.documentElement.classList.remove('watching');
      element('bar').hidden = true;
      element('note').textContent = '';
    },
    tellFault: (text) => (fault = text.replace(/^.*?:(\d+): /, 'line $1: ')),
    tellPlace(now) {
      told = now;
      const news = [Math.floor(now.ms / BAR_MS), isAtEnd(), now.lengthMs, now.quarters, now.paused, now.wrongFrame].join();
      if (news !== shown) show();
      shown = news;
    },
    resize: () => change('_resizeRoom', ...page.size),
    changeFocus: () => refresh(),
    press: toggle,
    move: () => {},
    release: () => {},
    cancel: () => {},
  };
}
