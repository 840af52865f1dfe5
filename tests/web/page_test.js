/** Plays the page in a browser as a player would, and in the ways that pages break. */
'use strict';

const assert = require('node:assert');
const crypto = require('node:crypto');
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const { after, before, describe, test } = require('node:test');

const { openBrowser, PAGE_FOLDER, POLLING, prepare, Server, troubleOf, untilPlaying } = require('./browser.js');
const { linesAt, openStepped, placeOf, readGame, seen, shownAt, stepTo, trace } = require('./games.js');
const { assertMet, endGame } = require('./recorded.js');
const { DESKTOP, keepPicture, LYING_PHONE, NEW_GAME, ODD_DENSITY, pageTest, PHONE, server, tap, theBrowser } = require('./visits.js');

/** Plays a recorded game by real taps. @returns what `replay` shows of it */
async function playGame(page, name) {
  const game = readGame(name);
  const lines = game.taps.flatMap(({ refresh, x, y }) => linesAt(refresh, `touch ${x} ${y}`, `release ${x} ${y}`));
  const frames = trace(game.clock, [...lines, ...linesAt(game.refreshes + 1, 'quit')]);
  await openStepped(page, server.url, game.clock);
  for (const [i, { refresh, x, y }] of game.taps.entries()) {
    await stepTo(page, refresh - 1);
    const expected = shownAt(frames, game.clock, refresh - 1);
    assert.strictEqual(await seen(page), expected.crc, `before tap ${i}, refresh ${refresh - 1}, ${expected.screen}`);
    if (expected.screen === 'SHOP') await keepPicture(page, `${name}-shop-${page.viewport().width}`);
    await tap(page, { x, y });
  }
  await stepTo(page, game.refreshes);
  assert.strictEqual(await seen(page), shownAt(frames, game.clock, game.refreshes).crc, 'at the end');
  await keepPicture(page, `${name}-${page.viewport().width}`);
  await endGame(page, game.refreshes + 1);
  await assertMet(page);
  return frames;
}

/** Bytes in which a screenshot and the canvas differ: none where nothing scaled the picture on its way to the display. */
async function unsharpBytes(page) {
  const screenshot = await page.screenshot({ encoding: 'base64' });
  return page.evaluate(async (base64) => {
    const bytes = Uint8Array.from(atob(base64), (character) => character.charCodeAt(0));
    const picture = await createImageBitmap(new Blob([bytes], { type: 'image/png' }));
    const canvas = document.getElementById('picture');
    const place = canvas.getBoundingClientRect();
    const copy = new OffscreenCanvas(canvas.width, canvas.height).getContext('2d');
    copy.drawImage(picture, -Math.round(place.left * devicePixelRatio), -Math.round(place.top * devicePixelRatio));
    const shown = copy.getImageData(0, 0, canvas.width, canvas.height).data;
    const drawn = canvas.getContext('2d').getImageData(0, 0, canvas.width, canvas.height).data;
    return shown.reduce((count, value, i) => count + (value === drawn[i] ? 0 : 1), 0);
  }, screenshot);
}

describe('a game', () => {
  for (const [where, viewport] of Object.entries({ 'a desktop': DESKTOP, 'a phone': PHONE })) {
    pageTest(`goes as recorded on ${where}: a campaign, the shop, a nuke`, viewport, async (page) => {
      const frames = await playGame(page, 'campaign');
      assert.ok(frames.some((frame) => frame.screen === 'SHOP'), 'the shop was reached');
      const nukes = frames.map((frame) => frame.state.player.nukes);
      assert.ok(nukes.includes(1) && nukes.at(-1) === 0, 'a nuke was bought and used');
    });
  }

  for (const [where, viewport] of Object.entries({ 'a lying phone': LYING_PHONE, 'a display of odd density': ODD_DENSITY })) {
    pageTest(`goes as recorded on ${where}: survival until the Earth is lost`, viewport, async (page) => {
      const frames = await playGame(page, 'survival');
      assert.ok(frames.some((frame) => frame.screen === 'GAME_OVER' || frame.state.player.health <= 0));
    });
  }

  // Emulated densities are laid out in points, real ones in pixels.
  for (const density of [1, 1.1, 1.5, 2.625, 3])
    test(`is sharp at a density of ${density}`, async () => {
      const dense = await openBrowser([`--force-device-scale-factor=${density}`, '--window-size=800,800']);
      try {
        const page = prepare(await dense.newPage());
        await page.setViewport(null);
        await page.goto(server.url);
        await page.bringToFront();
        await untilPlaying(page);
        // The menu is still sliding in.
        let unsharp = -1;
        for (let tries = 0; tries < 20 && unsharp !== 0; ++tries) unsharp = await unsharpBytes(page);
        assert.strictEqual(unsharp, 0);
      } finally {
        await dense.close();
      }
    });

  for (const [width, height] of [[200, 200], [3840, 2160]])
    pageTest(`fits into ${width} x ${height}`, { width, height, deviceScaleFactor: 1 }, async (page) => {
      const frames = trace(1000000, linesAt(70, 'quit'));
      await openStepped(page, server.url, 1000000);
      await stepTo(page, 60);
      assert.strictEqual(await seen(page), shownAt(frames, 1000000, 60).crc);
      const place = await page.$eval('#picture', (canvas) => canvas.getBoundingClientRect().toJSON());
      assert.deepStrictEqual([place.width, place.height], width === 200 ? [150, 200] : [1620, 2160]);
      await keepPicture(page, `${width}`);
    });
});

