#include "doctypes/SourceTree.h"

#include <gtest/gtest.h>

namespace paperkite::test {

TEST(ScanningJavaScript, FilesAreModulesWithClassesAndFunctions) {
    SourceTree tree;
    tree.Write("lib/shape.js", R"~(/**
 * Shapes and more.
 */

import { Base } from './base.js';

/** A shape. */
export class Shape extends Base {
  static count = 0;
  #secret = 1;
  name = 'x';

  /** Makes one. */
  constructor(a, b) { super(); this.a = a; }

  get size() { return 1; }
  set size(value) { }

  static make() {}
  async load(url = 'x', {a, b}) {}
  #hide() {}
}

// Adds.
export function add(a, b = 3, ...rest) {
  function inner() {}
  var local = 1;
}

export const LIMIT = 5;
let state = 2;
const twice = (a) => a * 2;
function* walk() {}

function Old() {}
Old.prototype.run = function (x) {};
Old.make = function () {};

exports.helper = function (x) {};
module.exports = { add };
)~");
    CommentExtractor comments(tree.Folder());
    EXPECT_EQ(Dump(tree.Scan(), {.Places = true}, &comments), R"~(
+Package lib
  +Module shape @lib/shape.js:1-40 "Shapes and more."
    +Class Shape < Base @lib/shape.js:8-22 "A shape."
      +Field count @lib/shape.js:9
      -Field #secret @lib/shape.js:10
      +Field name @lib/shape.js:11
      +Constructor constructor (a, b) @lib/shape.js:14 "Makes one."
      +Property size @lib/shape.js:16 @lib/shape.js:17
      +Method make () @lib/shape.js:19
      +Method load (url = 'x', {a, b}) @lib/shape.js:20
      -Method #hide () @lib/shape.js:21
    +Function add (a, b = 3, ...rest) @lib/shape.js:25-28 "Adds."
    +Constant LIMIT @lib/shape.js:30
    +Variable state @lib/shape.js:31
    +Constant twice @lib/shape.js:32
    +Function walk () @lib/shape.js:33
    +Class Old () @lib/shape.js:35 @lib/shape.js:36
      +Method run (x) @lib/shape.js:36
      +Method make () @lib/shape.js:37
    +Function helper (x) @lib/shape.js:39
)~");
}

} // namespace paperkite::test
