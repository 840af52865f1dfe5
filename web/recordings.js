/**
 * The recordings of the player's games, in the browser's own storage: the newest few, each by its name, line by line as
 * they are made. Where the storage is denied or full, or fails in the middle, nobody is told: there is the newest one as
 * long as the page stays open.
 */

const DATABASE = 'mygame';
/** Lines, by the name of their recording and a number from 0. */
const STORE = 'lines';

/** How many recordings are kept, the one being made included. */
const KEPT = 5;

const keysOf = (name) => IDBKeyRange.bound([name], [name, []]);

const resultOf = (request) =>
  new Promise((resolve, reject) => {
    request.onsuccess = () => resolve(request.result);
    request.onerror = () => reject(request.error);
  });

async function open() {
  const request = indexedDB.open(DATABASE, 1);
  request.onupgradeneeded = () => request.result.createObjectStore(STORE);
  return resultOf(request);
}

/** The names of all recordings whose first lines are there, newest first. */
async function namesIn(store) {
  const names = [];
  let request = store.openKeyCursor(null, 'prev');
  for (let cursor = await resultOf(request); cursor; cursor = await resultOf(request)) {
    const [name, number] = cursor.key;
    if (number === 0) names.push(name);
    cursor.continue(number === 0 ? undefined : [name, 0]);
  }
  return names;
}

/** The moment as a name, which sorts by time. */
function nameOfNow() {
  const now = new Date();
  const digits = (number) => String(number).padStart(2, '0');
  const date = [now.getFullYear(), now.getMonth() + 1, now.getDate()].map(digits).join('-');
  return `${date} ${[now.getHours(), now.getMinutes(), now.getSeconds()].map(digits).join('.')}`;
}

/** A name that no other recording has, that of the same second included. */
function freeName(names) {
  const name = nameOfNow();
  let free = name;
  for (let number = 2; names.includes(free); ++number) free = `${name} ${number}`;
  return free;
}

export class Recordings {
  #database = open();
  /** The newest one: its name, once that is known, and all its lines. Null before there is one. */
  #newest = null;
  /** Lines reach the storage one after the other; after a failure none does. */
  #writing = null;

  constructor() {
    this.#database.catch(() => {});
  }

  /** What is added from now on is another recording. */
  begin() {
    this.#writing = null;
  }

  /** Whether there are lines of the recording that was begun. */
  get hasBegun() {
    return this.#writing !== null;
  }

  /** Adds whole lines to the recording that was begun. */
  add(lines) {
    if (!this.#writing) {
      this.#newest = { name: nameOfNow(), lines: [] };
      this.#writing = Promise.resolve();
    }
    const recording = this.#newest;
    const number = recording.lines.push(lines) - 1;
    this.#writing = this.#writing.then(() => this.#write(recording, number, lines));
    this.#writing.catch(() => {});
  }

  /** @returns {Promise<string[]>} the names of all recordings, newest first */
  async names() {
    const newest = this.#newest;
    const stored = await this.#store('readonly').then(namesIn).catch(() => []);
    return newest ? [newest.name, ...stored.filter((name) => name !== newest.name)] : stored;
  }

  /** @returns {Promise<string>} a recording as a script */
  async read(name) {
    if (name === this.#newest?.name) return this.#newest.lines.join('');
    return (await resultOf((await this.#store('readonly')).getAll(keysOf(name)))).join('');
  }

  async #store(mode) {
    return (await this.#database).transaction(STORE, mode, { durability: 'relaxed' }).objectStore(STORE);
  }

  async #write(recording, number, lines) {
    const store = await this.#store('readwrite');
    if (number === 0) {
      const others = await namesIn(store);
      recording.name = freeName(others);
      // Of games in other windows lines may still come, which are then of no use: they go with the next.
      if (others.length >= KEPT) store.delete(IDBKeyRange.upperBound([others[KEPT - 2]], true));
    }
    store.put(lines, [recording.name, number]);
    // The page may be about to be closed.
    store.transaction.commit?.();
    await new Promise((resolve, reject) => {
      store.transaction.oncomplete = resolve;
      store.transaction.onabort = () => reject(store.transaction.error);
    });
  }
}
