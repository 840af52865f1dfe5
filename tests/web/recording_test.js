/** Records games in the page, in all that may happen to it, and sees them again there and by `replay`. */
'use strict';

const assert = require('node:assert');
const path = require('node:path');
const { describe, test } = require('node:test');

const { POLLING, prepare, untilPlaying } = require('./browser.js');
const { openStepped, ROOT, seen, stepBy, traceOf } = require('./games.js');
const { assertMet, assertPlays, endGame, names, recordingWith } = require('./recorded.js');
const { DESKTOP, keepPicture, LYING_PHONE, pageTest, PHONE, server, tap, theBrowser } = require('./visits.js');

const REFRESH_MS = 1000 / 60;
/** Refreshes in which a menu opens. */
const OPENING = 50;

/** Rows of the menus. */
const ROW = [130, 160, 190];
const CAMPAIGN = 0;
const SURVIVAL = 1;
const TIME_ATTACK = 2;
const HARD = 2;

/** Characters of a link that do not depend on the game's length, at most. */
const BEGINNING = 250;

const sleep = (ms) => new Promise((done) => setTimeout(done, ms));

/** The link to a recording, as the page makes it. */
async function linkTo(page, recording) {
  await page.goto(server.url);
  const packed = await page.evaluate(async (text) => (await import('./link.js')).pack(text), recording);
  await page.goto('about:blank');
  return `${server.url}#${packed}`;
}

/** Begins a game from the main menu. @param {() => Promise} wait until a menu is open */
async function beginGame(page, mode, wait) {
  for (const y of [ROW[0], ROW[mode], ROW[HARD]]) {
    await wait();
    await tap(page, { x: 120, y });
  }
  await wait();
}

async function open(page, url = server.url) {
  await page.goto(url);
  await page.bringToFront();
  await untilPlaying(page);
}

/** Plays by hand for a time. */
async function shoot(page, shots) {
  for (let i = 0; i < shots; ++i) {
    await tap(page, { x: 20 + ((i * 73) % 200), y: 60 + ((i * 41) % 160) });
    await sleep(120);
  }
}

/** A short game by stepped refreshes. @returns its recording */
async function record(page, mode = SURVIVAL) {
  await openStepped(page, server.url, 1000000);
  const wait = () => stepBy(page, OPENING, REFRESH_MS);
  await beginGame(page, mode, wait);
  for (let i = 0; i < 8; ++i) {
    await tap(page, { x: 40 + i * 20, y: 150 });
    await wait();
  }
  await leave(page);
  return assertMet(page);
}

async function leave(page) {
  await page.keyboard.press('Escape');
  await page.keyboard.press('Escape');
  await stepBy(page, 2, REFRESH_MS);
  await page.waitForSelector('#again:focus');
}

const endWatching = async (page) => {
  await page.focus('#place');
  await page.keyboard.press('End');
  await page.waitForSelector('#play.wanted');
};

describe('a recording plays as the game did', () => {
  const block = (page, ms) =>
    page.evaluate((time) => {
      for (const end = performance.now() + time; performance.now() < end; );
    }, ms);
  const hide = async (page) => {
    const other = await page.browserContext().newPage();
    await other.bringToFront();
    await page.waitForFunction(() => document.visibilityState === 'hidden', POLLING);
    await other.close();
    await page.bringToFront();
  };
  const loseFocus = (page) =>
    page.evaluate(async () => {
      document.hasFocus = () => false;
      dispatchEvent(new Event('blur'));
      await new Promise((done) => setTimeout(done, 100));
      delete document.hasFocus;
      dispatchEvent(new Event('focus'));
    });

  for (const [name, viewport, mode, other] of [
    ['on a desktop, resized and full screen', DESKTOP, CAMPAIGN, { width: 500, height: 400 }],
    ['on a phone that is turned', PHONE, TIME_ATTACK, LYING_PHONE],
  ])
    pageTest(`${name}, busy, hidden, without the focus`, viewport, async (page) => {
      await open(page);
      await beginGame(page, mode, () => sleep(600));
      for (const disturb of [(p) => block(p, 300), hide, loseFocus, (p) => block(p, 900), (p) => p.setViewport({ ...viewport, ...other })]) {
        await shoot(page, 2);
        await disturb(page);
      }
      await page.evaluate(() => document.getElementById('full-screen').click());
      await shoot(page, 2);
      await page.evaluate(() => document.fullscreenElement && document.exitFullscreen());
      await page.waitForFunction(() => !document.fullscreenElement);
      await endGame(page);
      await assertMet(page);
    });

  pageTest('at other rates, with refreshes missed and the machine asleep', DESKTOP, async (page) => {
    await openStepped(page, server.url, 1000000);
    await beginGame(page, SURVIVAL, () => stepBy(page, OPENING, REFRESH_MS));
    for (const [count, gapMs] of [[100, 1000 / 120], [1, 200], [1, 8900], [2, 17], [1, 9100], [60, 1000 / 144], [3, 640], [60, 1000 / 48], [1, 3.6e6], [80, REFRESH_MS]]) {
      await tap(page, { x: 60 + (count % 90), y: 140 });
      await stepBy(page, count, gapMs);
    }
    await leave(page);
    assert.match(await assertMet(page), / refresh 120\n[^]* refresh 144\n/);
  });
});

