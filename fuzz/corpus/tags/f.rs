{"_type": "tag", "name": "A", "path": "f.rs", "language": "Rust", "line": 5, "kind": "enumerator", "scope": "E", "scopeKind": "enum"}
{"_type": "tag", "name": "B", "path": "f.rs", "language": "Rust", "line": 5, "kind": "enumerator", "scope": "E", "scopeKind": "enum"}
{"_type": "tag", "name": "E", "path": "f.rs", "language": "Rust", "line": 5, "kind": "enum"}
{"_type": "tag", "name": "S", "path": "f.rs", "language": "Rust", "line": 4, "kind": "implementation"}
{"_type": "tag", "name": "S", "path": "f.rs", "language": "Rust", "line": 3, "kind": "struct"}
{"_type": "tag", "name": "Tr", "path": "f.rs", "language": "Rust", "line": 8, "kind": "interface"}
{"_type": "tag", "name": "a", "path": "f.rs", "language": "Rust", "line": 3, "kind": "field", "scope": "S", "scopeKind": "struct"}
{"_type": "tag", "name": "b", "path": "f.rs", "language": "Rust", "line": 3, "kind": "field", "scope": "S", "scopeKind": "struct"}
{"_type": "tag", "name": "f", "path": "f.rs", "language": "Rust", "line": 4, "kind": "method", "signature": "(&self, x: &str) -> Option<T>", "scope": "S", "scopeKind": "implementation"}
{"_type": "tag", "name": "f", "path": "f.rs", "language": "Rust", "line": 8, "kind": "method", "signature": "(&self)", "scope": "Tr", "scopeKind": "interface"}
{"_type": "tag", "name": "g", "path": "f.rs", "language": "Rust", "line": 7, "kind": "function", "signature": "()", "scope": "inner", "scopeKind": "module"}
{"_type": "tag", "name": "inner", "path": "f.rs", "language": "Rust", "line": 7, "kind": "module"}
{"_type": "tag", "name": "m", "path": "f.rs", "language": "Rust", "line": 6, "kind": "macro"}
====
//! m
/// S
pub struct S<T> { pub a: i32, b: T }
impl<T> Tr for S<T> { fn f(&self, x: &str) -> Option<T> { None } }
pub(crate) enum E { A(i32), B { c: u8 } }
macro_rules! m { () => {} }
mod inner { pub fn g() {} }
trait Tr { const C: i32; fn f(&self); }
