/** The button for full screen, where the browser has that. */

/**
 * @param {HTMLButtonElement} button
 * @returns {boolean} whether it is of use
 */
export function canFillScreen(button) {
  if (!document.fullscreenEnabled) return false;
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
  return true;
}