describe('the storage', () => {
  pageTest('keeps the newest five, and no start without a game', DESKTOP, async (page) => {
    await openStepped(page, server.url, 1000000);
    const wait = () => stepBy(page, OPENING, REFRESH_MS);
    const first = [];
    for (let game = 0; game < 7; ++game) {
      if (game !== 3) await beginGame(page, SURVIVAL, wait);
      await leave(page);
      if (game !== 3) await recordingWith(page, ' key-up 27\n', (await names(page))[0]);
      if (game === 0) first.push(...(await names(page)));
      await page.keyboard.press('Enter');
      await page.waitForSelector('#panel[hidden]');
      await wait();
    }
    const kept = await names(page);
    assert.strictEqual(kept.length, 5);
    assert.ok(!kept.includes(first[0]));
    assert.deepStrictEqual(kept, [...kept].sort().reverse());
  });

  for (const [what, deny] of Object.entries({
    denied: () => (IDBFactory.prototype.open = () => { throw new DOMException('denied', 'SecurityError'); }),
    full: () => (IDBObjectStore.prototype.put = () => { throw new DOMException('full', 'QuotaExceededError'); }),
  }))
    pageTest(`may be ${what}: the game goes on, and can be seen again`, DESKTOP, async (page) => {
      await page.evaluateOnNewDocument(deny);
      await openStepped(page, server.url, 1000000);
      await beginGame(page, TIME_ATTACK, () => stepBy(page, OPENING, REFRESH_MS));
      await leave(page);
      await page.waitForSelector('#recorded:not([hidden])');
      await page.click('#watch');
      await page.waitForSelector('#panel[hidden]');
      await stepBy(page, 2, REFRESH_MS);
      await page.evaluate(() => document.getElementById('place').focus());
      await page.keyboard.press('End');
      while (!(await page.$('#play.wanted'))) await stepBy(page, 10, REFRESH_MS);
      assert.strictEqual(await page.$eval('#note', (note) => note.textContent), '');
    });

  test('holds what was played until the tab was killed', async () => {
    const context = await theBrowser().createBrowserContext();
    const page = prepare(await context.newPage());
    await page.setViewport(PHONE);
    await open(page);
    await beginGame(page, SURVIVAL, () => sleep(600));
    await recordingWith(page, 'at 3000 check');
    const crashed = new Promise((end) => page.once('error', end));
    (await page.createCDPSession()).send('Page.crash').catch(() => {});
    await crashed;

    const next = prepare(await context.newPage());
    await next.setViewport(PHONE);
    await open(next);
    await assertPlays(await recordingWith(next, 'at 3000 check'));
    await next.waitForSelector('#show-recordings:not([hidden])');
    await keepPicture(next, 'visited-again');
    await next.tap('#show-recordings');
    await next.waitForSelector('#recorded:not([hidden])');
    await keepPicture(next, 'recorded-games');
    await next.tap('#watch');
    await endWatching(next);
    await context.close();
  });
});

pageTest('a recording that is dropped on the page is shown, and what is none says so', DESKTOP, async (page) => {
  await open(page);
  const session = await page.createCDPSession();
  const drop = async (file) => {
    const data = { items: [], files: [path.join(ROOT, file)], dragOperationsMask: 1 };
    for (const type of ['dragEnter', 'dragOver', 'drop']) await session.send('Input.dispatchDragEvent', { type, x: 300, y: 300, data });
  };
  await drop('tests/replays/campaign-lost.txt');
  await page.waitForSelector('#bar:not([hidden])');
  await drop('data/bg.jpg');
  await page.waitForSelector('#again:focus');
  assert.match(await page.$eval('#message', (message) => message.textContent), /cannot be shown: line 1: not UTF-8 text\.$/);
});