describe('input', () => {
  const clock = 1000000;
  const down = `touch ${NEW_GAME.x} ${NEW_GAME.y}`;
  const up = `release ${NEW_GAME.x} ${NEW_GAME.y}`;

  async function assertSeenAt(page, refresh, lines) {
    await stepTo(page, refresh);
    const frames = trace(clock, [...lines, ...linesAt(refresh + 1, 'quit')]);
    assert.strictEqual(await seen(page), shownAt(frames, clock, refresh).crc);
  }

  pageTest('has one finger, and a second does nothing', PHONE, async (page) => {
    await openStepped(page, server.url, clock);
    await stepTo(page, 60);
    const first = await page.touchscreen.touchStart(...(await placeOf(page, 30, 30)));
    const second = await page.touchscreen.touchStart(...(await placeOf(page, NEW_GAME.x, NEW_GAME.y)));
    await second.end();
    await assertSeenAt(page, 120, linesAt(61, 'touch 30 30'));
    await first.end();
    await tap(page, NEW_GAME);
    await assertSeenAt(page, 180, [...linesAt(61, 'touch 30 30'), ...linesAt(121, 'release 30 30', down, up)]);
  });

  pageTest('drops a touch that the system takes away', PHONE, async (page) => {
    await openStepped(page, server.url, clock);
    await stepTo(page, 60);
    const [x, y] = await placeOf(page, NEW_GAME.x, NEW_GAME.y);
    const session = await page.createCDPSession();
    await session.send('Input.dispatchTouchEvent', { type: 'touchStart', touchPoints: [{ x, y }] });
    await session.send('Input.dispatchTouchEvent', { type: 'touchCancel', touchPoints: [] });
    await assertSeenAt(page, 120, linesAt(61, down));
    await tap(page, NEW_GAME);
    await assertSeenAt(page, 180, [...linesAt(61, down), ...linesAt(121, down, up)]);
  });

  pageTest('takes the left button alone, to its end outside the picture', DESKTOP, async (page) => {
    await openStepped(page, server.url, clock);
    await stepTo(page, 60);
    const place = await placeOf(page, NEW_GAME.x, NEW_GAME.y);
    await page.mouse.click(...place, { button: 'right' });
    await page.mouse.click(...place, { button: 'middle' });
    await assertSeenAt(page, 120, []);
    await page.mouse.move(...place);
    await page.mouse.down();
    await page.mouse.move(2, 2);
    await page.mouse.up();
    const lines = linesAt(121, down, 'move 0 0', 'release 0 0');
    await assertSeenAt(page, 180, lines);
  });

  pageTest('leaves all keys but Escape to the browser', DESKTOP, async (page) => {
    await openStepped(page, server.url, clock);
    await page.evaluate(() => {
      window.taken = [];
      const note = (event) => event.defaultPrevented && window.taken.push(event.key);
      addEventListener('keydown', (event) => {
        note(event);
        event.preventDefault(); // or the browser would reload the page
      });
    });
    for (const key of ['Tab', 'F5', 'F11', 'Enter', 'Space', 'a']) await page.keyboard.press(key);
    for (const chord of ['Control', 'Shift', 'Alt', 'Meta']) {
      await page.keyboard.down(chord);
      await page.keyboard.press('Escape');
      await page.keyboard.up(chord);
    }
    assert.deepStrictEqual(await page.evaluate(() => window.taken), []);
    await stepTo(page, 30);
    assert.strictEqual(await page.$eval('#note', (note) => note.textContent), '');
  });

  pageTest('ends at the second Escape, and plays again by keyboard', DESKTOP, async (page) => {
    await page.goto(server.url);
    await page.bringToFront();
    await untilPlaying(page);
    await page.keyboard.press('Escape');
    await page.waitForFunction(() => document.getElementById('note').textContent === 'Press Escape again to leave');
    await keepPicture(page, 'escape');
    await page.waitForFunction(() => document.getElementById('note').textContent === '');
    for (let round = 0; round < 2; ++round) {
      await page.keyboard.press('Escape');
      await page.keyboard.press('Escape');
      await page.waitForSelector('#again:focus');
      await keepPicture(page, 'ended');
      await page.keyboard.press('Enter');
      await untilPlaying(page);
    }
    await tap(page, NEW_GAME);
  });
});

