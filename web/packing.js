/**
 * Recordings as bytes that compress well: what follows each other in time or place is kept as the difference, and what is alike
 * stands together. Any text comes back as it was; lines of other kinds are kept as they are.
 */

/** The first word behind the time of a line that is taken apart, by the number that stands for it; 0 is any other line. */
const WORDS = [null, 'touch', 'release', 'move', 'check', 'frame-cost', 'refresh'];
const POINTS = new Set(['touch', 'release', 'move']);

/** Other lines, kinds of lines, times, values, checksums. */
const PARTS = 5;

const NUMBER = '(0|[1-9]\\d{0,9})';
const LINE = new RegExp(
  `^at ${NUMBER} (?:(touch|release|move) ${NUMBER} ${NUMBER}|(check) ([0-9a-f]{8})|(frame-cost|refresh) ${NUMBER})$`
);

/** Numbers from 0, in as many bytes as each needs. */
class Numbers {
  bytes;
  #next = 0;

  constructor(bytes = []) {
    this.bytes = bytes;
  }

  put(number) {
    for (; number > 127; number = Math.floor(number / 128)) this.bytes.push((number % 128) + 128);
    this.bytes.push(number);
  }

  take() {
    let number = 0;
    for (let place = 1; ; place *= 128) {
      const byte = this.bytes[this.#next++];
      number += (byte & 127) * place;
      if (!(byte > 127)) return number;
    }
  }

  /** Also below 0. */
  putSigned(number) {
    this.put(number < 0 ? -2 * number - 1 : 2 * number);
  }

  takeSigned() {
    const number = this.take();
    return number % 2 ? -(number + 1) / 2 : number / 2;
  }
}

/** @param {string} text @returns {Uint8Array} */
export function toBytes(text) {
  const [kinds, times, values, checks, others] = [[], new Numbers(), new Numbers(), [], []];
  let [time, x, y] = [0, 0, 0];
  for (const line of text.split('\n')) {
    const [, at, point, newX, newY, check, checksum, rate, value] = LINE.exec(line) ?? [];
    if (at === undefined || at < time) {
      kinds.push(0);
      others.push(line);
      continue;
    }
    kinds.push(WORDS.indexOf(point ?? check ?? rate));
    times.put(at - time);
    time = Number(at);
    if (point) {
      values.putSigned(newX - x);
      values.putSigned(newY - y);
      [x, y] = [Number(newX), Number(newY)];
    } else if (check) {
      for (let digit = 0; digit < 8; digit += 2) checks.push(parseInt(checksum.slice(digit, digit + 2), 16));
    } else {
      values.put(Number(value));
    }
  }
  const parts = [new TextEncoder().encode(others.join('\n')), kinds, times.bytes, values.bytes, checks];
  const sizes = new Numbers();
  for (const part of parts) sizes.put(part.length);
  return Uint8Array.from([sizes.bytes, ...parts].flatMap((part) => Array.from(part)));
}

/** @param {Uint8Array} bytes what `toBytes` made @returns {string} */
export function toText(bytes) {
  const sizes = new Numbers(bytes);
  const lengths = Array.from({ length: PARTS }, () => sizes.take());
  let end = bytes.length - lengths.reduce((sum, length) => sum + length);
  const [others, kinds, times, values, checks] = lengths.map((length) => bytes.subarray(end, (end += length)));
  const otherLines = new TextDecoder('utf-8', { fatal: true }).decode(others).split('\n').values();
  const [timeNumbers, valueNumbers, checkBytes] = [new Numbers(times), new Numbers(values), checks.values()];
  const checksum = () => Array.from({ length: 4 }, () => checkBytes.next().value.toString(16).padStart(2, '0')).join('');
  let [time, x, y] = [0, 0, 0];
  const line = (kind) => {
    const word = WORDS[kind];
    if (!word) return otherLines.next().value;
    time += timeNumbers.take();
    if (word === 'check') return `at ${time} check ${checksum()}`;
    if (!POINTS.has(word)) return `at ${time} ${word} ${valueNumbers.take()}`;
    x += valueNumbers.takeSigned();
    y += valueNumbers.takeSigned();
    return `at ${time} ${word} ${x} ${y}`;
  };
  return Array.from(kinds, line).join('\n');
}