describe('a link', () => {
  pageTest('shows the game to somebody else, and then lets play', DESKTOP, async (page) => {
    const recording = await record(page);
    const frames = traceOf(recording);
    await page.evaluate(() => {
      delete Navigator.prototype.share;
      Object.defineProperty(navigator, 'clipboard', { value: { writeText: (text) => { window.copied = text; } } });
    });
    await page.click('#share');
    const link = await (await page.waitForFunction(() => window.copied, POLLING)).jsonValue();
    await keepPicture(page, 'shared');

    const context = await theBrowser().createBrowserContext();
    const other = prepare(await context.newPage());
    await other.setViewport(PHONE);
    await open(other, link);
    await keepPicture(other, 'watching');
    await endWatching(other);
    await keepPicture(other, 'watched');
    assert.strictEqual(await seen(other), frames.at(-1).crc);
    const length = await other.$eval('#time', (time) => time.textContent);
    assert.match(length, /^0:(\d\d) of 0:\1$/);
    // Behind what stands in each, three minutes fit into 8,000 characters.
    assert.ok(((link.length - BEGINNING) / Number(length.slice(2, 4))) * 180 < 8000 - BEGINNING, `${link.length} characters`);

    // Anew from the beginning, paused there, and forwards, all before the next refresh.
    const time = await other.evaluate(() => {
      for (const key of [' ', ' ', 'ArrowRight']) dispatchEvent(new KeyboardEvent('keydown', { key }));
      return document.getElementById('time').textContent;
    });
    assert.match(time, /^0:05 /);
    for (const key of ['ArrowRight', 'Home', 'ArrowRight', '+', '+', '-']) await other.keyboard.press(key);
    await other.waitForFunction(() => document.getElementById('time').textContent.startsWith('0:05 '));
    assert.strictEqual(await other.$eval('#speed', (speed) => speed.textContent), '2 ×');
    await other.click('#play');
    await untilPlaying(other);
    assert.deepStrictEqual(await names(other), []);
    assert.strictEqual(other.url(), server.url);
    assert.deepStrictEqual(other.faults, []);
    await context.close();
  });

  pageTest('holds any text as it is', DESKTOP, async (page) => {
    const texts = [
      '', '\n', '# ü\nat 05 touch 1 2', 'at 5 touch 1 2\nat 4 touch 1 2\n\nat 4 quit\n', 'at 4294967295 release 65535 0\n',
      'refresh 60\nat 0 check 00ff7f80\nat 130 frame-cost 300\nat 130 refresh 144\nat 20000 move 9 8\nat 20000 move 1 0',
    ];
    await page.goto(server.url);
    const packedTexts = await page.evaluate(async (all) => {
      const { pack, unpack } = await import('./link.js');
      return Promise.all(all.map(async (text) => unpack(await pack(text))));
    }, texts);
    assert.deepStrictEqual(packedTexts, texts);
  });

  pageTest('that is damaged says so, and lets play', PHONE, async (page) => {
    const link = await linkTo(page, 'clock 1000000\nat 2000 quit\n');
    const middle = link.length - 12;
    const changed = link[middle] === 'A' ? 'B' : 'A';
    for (const damaged of [link.slice(0, -3), link.slice(0, middle) + changed + link.slice(middle + 1), `${link}AAAA`, `${server.url}#?`]) {
      await page.goto('about:blank');
      await page.goto(damaged);
      await page.waitForSelector('#again:focus');
      assert.match(await page.$eval('#message', (message) => message.textContent), /^This link .* damaged or incomplete\.$/);
    }
    await keepPicture(page, 'damaged-link');
    await page.tap('#again');
    await untilPlaying(page);
  });

  pageTest('to a faulty script, or to other pictures, says that', DESKTOP, async (page) => {
    await page.goto(await linkTo(page, 'clock 1000000\nat 100 jump\n'));
    await page.waitForSelector('#again:focus');
    assert.strictEqual(
      await page.$eval('#message', (message) => message.textContent),
      "This recording cannot be shown: line 2: unknown directive 'jump'."
    );
    await open(page, await linkTo(page, 'clock 1000000\nrefresh 60\nat 100 check 00000000\nat 2000 quit\n'));
    await page.waitForFunction(() => /not those recorded/.test(document.getElementById('note').textContent));
    await keepPicture(page, 'other-pictures');
    await page.keyboard.press('Escape');
    await page.waitForSelector('#again:focus');
  });
});
