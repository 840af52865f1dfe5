/**
 * Games that are played tap by tap: in the page, refresh by refresh, by real events, and by `replay`, which says what must
 * be seen.
 */
'use strict';

const { execFileSync } = require('node:child_process');
const fs = require('node:fs');
const path = require('node:path');

const { POLLING, untilPlaying } = require('./browser.js');

const ROOT = path.join(__dirname, '../..');
const WORK = path.join(ROOT, 'build/web-test');

const REFRESHES_PER_SECOND = 60;
const SCREEN = { width: 240, height: 320 };

/** When a refresh comes, in whole ms after the start. */
const refreshMs = (refresh) => Math.floor((refresh * 1000) / REFRESHES_PER_SECOND);

/** The refresh whose frame shows what happened at a time, which may be 1 ms early for that. */
const refreshAfter = (ms) => Math.ceil((ms * REFRESHES_PER_SECOND) / 1000);

/**
 * Reads a game of the folder beside this; a touch and a release each stand for a whole tap.
 * @returns {{clock: number, taps: {refresh: number, x: number, y: number}[], refreshes: number}}
 */
function readGame(name) {
  const game = { clock: 0, taps: [], refreshes: 0 };
  for (const line of fs.readFileSync(path.join(__dirname, 'games', `${name}.txt`), 'utf8').split('\n')) {
    const [word, number, action, x, y] = line.split(/\s+/);
    if (word === 'clock') game.clock = Number(number);
    if (word !== 'at') continue;
    game.refreshes = refreshAfter(Number(number));
    if (action === 'touch' || action === 'release') game.taps.push({ refresh: game.refreshes, x: Number(x), y: Number(y) });
  }
  return game;
}

/**
 * Plays a script's lines by `replay`.
 * @param {number} clock
 * @param {string[]} lines
 * @returns {object[]} the trace; its lines are found by `shownAt`
 */
const trace = (clock, lines) => traceOf([`clock ${clock}`, `refresh ${REFRESHES_PER_SECOND}`, ...lines, ''].join('\n'));

/** The trace of a whole script. */
function traceOf(text) {
  const script = path.join(WORK, 'game.txt');
  const output = path.join(WORK, 'trace.jsonl');
  fs.writeFileSync(script, text);
  execFileSync(
    process.execPath,
    ['--no-experimental-fetch', path.join(ROOT, 'build/node/replay.js'), script, '--data', path.join(ROOT, 'data'), '--trace', output],
    { cwd: WORK }
  );
  return fs.readFileSync(output, 'utf8').trim().split('\n').map((line) => JSON.parse(line));
}

/** What was shown at a refresh. */
function shownAt(frames, clock, refresh) {
  const tick = clock + refreshMs(refresh);
  return frames.findLast((frame) => frame.tick === tick);
}

/** The lines of a script for something that happens in time for a refresh. */
const linesAt = (refresh, ...actions) => actions.map((action) => `at ${refreshMs(refresh) - 1} ${action}`);

/**
 * Opens the page so that its refreshes come only from `stepTo`, exactly 60 a second, and the program starts at a tick.
 */
async function openStepped(page, url, clock) {
  await page.evaluateOnNewDocument((tick, rate) => {
    let waiting = [];
    let refresh = 0;
    Date.now = () => tick;
    window.requestAnimationFrame = (call) => waiting.push(call);
    window.setTimeout = window.requestAnimationFrame;
    let now = 0;
    performance.now = () => now;
    const refreshAt = (time) => {
      now = time;
      const calls = waiting;
      waiting = [];
      for (const call of calls) call(time);
    };
    // The refresh at which the program comes to the front is the 0th, at which it shows its first frame.
    window.stepTo = (last) => {
      for (; refresh <= last; ++refresh) refreshAt(1000 + (refresh * 1000) / rate);
    };
    // As many more, so far apart.
    let later = 1e6;
    window.stepBy = (count, gapMs) => {
      for (; count > 0; --count) refreshAt((later += gapMs));
    };
  }, clock, REFRESHES_PER_SECOND);
  await page.goto(url);
  await page.bringToFront();
  await untilPlaying(page);
  await page.waitForFunction(() => document.hasFocus() && document.getElementById('paused').hidden, POLLING);
}

const stepTo = (page, refresh) => page.evaluate((last) => window.stepTo(last), refresh);
/** Instead, from now on: as many refreshes more, so far apart. */
const stepBy = (page, count, gapMs) => page.evaluate((...steps) => window.stepBy(...steps), count, gapMs);

/** The checksum of what the canvas shows, as `replay` counts it: of the screen's pixels, each looked at in its middle. */
function seen(page) {
  return page.evaluate(({ width, height }) => {
    const canvas = document.getElementById('picture');
    const { data } = canvas.getContext('2d').getImageData(0, 0, canvas.width, canvas.height);
    let crc = ~0;
    const add = (byte) => {
      crc ^= byte;
      for (let bit = 0; bit < 8; ++bit) crc = (crc >>> 1) ^ (crc & 1 ? 0xedb88320 : 0);
    };
    for (let y = 0; y < height; ++y) {
      for (let x = 0; x < width; ++x) {
        const row = Math.floor(((y + 0.5) * canvas.height) / height);
        const place = 4 * (row * canvas.width + Math.floor(((x + 0.5) * canvas.width) / width));
        const pixel = ((data[place] >> 3) << 11) | ((data[place + 1] >> 2) << 5) | (data[place + 2] >> 3);
        add(pixel & 0xff);
        add(pixel >> 8);
      }
    }
    return (~crc >>> 0).toString(16).padStart(8, '0');
  }, SCREEN);
}

/** The middle of a pixel of the screen, in the page's points. */
async function placeOf(page, x, y) {
  const { left, top, width, height } = await page.$eval('#picture', (canvas) => canvas.getBoundingClientRect().toJSON());
  return [left + ((x + 0.5) * width) / SCREEN.width, top + ((y + 0.5) * height) / SCREEN.height];
}

module.exports = { linesAt, openStepped, placeOf, readGame, ROOT, seen, shownAt, stepBy, stepTo, trace, traceOf, WORK };
