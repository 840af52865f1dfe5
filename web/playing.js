/** Lets the program play, with all that happens to the page passed on to it. */

import { callAtRefreshes } from './refreshing.js';

/** What `runForRefresh` of program/web/playing.cpp returns. */
const GO_ON = 1;
const END = 2;

/** So many refreshes without anything new to see, and a timer stands in for them until something happens. */
const STILL_REFRESHES = 120;

/**
 * @param program with its files
 * @param {{size: number[], inFront: boolean, meter: RateMeter, picture: Picture}} page what is known of it
 * @param {HTMLElement} paused the note that the game waits
 * @param {() => void} tellEnd called when the program has ended
 */
export function makeGame(program, page, paused, tellEnd) {
  let running = false;
  /** Whether the program has seen that it is in front. What brings it there is no tap in the game. */
  let awake = false;
  let rate = 0;
  /** Refreshes since the picture changed. */
  let still = 0;

  const run = (time) => {
    const next = program._runForRefresh(time);
    awake = next === GO_ON;
    if (next === END) end();
    return awake;
  };
  const playOn = (time) => {
    if (!running) return false;
    page.meter.add(time);
    if (page.meter.rate !== rate) program._setRefreshRate((rate = page.meter.rate));
    const { changes } = page.picture;
    const goesOn = run(time);
    still = page.picture.changes === changes ? still + 1 : 0;
    return goesOn;
  };
  const begin = callAtRefreshes(playOn, () => (still > STILL_REFRESHES && rate > 0 ? 1000 / rate : 0));
  const refresh = () => {
    still = 0;
    begin();
  };
  /** A call of the program for something that the player did, which is to be seen at the next refresh. */
  const told = (call) => (...rest) => {
    call(...rest);
    refresh();
  };
  const end = () => {
    running = false;
    paused.hidden = true;
    tellEnd();
  };

  return {
    start() {
      running = true;
      paused.hidden = page.inFront;
      program._start();
      program._resizeRoom(...page.size);
      if (page.inFront) program._gainFocus();
      refresh();
    },
    /** Ends the program. */
    quit() {
      program._quit();
      run(performance.now());
    },
    resize() {
      program._resizeRoom(...page.size);
      refresh();
    },
    changeFocus() {
      paused.hidden = page.inFront;
      if (page.inFront) {
        program._gainFocus();
        refresh();
      } else {
        // There may be no refresh for a long time.
        program._loseFocus();
        run(performance.now());
      }
    },
    press: told((x, y) => awake && program._pressPointer(x, y)),
    move: told((x, y) => program._movePointer(x, y)),
    release: told((x, y) => program._releasePointer(x, y)),
    cancel: told(() => program._cancelPointer()),
    pressEscape: told(() => program._pressEscape()),
  };
}
