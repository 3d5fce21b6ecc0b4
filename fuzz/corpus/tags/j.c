{"_type": "tag", "name": "A", "path": "j.c", "language": "C", "line": 5, "kind": "enumerator", "access": "public", "scope": "e", "scopeKind": "enum"}
{"_type": "tag", "name": "B", "path": "j.c", "language": "C", "line": 5, "kind": "enumerator", "access": "public", "scope": "e", "scopeKind": "enum"}
{"_type": "tag", "name": "U", "path": "j.c", "language": "C", "line": 2, "typeref": "union:u", "kind": "typedef"}
{"_type": "tag", "name": "X", "path": "j.c", "language": "C", "line": 6, "kind": "macro", "end": 6}
{"_type": "tag", "name": "a", "path": "j.c", "language": "C", "line": 2, "typeref": "typename:int", "kind": "member", "access": "public", "scope": "u", "scopeKind": "union", "end": 2}
{"_type": "tag", "name": "arr", "path": "j.c", "language": "C", "line": 7, "typeref": "typename:int[3]", "kind": "variable", "end": 7}
{"_type": "tag", "name": "cb", "path": "j.c", "language": "C", "line": 3, "typeref": "typename:int (*)(void)", "kind": "parameter", "scope": "f", "scopeKind": "prototype"}
{"_type": "tag", "name": "e", "path": "j.c", "language": "C", "line": 5, "kind": "enum", "end": 5}
{"_type": "tag", "name": "f", "path": "j.c", "language": "C", "line": 3, "typeref": "typename:int", "kind": "prototype", "signature": "(struct point * p,int (* cb)(void))", "end": 3}
{"_type": "tag", "name": "f2", "path": "j.c", "language": "C", "line": 4, "typeref": "typename:int", "kind": "function", "signature": "(void)", "end": 4}
{"_type": "tag", "name": "p", "path": "j.c", "language": "C", "line": 3, "typeref": "struct:point *", "kind": "parameter", "scope": "f", "scopeKind": "prototype"}
{"_type": "tag", "name": "p", "path": "j.c", "language": "C", "line": 1, "typeref": "struct:point", "kind": "variable", "end": 1}
{"_type": "tag", "name": "point", "path": "j.c", "language": "C", "line": 1, "kind": "struct", "end": 1}
{"_type": "tag", "name": "u", "path": "j.c", "language": "C", "line": 2, "kind": "union", "end": 2}
{"_type": "tag", "name": "x", "path": "j.c", "language": "C", "line": 1, "typeref": "typename:int", "kind": "member", "access": "public", "scope": "point", "scopeKind": "struct", "end": 1}
{"_type": "tag", "name": "y", "path": "j.c", "language": "C", "line": 1, "typeref": "typename:int", "kind": "member", "access": "public", "scope": "point", "scopeKind": "struct", "end": 1}
====
struct point { int x, y; } p;
typedef union u { int a; } U;
extern int f(struct point* p, int (*cb)(void));
static int f2(void) { return 0; }
enum e { A, B };
#define X 1
int arr[3];
