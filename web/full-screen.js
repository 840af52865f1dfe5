/** The button for full screen, where the browser has that and the picture leaves room for a button. */

/**
 * @param {HTMLButtonElement} button hidden at first
 * @param {(element: HTMLElement) => boolean} isFree whether the picture leaves an element's place free
 * @returns {() => void} to be called when the picture's place changed
 */
export function offerFullScreen(button, isFree) {
  if (!document.fullscreenEnabled) return () => {};
  button.addEventListener('click', () => {
    const done = document.fullscreenElement
      ? document.exitFullscreen()
      : document.documentElement.requestFullscreen({ navigationUI: 'hide' });
    // Refused: everything stays as it is.
    done.catch(() => {});
  });
  document.addEventListener('fullscreenchange', () => {
    const name = document.fullscreenElement ? 'Leave full screen' : 'Full screen';
    button.setAttribute('aria-label', name);
    button.title = name;
  });
  return () => {
    button.hidden = false;
    button.hidden = !isFree(button);
  };
}