describe('in the background', () => {
  pageTest('nothing is called, drawn or heard, and then it goes on', DESKTOP, async (page) => {
    await page.evaluateOnNewDocument(() => {
      window.refreshes = 0;
      const request = window.requestAnimationFrame.bind(window);
      window.requestAnimationFrame = (call) => request((time) => (++window.refreshes, call(time)));
      window.AudioContext = class extends window.AudioContext {
        constructor() {
          super();
          window.audio = this;
        }
      };
    });
    await page.goto(server.url);
    await page.bringToFront();
    await untilPlaying(page);
    await page.waitForFunction(() => window.refreshes > 60);
    await tap(page, NEW_GAME);
    await page.waitForFunction(() => window.audio?.state === 'running');

    const other = await page.browserContext().newPage();
    await other.bringToFront();
    await page.waitForFunction(() => document.visibilityState === 'hidden', POLLING);
    await page.waitForFunction(() => window.audio.state === 'suspended', POLLING);
    const before = await page.evaluate(() => window.refreshes);
    const picture = await seen(page);
    await new Promise((done) => setTimeout(done, 500));
    assert.strictEqual(await page.evaluate(() => window.refreshes), before);
    assert.strictEqual(await seen(page), picture);
    assert.ok(await page.$eval('#paused', (note) => !note.hidden));

    await other.close();
    await page.bringToFront();
    await page.waitForFunction((count) => window.refreshes > count + 60, {}, before);
    assert.ok(await page.$eval('#paused', (note) => note.hidden));
  });
});

describe('a page that cannot play says why', () => {
  const wasm = fs.readFileSync(path.join(PAGE_FOLDER, 'mygame.wasm'));
  const picture = fs.readFileSync(path.join(PAGE_FOLDER, 'menu.jpg'));
  const damaged = Buffer.from(wasm);
  damaged[5000] ^= 1;

  for (const [what, name, content] of [
    ['a missing program', 'mygame.wasm', null],
    ['a damaged program', 'mygame.wasm', damaged],
    ['a missing picture', 'menu.jpg', null],
    ['a picture cut short', 'menu.jpg', picture.subarray(0, 1000)],
    ['missing glue', 'mygame.js', null],
    ['a missing main module', 'main.js', null],
  ])
    pageTest(`of ${what}`, DESKTOP, async (page) => {
      server.instead.set(name, content);
      await page.goto(server.url);
      assert.match(await troubleOf(page), new RegExp(`file ${name}.* missing`));
      await keepPicture(page, 'trouble');
    });

  pageTest('of a missing module', DESKTOP, async (page) => {
    server.instead.set('sound.js', null);
    await page.goto(server.url);
    assert.match(await troubleOf(page), /missing/);
  });

  pageTest('of a browser without WebAssembly', DESKTOP, async (page) => {
    await page.evaluateOnNewDocument(() => delete window.WebAssembly);
    await page.goto(server.url);
    assert.match(await troubleOf(page), /no WebAssembly/);
  });

  pageTest('of a browser that does not let it draw', DESKTOP, async (page) => {
    await page.evaluateOnNewDocument(() => (HTMLCanvasElement.prototype.getContext = () => null));
    await page.goto(server.url);
    assert.match(await troubleOf(page), /does not let the page draw/);
  });
});

