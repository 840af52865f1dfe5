/* Run only by browsers that know no modules. */
window.showTrouble('This browser is too old for the game; a newer one plays it.');
