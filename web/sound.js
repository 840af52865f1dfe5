/** Sounds, from the player's first tap on: browsers start silent. Whatever fails is silence. */

/** After so long without a sound the machine's sound output may sleep. */
const SILENCE_MS = 2000;

export class Sound {
  #files = new Map();
  #context = null;
  #buffers = new Map();
  #source = null;
  #silence = 0;

  /** Keeps a sound file for `start`. */
  add(name, bytes) {
    this.#files.set(name, bytes);
  }

  /** To be called in what the browser takes for a wish of the player: a tap, a click, a key. */
  allow() {
    if (this.#context) return;
    try {
      this.#context = new AudioContext();
      for (const [name, bytes] of this.#files) {
        const keep = (buffer) => this.#buffers.set(name, buffer);
        this.#context.decodeAudioData(bytes.slice().buffer).then(keep, () => {});
      }
      this.#sleepAfterSilence();
    } catch {
      // No sound, then; the next tap tries again.
      this.#context = null;
    }
  }

  /** Starts a sound in place of the one that plays. */
  start(name) {
    const buffer = this.#buffers.get(name);
    if (!buffer) return;
    this.#wake();
    this.#source?.disconnect();
    this.#source = new AudioBufferSourceNode(this.#context, { buffer });
    this.#source.connect(this.#context.destination);
    this.#source.start();
    this.#sleepAfterSilence(buffer.duration * 1000);
  }

  /** Stops the sound that plays. */
  stop() {
    this.#source?.disconnect();
    this.#source = null;
    this.#context?.suspend().catch(() => {});
  }

  #wake() {
    if (this.#context.state !== 'running') this.#context.resume().catch(() => {});
  }

  #sleepAfterSilence(soundMs = 0) {
    clearTimeout(this.#silence);
    this.#silence = setTimeout(() => this.stop(), soundMs + SILENCE_MS);
  }
}