describe('a page plays all the same', () => {
  for (const [what, deny] of Object.entries({
    'storage': () =>
      Object.defineProperty(Navigator.prototype, 'serviceWorker', {
        get() {
          throw new DOMException('denied', 'SecurityError');
        },
      }),
    'sound': () => {
      window.AudioContext = class {
        constructor() {
          throw new DOMException('denied', 'NotSupportedError');
        }
      };
    },
    'full screen': () => Object.defineProperty(Document.prototype, 'fullscreenEnabled', { value: false }),
  }))
    pageTest(`without ${what}`, DESKTOP, async (page) => {
      await page.evaluateOnNewDocument(deny);
      await page.goto(server.url);
      await page.bringToFront();
      await untilPlaying(page);
      await tap(page, NEW_GAME);
      await tap(page, NEW_GAME);
    });
});

describe('the display rate', () => {
  pageTest('is found in spite of jitter and missed refreshes', DESKTOP, async (page) => {
    await page.goto(server.url);
    const found = await page.evaluate(async () => {
      const { RateMeter } = await import('./refreshing.js');
      const measured = (rate, roundTo, missEvery) => {
        const meter = new RateMeter();
        for (let i = 0; i < 200; ++i)
          if (i % missEvery !== 0) meter.add(Math.round((5000 + (i * 1000) / rate) / roundTo) * roundTo);
        return meter.rate;
      };
      return [30, 59.94, 60, 90, 120, 143.9, 240].map((rate) => [measured(rate, 0.001, 7), measured(rate, 1, 5), measured(rate, 0.1, 1e9)]);
    });
    assert.deepStrictEqual(found, [30, 60, 60, 90, 120, 144, 240].map((rate) => [rate, rate, rate]));
  });
});

describe('offline', () => {
  let folder;
  let versions;

  before(async () => {
    folder = fs.mkdtempSync(path.join(os.tmpdir(), 'mygame-page-'));
    fs.cpSync(PAGE_FOLDER, folder, { recursive: true });
    versions = new Server(folder);
    await versions.start();
  });

  after(async () => {
    await versions.stop();
    fs.rmSync(folder, { recursive: true });
  });

  const integrityOf = (content) => `sha256-${crypto.createHash('sha256').update(content).digest('base64')}`;

  /** Makes a version whose page has another title, as the build would. */
  function publish(title) {
    const index = path.join(folder, 'index.html');
    const worker = path.join(folder, 'service-worker.js');
    const old = fs.readFileSync(index, 'utf8');
    const changed = old.replace(/<title>.*<\/title>/, `<title>${title}</title>`);
    fs.writeFileSync(index, changed);
    const listed = fs.readFileSync(worker, 'utf8').replace(integrityOf(old), integrityOf(changed));
    fs.writeFileSync(worker, listed.replace(/VERSION = '.*'/, `VERSION = '${title}'`));
  }

  /** Visits the page and looks at its title. @param {(page) => Promise} wait for what must happen meanwhile */
  async function visit(context, wait = async () => {}) {
    const page = prepare(await context.newPage());
    await page.goto(versions.url);
    await page.bringToFront();
    await untilPlaying(page);
    const title = await page.title();
    await wait(page);
    await page.close();
    return title;
  }

  test('the page plays, and a new version comes at the next visit but one', async () => {
    const context = await theBrowser().createBrowserContext();
    const keeper = await context.newPage(); // A browser without pages would end.
    await visit(context, (page) => page.evaluate(() => navigator.serviceWorker.ready.then(() => true)));
    const { port } = versions;
    await versions.stop();
    assert.strictEqual(await visit(context), 'MyGame', 'without a server');

    versions = new Server(folder);
    await versions.start(port);
    publish('Second');
    const untilFetched = (page) =>
      page.waitForFunction(async () => (await navigator.serviceWorker.getRegistration()).waiting !== null, POLLING);
    assert.strictEqual(await visit(context, untilFetched), 'MyGame');
    // The browser notices a little later that no page of the old one is open any more.
    let title = '';
    for (let visits = 0; visits < 20 && title !== 'Second'; ++visits) title = await visit(context);
    assert.strictEqual(title, 'Second');
    await keeper.close();
    await context.close();
  });
});
