import { a } from './a.js';

// Exported.
export function shown(x) { }
export default function (y) { }
export const value = 1, act = () => 2;
export const single = async (z) => { };
export class Shown {
  method() { }
}
export { a };
module.exports = {
  one() { },
  two: require('two')
};
