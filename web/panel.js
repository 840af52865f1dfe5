/** What stands on the page while nobody plays or watches: to play, and to watch, share or save the games that were recorded. */

import { CAN_LINK, pack } from './link.js';

const element = (id) => document.getElementById(id);

/** Gives the player a file. */
function save(name, text) {
  const link = document.createElement('a');
  link.href = URL.createObjectURL(new Blob([text], { type: 'text/plain' }));
  link.download = `${name}.mygame`;
  link.click();
  setTimeout(() => URL.revokeObjectURL(link.href), 60000);
}

/**
 * Passes a link on in the way that the browser has, or shows it.
 * @returns {Promise<string>} what became of it, as a sentence, or nothing where the player saw that
 */
async function passOn(url) {
  if (navigator.share) {
    try {
      await navigator.share({ title: 'MyGame', url });
      return '';
    } catch (fault) {
      if (fault.name === 'AbortError') return '';
    }
  }
  try {
    await navigator.clipboard.writeText(url);
    return 'The link is copied: whoever opens it sees this game.';
  } catch {
    const field = element('link');
    field.value = url;
    field.hidden = false;
    field.select();
    return 'Copy this link: whoever opens it sees this game.';
  }
}

/**
 * @param {Recordings} recordings
 * @param {() => void} play
 * @param {(recording: string) => void} watch
 */
export function makePanel(recordings, play, watch) {
  const chosen = element('recordings');
  const say = (sentence) => (element('message').textContent = sentence);

  async function list() {
    const names = await recordings.names();
    chosen.replaceChildren(...names.map((name) => new Option(name.replaceAll('.', ':'), name)));
    element('recorded').hidden = names.length === 0;
  }

  /** A button that does something with the recording that is chosen. */
  const onClick = (id, act) =>
    element(id).addEventListener('click', async () => {
      element('link').hidden = true;
      const name = chosen.value;
      const text = await recordings.read(name).catch(() => '');
      if (text) await act(text, name);
      else say('This recording is no longer there.');
    });

  element('again').addEventListener('click', play);
  element('share').hidden = !CAN_LINK;
  onClick('watch', (text) => watch(text));
  onClick('save', (text, name) => save(name, text));
  onClick('share', async (text) => say(await passOn(`${location.href.replace(/#.*/s, '')}#${await pack(text)}`)));

  return {
    /** @param {string} sentence @param {string} playText what the button says that lets the player play */
    show(sentence, playText) {
      say(sentence);
      element('progress').hidden = true;
      element('link').hidden = true;
      element('again').textContent = playText;
      element('choices').hidden = false;
      element('panel').hidden = false;
      element('again').focus();
      list();
    },
    hide() {
      element('choices').hidden = true;
      element('panel').hidden = true;
    },
  };
}
