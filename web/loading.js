/** Fetches what the program needs, each file checked against what the build made. */

import { FILES } from './files.js';

/** Why a file did not come, in one sentence for the player. */
export class LoadError extends Error {}

/**
 * Fetches all files at once.
 * @param {(share: number) => void} showProgress told how much has come, from 0 to 1
 * @returns {Promise<Map<string, Uint8Array>>} their bytes by name
 * @throws {LoadError} when one is missing or not what it was
 */
export async function loadFiles(showProgress) {
  const allBytes = FILES.reduce((sum, file) => sum + file.bytes, 0);
  let loadedBytes = 0;
  const loadFile = async ({ name, bytes, integrity }) => {
    const content = await fetchFile(name, integrity);
    loadedBytes += bytes;
    showProgress(loadedBytes / allBytes);
    return [name, content];
  };
  return new Map(await Promise.all(FILES.map(loadFile)));
}

async function fetchFile(name, integrity) {
  let response;
  try {
    // What the browser kept may be of another version: then it is fetched anew, once.
    response = await fetch(name, { integrity }).catch(() => fetch(name, { integrity, cache: 'reload' }));
    return new Uint8Array(await response.arrayBuffer());
  } catch {
    throw new LoadError(`The game cannot start: its file ${name} is missing or damaged, or the network is gone.`);
  }
}
