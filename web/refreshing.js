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
 * @returns {() => void} begins, or begins again; does nothing while calls go on
 */
export function callAtRefreshes(call) {
  let goesOn = false;
  const refresh = (time) => {
    goesOn = call(time);
    if (goesOn) requestAnimationFrame(refresh);
  };
  return () => {
    if (goesOn) return;
    goesOn = true;
    requestAnimationFrame(refresh);
  };
}
