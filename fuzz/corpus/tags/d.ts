{"_type": "tag", "name": "A", "path": "d.ts", "language": "TypeScript", "line": 3, "kind": "enumerator", "scope": "Z", "scopeKind": "enum"}
{"_type": "tag", "name": "B", "path": "d.ts", "language": "TypeScript", "line": 3, "kind": "enumerator", "scope": "Z", "scopeKind": "enum"}
{"_type": "tag", "name": "D", "path": "d.ts", "language": "TypeScript", "line": 1, "kind": "class", "inherits": "E"}
{"_type": "tag", "name": "I", "path": "d.ts", "language": "TypeScript", "line": 2, "kind": "interface"}
{"_type": "tag", "name": "N", "path": "d.ts", "language": "TypeScript", "line": 4, "kind": "namespace"}
{"_type": "tag", "name": "Q", "path": "d.ts", "language": "TypeScript", "line": 3, "kind": "alias"}
{"_type": "tag", "name": "Z", "path": "d.ts", "language": "TypeScript", "line": 3, "kind": "enum"}
{"_type": "tag", "name": "a", "path": "d.ts", "language": "TypeScript", "line": 1, "kind": "parameter", "scope": "D.m", "scopeKind": "method"}
{"_type": "tag", "name": "a", "path": "d.ts", "language": "TypeScript", "line": 1, "kind": "property", "access": "public", "scope": "D", "scopeKind": "class"}
{"_type": "tag", "name": "a", "path": "d.ts", "language": "TypeScript", "line": 2, "kind": "property", "access": "public", "scope": "I", "scopeKind": "interface"}
{"_type": "tag", "name": "constructor", "path": "d.ts", "language": "TypeScript", "line": 1, "kind": "method", "access": "public", "scope": "D", "scopeKind": "class"}
{"_type": "tag", "name": "f", "path": "d.ts", "language": "TypeScript", "line": 4, "kind": "constant"}
{"_type": "tag", "name": "f", "path": "d.ts", "language": "TypeScript", "line": 2, "kind": "method", "access": "public", "scope": "I", "scopeKind": "interface"}
{"_type": "tag", "name": "g", "path": "d.ts", "language": "TypeScript", "line": 4, "kind": "function", "scope": "N", "scopeKind": "namespace"}
{"_type": "tag", "name": "m", "path": "d.ts", "language": "TypeScript", "line": 1, "kind": "method", "access": "public", "scope": "D", "scopeKind": "class"}
{"_type": "tag", "name": "v", "path": "d.ts", "language": "TypeScript", "line": 1, "kind": "method", "access": "public", "scope": "D", "scopeKind": "class"}
{"_type": "tag", "name": "x", "path": "d.ts", "language": "TypeScript", "line": 1, "kind": "property", "access": "private", "scope": "D", "scopeKind": "class"}
====
export class D<T> extends E { private readonly x: number = 1; constructor(public a: string) {} get v(): T { return 1; } static async m(a?: int): Promise<void> {} }
export interface I { a: string; f(x: number): void; }
export type Q = { a: 1 } | string; export enum Z { A, B = 3 }
export const f = (a: number) => a; namespace N { export function g() {} }
