/** The recordings that the page keeps, and every `replay` that there is to play them. */
'use strict';

const assert = require('node:assert');
const { execFile, spawnSync } = require('node:child_process');
const fs = require('node:fs');
const path = require('node:path');
const { promisify } = require('node:util');

const { POLLING } = require('./browser.js');
const { ROOT, stepTo, WORK } = require('./games.js');

const WINE = { WINEPREFIX: path.join(ROOT, 'build/wine'), WINEDEBUG: '-all', WINEDLLOVERRIDES: 'mscoree,mshtml=' };
const hasWine = spawnSync('wine', ['--version'], { env: { ...process.env, ...WINE } }).status === 0;

/** The command of each `replay`, by where it runs; those that are not built are left out. */
const REPLAYS = Object.entries({
  node: [process.execPath, '--no-experimental-fetch', 'build/node/replay.js'],
  here: ['build/release/bin/replay'],
  wine: hasWine ? ['wine', 'build/windows/bin/replay.exe'] : ['nothing'],
}).filter(([, command]) => fs.existsSync(path.join(ROOT, command.at(-1))) || fs.existsSync(command.at(-1)));

/** The names of the recordings that the page's storage holds, newest first. */
const names = (page) => page.evaluate(async () => new (await import('./recordings.js')).Recordings().names());

/** Waits until the storage holds a recording with something in it. @returns {Promise<string>} all of it */
async function recordingWith(page, wanted, name) {
  const found = await page.waitForFunction(
    async (text, which) => {
      const stored = new (await import('./recordings.js')).Recordings();
      const recording = await stored.read(which ?? (await stored.names())[0]).catch(() => '');
      return recording.includes(text) && recording;
    },
    POLLING,
    wanted,
    name
  );
  return found.jsonValue();
}

/** Plays a recording wherever it can be, and expects all its checks, one for each second and more, to be met. */
async function assertPlays(recording) {
  assert.ok(recording.startsWith('# MyGame recording\n# MyGame '), recording.slice(0, 60));
  assert.match(recording, /^at \d+ check [0-9a-f]{8}$/m);
  const script = path.join(WORK, 'recorded.mygame');
  fs.writeFileSync(script, recording);
  const options = { cwd: ROOT, env: { ...process.env, ...WINE } };
  const play = async ([where, [program, ...rest]]) => {
    const fault = await promisify(execFile)(program, [...rest, path.relative(ROOT, script), '--data', 'data'], options).catch((fault) => fault);
    if (fault.code === undefined) return;
    fs.copyFileSync(script, path.join(WORK, 'unmet.mygame'));
    assert.fail(`${where}: ${fault.stderr || fault.message}; the recording is build/web-test/unmet.mygame`);
  };
  await Promise.all(REPLAYS.map(play));
}

/** Expects that of the newest recording, whose game has ended. @returns it */
async function assertMet(page) {
  const recording = await recordingWith(page, ' key-up 27\n');
  await assertPlays(recording);
  return recording;
}

/** Leaves the game. @param refresh the one at which that is noticed, where refreshes are stepped to */
async function endGame(page, refresh) {
  await page.keyboard.press('Escape');
  await page.keyboard.press('Escape');
  if (refresh) await stepTo(page, refresh);
  await page.waitForSelector('#again:focus');
}

module.exports = { assertMet, assertPlays, endGame, names, recordingWith };
