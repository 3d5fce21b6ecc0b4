{"_type": "tag", "name": "A\\B", "path": "g.php", "language": "PHP", "line": 2, "kind": "namespace"}
{"_type": "tag", "name": "C", "path": "g.php", "language": "PHP", "line": 4, "kind": "class", "inherits": "D,E", "implementation": "abstract", "scope": "A\\B", "scopeKind": "namespace"}
{"_type": "tag", "name": "E", "path": "g.php", "language": "PHP", "line": 6, "kind": "interface", "scope": "A\\B", "scopeKind": "namespace"}
{"_type": "tag", "name": "T", "path": "g.php", "language": "PHP", "line": 6, "kind": "trait", "scope": "A\\B", "scopeKind": "namespace"}
{"_type": "tag", "name": "X", "path": "g.php", "language": "PHP", "line": 4, "kind": "define", "scope": "A\\B\\C", "scopeKind": "class"}
{"_type": "tag", "name": "f", "path": "g.php", "language": "PHP", "line": 4, "typeref": "unknown:?self", "kind": "function", "access": "public", "signature": "(int $a, string...$b)", "scope": "A\\B\\C", "scopeKind": "class"}
{"_type": "tag", "name": "g", "path": "g.php", "language": "PHP", "line": 5, "kind": "function", "signature": "()", "scope": "A\\B", "scopeKind": "namespace"}
{"_type": "tag", "name": "p", "path": "g.php", "language": "PHP", "line": 4, "kind": "variable", "access": "private", "scope": "A\\B\\C", "scopeKind": "class"}
{"_type": "tag", "name": "q", "path": "g.php", "language": "PHP", "line": 6, "kind": "variable", "access": "protected", "scope": "A\\B\\T", "scopeKind": "trait"}
====
<?php
namespace A\B;
/** C */
abstract class C extends D implements E { const X = 1; private ?int $p = 2; public static function f(int $a, string ...$b): ?self {} use T; }
function g() {}
interface E {} trait T { protected $q; }
