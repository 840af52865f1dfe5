/** What drives the page: a server that can be told to misbehave, and a browser that nobody sees. */
'use strict';

const fs = require('node:fs');
const http = require('node:http');
const os = require('node:os');
const path = require('node:path');

const puppeteer = require('puppeteer-core');

const PAGE_FOLDER = path.join(__dirname, '../../build/web');
const CHROMIUM = process.env.CHROMIUM ?? '/usr/bin/chromium';

/** How long anything may take that must come, in ms: much longer than it does. */
const PATIENCE_MS = 60000;

/** For `waitForFunction`: not by the page's refreshes, which may stand still. */
const POLLING = { polling: 50 };

const TYPES = {
  '.css': 'text/css',
  '.html': 'text/html',
  '.jpg': 'image/jpeg',
  '.js': 'text/javascript',
  '.png': 'image/png',
  '.wasm': 'application/wasm',
  '.wav': 'audio/wav',
  '.webmanifest': 'application/manifest+json',
};

/** Serves the files of a folder on this machine alone. */
class Server {
  /** By file name what is answered in place of the file: a Buffer, or null for "not found". */
  instead = new Map();

  #folder;
  #server = http.createServer((request, response) => this.#answer(request, response));

  constructor(folder = PAGE_FOLDER) {
    this.#folder = folder;
  }

  /** @param {number} port 0 for any free one */
  async start(port = 0) {
    await new Promise((started) => this.#server.listen(port, '127.0.0.1', started));
    this.port = this.#server.address().port;
    this.url = `http://127.0.0.1:${this.port}/`;
  }

  async stop() {
    this.#server.closeAllConnections();
    await new Promise((stopped) => this.#server.close(stopped));
  }

  #answer(request, response) {
    const name = new URL(request.url, this.url).pathname.slice(1) || 'index.html';
    const content = this.instead.has(name) ? this.instead.get(name) : this.#read(name);
    if (content === null) {
      response.writeHead(404).end();
      return;
    }
    response.writeHead(200, { 'Content-Type': TYPES[path.extname(name)], 'Cache-Control': 'no-cache' });
    response.end(content);
  }

  #read(name) {
    try {
      return fs.readFileSync(path.join(this.#folder, name));
    } catch {
      return null;
    }
  }
}

/** A browser with an empty profile in the folder for temporary files, which is the caller's. */
async function openBrowser(options = []) {
  const profile = fs.mkdtempSync(path.join(os.tmpdir(), 'mygame-browser-'));
  return puppeteer.launch({
    executablePath: CHROMIUM,
    headless: true,
    userDataDir: profile,
    args: ['--no-sandbox', '--disable-background-networking', '--disable-gpu', ...options],
  });
}

/** Makes the page's faults be heard, and its patience ours. */
function prepare(page) {
  page.setDefaultTimeout(PATIENCE_MS);
  page.faults = [];
  page.on('pageerror', (fault) => page.faults.push(fault.message));
  return page;
}

/** Waits until the program plays. */
async function untilPlaying(page) {
  await page.waitForFunction(() => document.getElementById('panel')?.hidden, POLLING);
}

/** Waits for a sentence in place of the progress. @returns it */
async function troubleOf(page) {
  await page.waitForFunction(() => window.isTroubled?.(), POLLING);
  return page.$eval('#message', (message) => message.textContent);
}

module.exports = { openBrowser, PAGE_FOLDER, POLLING, prepare, Server, troubleOf, untilPlaying };
