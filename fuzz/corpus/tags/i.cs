{"_type": "tag", "name": "A", "path": "i.cs", "language": "C#", "line": 2, "kind": "enumerator", "scope": "N.O.C.Z", "scopeKind": "enum", "end": 2}
{"_type": "tag", "name": "C", "path": "i.cs", "language": "C#", "line": 2, "kind": "class", "inherits": "DwhereT:E", "access": "public", "scope": "N.O", "scopeKind": "namespace", "end": 2}
{"_type": "tag", "name": "H", "path": "i.cs", "language": "C#", "line": 2, "kind": "event", "access": "private", "scope": "N.O.C", "scopeKind": "class", "end": 2}
{"_type": "tag", "name": "I", "path": "i.cs", "language": "C#", "line": 2, "kind": "interface", "scope": "N.O", "scopeKind": "namespace", "end": 2}
{"_type": "tag", "name": "K", "path": "i.cs", "language": "C#", "line": 2, "kind": "field", "access": "private", "scope": "N.O.C", "scopeKind": "class", "end": 2}
{"_type": "tag", "name": "N.O", "path": "i.cs", "language": "C#", "line": 1, "kind": "namespace", "end": 2}
{"_type": "tag", "name": "P", "path": "i.cs", "language": "C#", "line": 2, "kind": "property", "access": "public", "scope": "N.O.C", "scopeKind": "class", "end": 2}
{"_type": "tag", "name": "Q", "path": "i.cs", "language": "C#", "line": 2, "kind": "method", "access": "private", "signature": "(int a)", "scope": "N.O.C", "scopeKind": "class", "end": 2}
{"_type": "tag", "name": "S", "path": "i.cs", "language": "C#", "line": 2, "kind": "struct", "access": "private", "scope": "N.O.C", "scopeKind": "class", "end": 2}
{"_type": "tag", "name": "Z", "path": "i.cs", "language": "C#", "line": 2, "kind": "enum", "access": "private", "scope": "N.O.C", "scopeKind": "class", "end": 2}
{"_type": "tag", "name": "operator +", "path": "i.cs", "language": "C#", "line": 2, "kind": "method", "access": "public", "signature": "(C a, C b)", "scope": "N.O.C", "scopeKind": "class", "end": 2}
====
namespace N.O { /// <summary>C</summary>
 public partial class C<T> : D where T : E { public int P { get; private set; } internal event Handler H; delegate void Q(int a); public static C operator +(C a, C b) => a; const int K = 1; struct S { } enum Z { A } } interface I { } }
