/**
 * The room that the page has for the picture, and the canvas in it. Both are counted in the display's pixels, so that
 * nothing between the program and the display scales the picture.
 */

const BYTES_A_PIXEL = 4;

export class Picture {
  #room;
  #canvas;
  #context;
  /** A view of the program's memory, kept from one call to the next. */
  #rows = null;
  #size = { width: 0, height: 0 };

  /**
   * @param {HTMLElement} room
   * @param {HTMLCanvasElement} canvas
   */
  constructor(room, canvas) {
    this.#room = room;
    this.#canvas = canvas;
    this.#context = canvas.getContext('2d', { alpha: false });
  }

  /** Whether the browser lets us draw at all. */
  get canDraw() {
    return this.#context !== null;
  }

  /** @param {(width: number, height: number) => void} tell called with the room's size, now and whenever it changes */
  watchSize(tell) {
    const resized = (entries) => {
      this.#size = sizeInPixels(this.#room, entries[0]);
      tell(this.#size.width, this.#size.height);
    };
    const observer = new ResizeObserver(resized);
    try {
      observer.observe(this.#room, { box: 'device-pixel-content-box' });
    } catch {
      observer.observe(this.#room);
      // A changed density alone changes no size that such a browser can tell of.
      addEventListener('resize', () => resized([{}]));
    }
  }

  /**
   * Gives the canvas its pixels, which empties it, and its place in the room.
   * @param {{left: number, top: number, width: number, height: number}} place
   */
  place(canvasWidth, canvasHeight, place) {
    this.#canvas.width = canvasWidth;
    this.#canvas.height = canvasHeight;
    const room = this.#room.getBoundingClientRect();
    const points = (pixels) => pixels / devicePixelRatio;
    const ontoPixels = (start) => points(Math.round(start * devicePixelRatio)) - start;
    const { style } = this.#canvas;
    style.left = `${points(place.left) + ontoPixels(room.left)}px`;
    style.top = `${points(place.top) + ontoPixels(room.top)}px`;
    style.width = `${points(place.width)}px`;
    style.height = `${points(place.height)}px`;
  }

  /** How often something new was shown. */
  changes = 0;

  /** Shows whole rows of the canvas, `width` pixels of 4 bytes each, which begin at `pointer` in the memory. */
  showRows(memory, pointer, width, top, rows) {
    const kept = this.#rows;
    const fits = kept && kept.width === width && kept.height >= rows;
    // The memory is another one after it has grown.
    if (!fits || kept.data.buffer !== memory.buffer || kept.data.byteOffset !== pointer) {
      const pixels = new Uint8ClampedArray(memory.buffer, pointer, width * rows * BYTES_A_PIXEL);
      this.#rows = new ImageData(pixels, width, rows);
    }
    this.#context.putImageData(this.#rows, 0, top, 0, 0, width, rows);
    ++this.changes;
  }

  /** @returns {[number, number]} the pixel of the room at a place in the page, also outside */
  pixelAt(clientX, clientY) {
    const room = this.#room.getBoundingClientRect();
    const x = ((clientX - room.left) * this.#size.width) / room.width;
    const y = ((clientY - room.top) * this.#size.height) / room.height;
    return [Math.floor(x), Math.floor(y)];
  }

  /** Whether the picture leaves the place of an element of the page free. */
  leavesFree(element) {
    const mine = this.#canvas.getBoundingClientRect();
    const its = element.getBoundingClientRect();
    return its.left >= mine.right || its.top >= mine.bottom || its.right <= mine.left || its.bottom <= mine.top;
  }
}

/**
 * As many pixels as the browser gives to an element. Where it does not say, or, emulating another density, says points,
 * they are those between the element's edges.
 */
function sizeInPixels(element, entry) {
  const { left, top, right, bottom } = element.getBoundingClientRect();
  const pixels = (start, end) => Math.round(end * devicePixelRatio) - Math.round(start * devicePixelRatio);
  const rounded = { width: pixels(left, right), height: pixels(top, bottom) };
  const box = entry.devicePixelContentBoxSize?.[0];
  const isExact =
    box && Math.abs(box.inlineSize - rounded.width) <= 1 && Math.abs(box.blockSize - rounded.height) <= 1;
  return isExact ? { width: box.inlineSize, height: box.blockSize } : rounded;
}
