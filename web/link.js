/** A recording as a part of a link: all of it, compressed, in letters, digits, '-' and '_'. */

import { toBytes, toText } from './packing.js';

// With a checksum behind the compressed bytes, so that a damaged link is known.
const FORMAT = 'deflate';

/** Whether this browser can make and read links. */
export const CAN_LINK = typeof DecompressionStream === 'function';

async function passThrough(content, stream) {
  return new Uint8Array(await new Response(new Blob([content]).stream().pipeThrough(stream)).arrayBuffer());
}

/** @param {string} text @returns {Promise<string>} */
export async function pack(text) {
  const bytes = await passThrough(toBytes(text), new CompressionStream(FORMAT));
  const letters = btoa(Array.from(bytes, (byte) => String.fromCharCode(byte)).join(''));
  return letters.replaceAll('+', '-').replaceAll('/', '_').replace(/=+$/, '');
}

/**
 * @param {string} packed
 * @returns {Promise<string>} the text that was packed
 * @throws when it is damaged or cut short
 */
export async function unpack(packed) {
  const letters = atob(packed.replaceAll('-', '+').replaceAll('_', '/'));
  const bytes = Uint8Array.from(letters, (letter) => letter.charCodeAt(0));
  return toText(await passThrough(bytes, new DecompressionStream(FORMAT)));
}
