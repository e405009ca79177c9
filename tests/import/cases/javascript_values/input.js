'use strict';

/** Draws. */
function draw(x, y = { a: '}' }, ...rest) {
  function inner() { }
  return /[/}]\/{/.test(x) ? `${x} {` : x;
}

function* numbers() { yield 1; }
async function load(/* where */ url) { }

var area = function (w, h) { return w * h; };
const twice = x => x * 2, thrice = (x) => { return x * 3; };
let plain = 5;

// On the prototype.
Grid.prototype.move = function move(dx) { this.x += dx; };
exports.first = exports.second = function (a) { };
exports['quoted name'] = () => 1;

class Grid extends Base {
  #hidden = 1;
  static made = 0;
  onClick = (event) => { this.#hidden = event; };
  constructor(width) { super(); }
  get width() { return 1; }
  set width(value) { }
  static async *cells() { }
  ['computed' + 1]() { }
}

var tools = {
  plain: 1,
  // Sorts.
  sort: function (list) { return list; },
  'find it': (x) => x,
  map(list, f) { return list; },
  nested: { deep: function () { } }
};

if (typeof window !== 'undefined') {
  window.ready = function () { };
} else {
  function fallback() { }
}
