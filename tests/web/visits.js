/** Visits to the page: each test's own server, browser and windows, and what a visitor does. */
'use strict';

const assert = require('node:assert');
const path = require('node:path');
const { after, before, test } = require('node:test');

const { openBrowser, prepare, Server } = require('./browser.js');
const { placeOf } = require('./games.js');

const PICTURES = process.env.PICTURES;

const DESKTOP = { width: 800, height: 760, deviceScaleFactor: 1 };
const PHONE = { width: 390, height: 844, deviceScaleFactor: 3, hasTouch: true, isMobile: true };
const LYING_PHONE = { ...PHONE, width: 844, height: 390, isLandscape: true };
const ODD_DENSITY = { width: 1111, height: 700, deviceScaleFactor: 1.5 };

const NEW_GAME = { x: 120, y: 130 };

const server = new Server();
let browser;

before(async () => {
  await server.start();
  browser = await openBrowser();
});

after(async () => {
  await browser.close();
  await server.stop();
});

const theBrowser = () => browser;

/** Gives a test a page of its own, in a profile of its own, and looks for faults at the end. */
function pageTest(name, viewport, play) {
  test(name, async () => {
    const context = await browser.createBrowserContext();
    const page = prepare(await context.newPage());
    const strangers = [];
    page.on('request', (request) => request.url().startsWith(server.url) || strangers.push(request.url()));
    await page.setViewport(viewport);
    try {
      await play(page);
      assert.deepStrictEqual(page.faults, []);
      assert.deepStrictEqual(strangers.filter((url) => !url.startsWith('data:')), [], 'something was fetched from elsewhere');
    } finally {
      server.instead.clear();
      await context.close();
    }
  });
}

/** Keeps a screenshot for whoever wants to look at it. */
async function keepPicture(page, name) {
  if (PICTURES) await page.screenshot({ path: path.join(PICTURES, `${name}.png`) });
}

async function tap(page, { x, y }) {
  const place = await placeOf(page, x, y);
  if (page.viewport().hasTouch) await page.touchscreen.tap(...place);
  else await page.mouse.click(...place);
}

module.exports = { DESKTOP, keepPicture, LYING_PHONE, NEW_GAME, ODD_DENSITY, pageTest, PHONE, server, tap, theBrowser };
