/** What the player does, passed on to the program: one pointer and one key. All else stays the browser's. */

/**
 * Listens to mouse, pen and one finger.
 * @param {HTMLElement} room where a press counts; what begins there may end anywhere
 * @param {(x: number, y: number) => [number, number]} pixelAt
 * @param {{press: Function, move: Function, release: Function, cancel: Function}} tell
 */
export function watchPointer(room, pixelAt, tell) {
  let active = null;
  const isActive = (event) => event.pointerId === active;

  room.addEventListener('pointerdown', (event) => {
    if (active !== null || !event.isPrimary || event.button !== 0) return;
    active = event.pointerId;
    try {
      room.setPointerCapture(active);
    } catch {
      // It is gone already; its end was told.
    }
    tell.press(...pixelAt(event.clientX, event.clientY));
  });
  room.addEventListener('pointermove', (event) => {
    if (isActive(event)) tell.move(...pixelAt(event.clientX, event.clientY));
  });
  room.addEventListener('pointerup', (event) => {
    // Of a mouse, other buttons may be down still: then it is a move that says the left one is not.
    if (!isActive(event)) return;
    active = null;
    tell.release(...pixelAt(event.clientX, event.clientY));
  });
  const cancel = (event) => {
    if (!isActive(event)) return;
    active = null;
    tell.cancel();
  };
  room.addEventListener('pointercancel', cancel);
  room.addEventListener('lostpointercapture', cancel);
  room.addEventListener('contextmenu', (event) => event.preventDefault());
  // Old versions of a widespread browser select or magnify at a long or double tap all the same.
  room.addEventListener('touchstart', (event) => event.preventDefault(), { passive: false });
}

/**
 * Listens to Escape alone. In full screen it is the browser's way out of it.
 * @param {() => void} press
 */
export function watchEscape(press) {
  addEventListener('keydown', (event) => {
    const chord = event.altKey || event.ctrlKey || event.metaKey || event.shiftKey;
    if (event.key !== 'Escape' || chord || event.repeat || document.fullscreenElement) return;
    event.preventDefault();
    press();
  });
}

/**
 * Tells whether the page is the one that the player looks at and types into.
 * @param {(inFront: boolean) => void} tell called at every change, and now when it is
 */
export function watchFocus(tell) {
  let inFront = false;
  const change = (now) => {
    if (now === inFront) return;
    inFront = now;
    tell(now);
  };
  const look = () => change(document.visibilityState === 'visible' && document.hasFocus());
  for (const type of ['focus', 'blur', 'pageshow']) addEventListener(type, look);
  document.addEventListener('visibilitychange', look);
  addEventListener('pagehide', () => change(false));
  // Not every browser says that it has the focus; whoever touches the page looks at it.
  addEventListener('pointerdown', () => change(document.visibilityState === 'visible'));
  look();
}

/**
 * Listens for a file that is dropped on the page.
 * @param {(bytes: Uint8Array) => void} take
 */
export function watchDrops(take) {
  addEventListener('dragover', (event) => event.preventDefault());
  addEventListener('drop', async (event) => {
    event.preventDefault();
    const file = event.dataTransfer?.files[0];
    if (file) take(new Uint8Array(await file.arrayBuffer()));
  });
}
