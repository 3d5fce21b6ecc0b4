{"_type": "tag", "name": "A", "path": "C.java", "language": "Java", "line": 7, "kind": "enumConstant", "access": "public", "scope": "C.K", "scopeKind": "enum", "end": 7}
{"_type": "tag", "name": "Ann", "path": "C.java", "language": "Java", "line": 8, "kind": "annotation", "access": "default", "scope": "C", "scopeKind": "class", "end": 8}
{"_type": "tag", "name": "B", "path": "C.java", "language": "Java", "line": 7, "kind": "enumConstant", "access": "public", "scope": "C.K", "scopeKind": "enum", "end": 7}
{"_type": "tag", "name": "C", "path": "C.java", "language": "Java", "line": 3, "kind": "class", "inherits": "E,F,G", "implementation": "abstract", "end": 9}
{"_type": "tag", "name": "I", "path": "C.java", "language": "Java", "line": 6, "kind": "interface", "access": "public", "scope": "C", "scopeKind": "class", "end": 6}
{"_type": "tag", "name": "K", "path": "C.java", "language": "Java", "line": 7, "kind": "enum", "access": "default", "scope": "C", "scopeKind": "class", "end": 7}
{"_type": "tag", "name": "X", "path": "C.java", "language": "Java", "line": 4, "kind": "field", "access": "private", "scope": "C", "scopeKind": "class", "end": 4}
{"_type": "tag", "name": "get", "path": "C.java", "language": "Java", "line": 5, "kind": "method", "access": "protected", "signature": "(List<? super T> a, int... b)", "scope": "C", "scopeKind": "class", "end": 5}
{"_type": "tag", "name": "m", "path": "C.java", "language": "Java", "line": 6, "kind": "method", "access": "public", "signature": "()", "scope": "C.I", "scopeKind": "interface", "end": 6}
{"_type": "tag", "name": "p.q", "path": "C.java", "language": "Java", "line": 1, "kind": "package", "end": 1}
{"_type": "tag", "name": "value", "path": "C.java", "language": "Java", "line": 8, "kind": "method", "access": "public", "signature": "()", "scope": "C.Ann", "scopeKind": "annotation", "end": 8}
{"_type": "tag", "name": "y", "path": "C.java", "language": "Java", "line": 4, "kind": "field", "access": "private", "scope": "C", "scopeKind": "class", "end": 4}
{"_type": "tag", "name": "z", "path": "C.java", "language": "Java", "line": 7, "kind": "field", "access": "public", "scope": "C.K", "scopeKind": "class", "end": 7}
====
package p.q;
/** Doc. */
public abstract class C<T extends D> extends E implements F, G {
    private static final int X = 1, y;
    protected <U> Map<String, U> get(List<? super T> a, int... b) throws IOException { return null; }
    public interface I { void m(); }
    enum K { A, B; int z; }
    @interface Ann { String value() default ""; }
}
