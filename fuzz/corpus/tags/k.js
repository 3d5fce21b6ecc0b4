{"_type": "tag", "name": "C", "path": "k.js", "language": "JavaScript", "line": 2, "kind": "class", "inherits": "D"}
{"_type": "tag", "name": "f", "path": "k.js", "language": "JavaScript", "line": 2, "kind": "method", "signature": "(a = 1, {b}, ...c)", "scope": "C", "scopeKind": "class"}
{"_type": "tag", "name": "g", "path": "k.js", "language": "JavaScript", "line": 2, "kind": "getter", "signature": "()", "scope": "C", "scopeKind": "class"}
{"_type": "tag", "name": "h", "path": "k.js", "language": "JavaScript", "line": 3, "kind": "function", "signature": "()"}
{"_type": "tag", "name": "k", "path": "k.js", "language": "JavaScript", "line": 4, "kind": "function", "signature": "()"}
{"_type": "tag", "name": "m", "path": "k.js", "language": "JavaScript", "line": 4, "kind": "method", "signature": "()", "scope": "o", "scopeKind": "class"}
{"_type": "tag", "name": "n", "path": "k.js", "language": "JavaScript", "line": 4, "kind": "method", "signature": "()", "scope": "o", "scopeKind": "class"}
{"_type": "tag", "name": "o", "path": "k.js", "language": "JavaScript", "line": 4, "kind": "class"}
{"_type": "tag", "name": "x", "path": "k.js", "language": "JavaScript", "line": 2, "kind": "field", "scope": "C", "scopeKind": "class"}
====
/** C */
class C extends D { #x = 1; static f(a = 1, {b}, ...c) {} get g() {} }
function h() {}
const k = function() {}; var o = { m() {}, n: function() {} };
