{"_type": "tag", "name": "A", "path": "e.go", "language": "Go", "line": 4, "typeref": "typename:int", "kind": "member", "scope": "e.T", "scopeKind": "struct"}
{"_type": "tag", "name": "B", "path": "e.go", "language": "Go", "line": 4, "typeref": "typename:int", "kind": "member", "scope": "e.T", "scopeKind": "struct"}
{"_type": "tag", "name": "C", "path": "e.go", "language": "Go", "line": 5, "typeref": "typename:*C", "kind": "anonMember", "scope": "e.T", "scopeKind": "struct"}
{"_type": "tag", "name": "F", "path": "e.go", "language": "Go", "line": 12, "typeref": "typename:", "kind": "methodSpec", "signature": "()", "scope": "e.I", "scopeKind": "interface"}
{"_type": "tag", "name": "I", "path": "e.go", "language": "Go", "line": 12, "kind": "interface", "scope": "e", "scopeKind": "package", "end": 12}
{"_type": "tag", "name": "K", "path": "e.go", "language": "Go", "line": 9, "kind": "const", "scope": "e", "scopeKind": "package"}
{"_type": "tag", "name": "L", "path": "e.go", "language": "Go", "line": 10, "kind": "const", "scope": "e", "scopeKind": "package"}
{"_type": "tag", "name": "M", "path": "e.go", "language": "Go", "line": 7, "typeref": "typename:(x int, err error)", "kind": "func", "signature": "(a int, b ...string)", "scope": "e.T", "scopeKind": "struct", "end": 7}
{"_type": "tag", "name": "T", "path": "e.go", "language": "Go", "line": 3, "kind": "struct", "scope": "e", "scopeKind": "package", "end": 6}
{"_type": "tag", "name": "e", "path": "e.go", "language": "Go", "line": 1, "kind": "package"}
{"_type": "tag", "name": "t", "path": "e.go", "language": "Go", "line": 7, "typeref": "typename:T", "kind": "receiver", "scope": "e.T.M", "scopeKind": "func"}
====
package e
// T is.
type T struct {
  A, B int
  *C
}
func (t *T) M(a int, b ...string) (x int, err error) { return }
const (
  K = iota
  L
)
type I interface { F() }
