/** A button beside the picture, which is there while it is of use and the picture leaves room for it. */
export class Offer {
  #button;
  #isFree;
  #isOffered = false;

  /**
   * @param {HTMLButtonElement} button hidden at first
   * @param {(element: HTMLElement) => boolean} isFree whether the picture leaves an element's place free
   */
  constructor(button, isFree) {
    this.#button = button;
    this.#isFree = isFree;
  }

  /** @param {boolean} isOffered whether it is of use */
  offer(isOffered) {
    this.#isOffered = isOffered;
    this.place();
  }

  /** To be called when the picture's place changed. */
  place() {
    this.#button.hidden = !this.#isOffered;
    if (this.#isOffered) this.#button.hidden = !this.#isFree(this.#button);
  }
}
