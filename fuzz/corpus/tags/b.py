{"_type": "tag", "name": "A", "path": "b.py", "language": "Python", "line": 2, "kind": "class", "inherits": "B, C", "access": "public", "end": 10}
{"_type": "tag", "name": "__private", "path": "b.py", "language": "Python", "line": 10, "kind": "member", "access": "private", "signature": "(a, *b, **c)", "scope": "A", "scopeKind": "class", "end": 10}
{"_type": "tag", "name": "a", "path": "b.py", "language": "Python", "line": 10, "kind": "parameter", "access": "private", "scope": "A.__private", "scopeKind": "member"}
{"_type": "tag", "name": "a", "path": "b.py", "language": "Python", "line": 11, "kind": "parameter", "access": "private", "scope": "f", "scopeKind": "function"}
{"_type": "tag", "name": "b", "path": "b.py", "language": "Python", "line": 10, "kind": "parameter", "access": "private", "scope": "A.__private", "scopeKind": "member"}
{"_type": "tag", "name": "b", "path": "b.py", "language": "Python", "line": 11, "kind": "parameter", "access": "private", "scope": "f", "scopeKind": "function"}
{"_type": "tag", "name": "c", "path": "b.py", "language": "Python", "line": 10, "kind": "parameter", "access": "private", "scope": "A.__private", "scopeKind": "member"}
{"_type": "tag", "name": "f", "path": "b.py", "language": "Python", "line": 11, "kind": "function", "access": "public", "signature": "(a=1, b=\"x,)\")", "end": 12}
{"_type": "tag", "name": "inner", "path": "b.py", "language": "Python", "line": 12, "kind": "function", "access": "private", "signature": "()", "scope": "f", "scopeKind": "function", "end": 12}
{"_type": "tag", "name": "self", "path": "b.py", "language": "Python", "line": 6, "kind": "parameter", "access": "private", "scope": "A.size", "scopeKind": "member"}
{"_type": "tag", "name": "size", "path": "b.py", "language": "Python", "line": 6, "typeref": "typename:int", "kind": "member", "access": "public", "signature": "(self)", "scope": "A", "scopeKind": "class", "end": 8}
{"_type": "tag", "name": "x", "path": "b.py", "language": "Python", "line": 4, "typeref": "typename:int", "kind": "variable", "access": "public", "scope": "A", "scopeKind": "class"}
====
"""Module."""
class A(B, C):
    """Doc."""
    x: int = 1
    @property
    def size(self) -> int:
        """Size."""
        return 1
    @staticmethod
    def __private(a, *b, **c): pass
def f(a=1, b="x,)"):
    def inner(): pass
