/** The display's refreshes: calling the program at each, and finding out how many there are in a second. */

/** Rates that displays have, in Hz. */
const USUAL_RATES = [30, 48, 50, 60, 72, 75, 90, 100, 120, 144, 165, 180, 240, 360, 480];
/** How far a measured rate may lie from a usual one to count as that. */
const TOLERANCE = 0.02;

/** Refreshes that a measurement takes. */
const SAMPLES = 24;
/** What takes longer is no distance of refreshes, in ms. */
const LONGEST_GAP_MS = 250;

/** Measures a display's rate by the times at which it refreshed, some of which may have been missed. */
export class RateMeter {
  #last = 0;
  #gaps = [];
  #candidate = 0;
  #rate = 0;

  /** In Hz, a whole number; 0 as long as too few refreshes were seen. */
  get rate() {
    return this.#rate;
  }

  /** @param {number} time of a refresh, in ms. Times need not follow each other closely. */
  add(time) {
    const gap = time - this.#last;
    this.#last = time;
    if (gap > 0 && gap < LONGEST_GAP_MS) this.#gaps.push(gap);
    if (this.#gaps.length === SAMPLES) this.#measure();
  }

  #measure() {
    const gaps = this.#gaps.sort((a, b) => a - b);
    const shortest = gaps[Math.floor(SAMPLES / 4)];
    const refreshes = gaps.reduce((sum, gap) => sum + Math.max(1, Math.round(gap / shortest)), 0);
    const rate = usualRate((1000 * refreshes) / gaps.reduce((sum, gap) => sum + gap));
    this.#gaps = [];
    // A single measurement of another rate may be a busy moment.
    if (this.#rate === 0 || rate === this.#candidate) this.#rate = rate;
    this.#candidate = rate;
  }
}

function usualRate(measured) {
  const isNear = (rate) => Math.abs(measured - rate) <= rate * TOLERANCE;
  return USUAL_RATES.find(isNear) ?? Math.round(measured);
}

/**
 * Calls at each refresh until the call returns false.
 * @param {(time: number) => boolean} call given the time of the refresh in ms
 * @param {() => number} restMs after how long a timer stands in for the next refresh, which costs a browser less than half as
 *   much; 0 where the display is to tell
 * @returns {() => void} begins, or begins again; asks the display where a timer stood in, and does nothing else while calls go on
 */
export function callAtRefreshes(call, restMs = () => 0) {
  /** Only the latest of all that was waited for counts. */
  let turn = 0;
  let goesOn = false;
  let rest = 0;
  let last = 0;
  /** What the display tells before is the refresh that a timer has stood in for. */
  let soonest = 0;

  const wait = () => {
    const mine = ++turn;
    const arrive = (time) => mine === turn && refresh(time);
    if (rest === 0) {
      requestAnimationFrame(arrive);
      return;
    }
    const due = last + rest;
    const isMissed = () => performance.now() > due + rest;
    setTimeout(() => arrive(isMissed() ? performance.now() : due), due - performance.now());
  };
  const refresh = (time) => {
    if (time >= soonest) {
      soonest = 0;
      last = time;
      goesOn = call(time);
      rest = restMs();
    }
    if (goesOn) wait();
  };
  return () => {
    if (goesOn && rest === 0) return;
    if (goesOn) soonest = last + rest / 2;
    goesOn = true;
    rest = 0;
    wait();
  };
}
