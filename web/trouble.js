/*
 * Says in one sentence what keeps the page from working, also where one of its own files is missing, damaged or too new
 * for the browser. So it comes first, and is written for old browsers.
 */
(function () {
  'use strict';

  var troubled = false;

  /** Shows a sentence in place of the progress. The first one counts: what follows it is its consequence. */
  window.showTrouble = function (sentence) {
    if (troubled) return;
    troubled = true;
    var show = function () {
      document.getElementById('panel').hidden = false;
      document.getElementById('progress').hidden = true;
      document.getElementById('message').textContent = sentence;
    };
    if (document.getElementById('panel')) show();
    else document.addEventListener('DOMContentLoaded', show);
  };

  /** Whether a sentence stands there. */
  window.isTroubled = function () {
    return troubled;
  };

  var nameOf = function (url) {
    return url.replace(/^.*\//, '');
  };

  // Files that do not come tell it to their element alone, on the way down.
  window.addEventListener(
    'error',
    function (event) {
      var target = event.target;
      if (target && target.tagName === 'SCRIPT')
        window.showTrouble('The game cannot start: the file ' + nameOf(target.src) + ', or one that it needs, is missing.');
      else if (event.error) window.showTrouble('The game stopped because of a fault: ' + event.error + '.');
    },
    true
  );
})();
