/**
 * Measures what the page costs and how evenly it plays: first frame, pictures a second, longest gap, the renderer's share
 * of a core, memory. Usage: node page_figures.js [SECONDS]
 */
'use strict';

const fs = require('node:fs');

const { openBrowser, prepare, Server, untilPlaying } = require('../tests/web/browser.js');
const { placeOf } = require('../tests/web/games.js');

const seconds = Number(process.argv[2] ?? 60);

const TICKS_PER_SECOND = 100; // of /proc

const sleep = (ms) => new Promise((done) => setTimeout(done, ms));

/** Ticks that the renderers of a browser have used. */
function rendererTicks(browser) {
  const main = browser.process().pid;
  let ticks = 0;
  for (const pid of fs.readdirSync('/proc').filter((name) => /^\d+$/.test(name))) {
    try {
      const command = fs.readFileSync(`/proc/${pid}/cmdline`, 'latin1');
      if (!command.includes('--type=renderer') || !command.includes('/chromium')) continue;
      const stat = fs.readFileSync(`/proc/${pid}/stat`, 'latin1').replace(/^.*\) /, '').split(' ');
      if (isBelow(pid, main)) ticks += Number(stat[11]) + Number(stat[12]);
    } catch {
      // It has ended.
    }
  }
  return ticks;
}

function isBelow(pid, ancestor) {
  for (let p = Number(pid); p > 1; ) {
    if (p === ancestor) return true;
    p = Number(fs.readFileSync(`/proc/${p}/stat`, 'latin1').replace(/^.*\) /, '').split(' ')[1]);
  }
  return false;
}

/** @returns the share of a core in per cent while something lasts */
async function shareDuring(browser, something) {
  const begin = process.hrtime.bigint();
  const before = rendererTicks(browser);
  await something();
  const passed = Number(process.hrtime.bigint() - begin) / 1e9;
  return ((100 * (rendererTicks(browser) - before)) / TICKS_PER_SECOND / passed).toFixed(1);
}

async function measure(server, width, height, density) {
  const browser = await openBrowser();
  const [page] = await browser.pages();
  prepare(page);
  await page.bringToFront();
  await page.setViewport({ width, height, deviceScaleFactor: density });
  await page.evaluateOnNewDocument(() => {
    window.times = [];
    const request = window.requestAnimationFrame.bind(window);
    window.requestAnimationFrame = (call) =>
      request((time) => {
        window.times.push(time);
        call(time);
      });
    const instantiate = WebAssembly.instantiate;
    WebAssembly.instantiate = async (...rest) => {
      const result = await instantiate(...rest);
      window.memory = Object.values(result.instance.exports).find((value) => value instanceof WebAssembly.Memory);
      return result;
    };
  });
  const clicked = Date.now();
  await page.goto(server.url);
  await untilPlaying(page);
  console.log(`${width} x ${height} at ${density}: first frame after ${Date.now() - clicked} ms`);
  const tap = async (x, y) => page.mouse.click(...(await placeOf(page, x, y)));
  await sleep(3000);
  console.log(`  menu: ${await shareDuring(browser, () => sleep((seconds * 1000) / 4))} % of a core`);

  for (const [x, y] of [[120, 130], [120, 160], [120, 130]]) {
    await tap(x, y);
    await sleep(800);
  }
  const [left, top] = await placeOf(page, 0, 0);
  const [right, bottom] = await placeOf(page, 200, 160);
  await page.evaluate(() => (window.times = []));
  const share = await shareDuring(browser, async () => {
    const end = Date.now() + seconds * 1000;
    for (let i = 0; Date.now() < end; ++i) {
      await page.mouse.click(left + (right - left) * ((i * 0.37) % 1), top + (bottom - top) * (0.3 + ((i * 0.23) % 0.7)));
      await sleep(500);
    }
  });
  const times = await page.evaluate(() => window.times);
  const gaps = times.slice(1).map((time, i) => time - times[i]);
  const rate = ((times.length - 1) * 1000) / (times.at(-1) - times[0]);
  const late = gaps.filter((gap) => gap > 25).length;
  console.log(`  play: ${share} % of a core, ${rate.toFixed(2)} refreshes a second, longest gap ${Math.max(...gaps).toFixed(1)} ms, ${late} over 25 ms`);
  const { JSHeapUsedSize } = await page.metrics();
  const inMiB = (bytes) => (bytes / 2 ** 20).toFixed(1);
  console.log(`  heap: ${inMiB(JSHeapUsedSize)} MiB of JavaScript, ${inMiB(await page.evaluate(() => window.memory.buffer.byteLength))} MiB of the program`);
  const other = await browser.newPage();
  await other.bringToFront();
  await sleep(1000);
  console.log(`  hidden (${await page.evaluate(() => document.visibilityState)}): ${await shareDuring(browser, () => sleep((seconds * 1000) / 4))} % of a core`);
  await browser.close();
}

(async () => {
  const server = new Server();
  await server.start();
  await measure(server, 800, 760, 1);
  await measure(server, 390, 844, 3);
  await server.stop();
})();
