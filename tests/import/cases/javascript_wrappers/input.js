;(function ($, undefined) {
  'use strict';
  // Hidden.
  function helper(a) { return a; }
  $.fn.grid = function (options) { return helper(options); };
  $(document).ready(function () {
    function onReady() { }
    $('a').click(function () { count(); });
  });
})(jQuery);

!function () { function bang() { } }();

(() => { const arrow = () => 1; })();

define(['a', 'b'], function (a, b) {
  return {
    start: function () { }
  };
});

var Counter = (function () {
  function next() { }
  return { next: next, reset: function () { } };
}());

(function () {
  this.called = function () { };
}).call(this);

$.extend(Grid, { extended: function (x) { } });
