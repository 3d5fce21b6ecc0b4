#include "doctypes/SourceTree.h"

#include <gtest/gtest.h>

namespace paperkite::test {

TEST(ScanningTypeScript, MembersOfEveryFormAreFound) {
    SourceTree tree;
    tree.Write("shape.ts", R"~(import { Base } from './base';

/** What has a shape. */
export interface Shaped<T> extends Named {
  size: number;
  label?: string;
  draw(canvas: Canvas): void;
}

interface Shaped<T> { more: number }

/** A shape. */
@Component({ selector: 'x' })
export abstract class Shape<T> extends Base<T> implements Shaped<T>, Other {
  private x: number = 1;
  protected static y?: string;
  readonly z = new Map<string, number>();
  #secret = 1;
  handler = (e: Event) => { this.x = 1; };
  list: Array<{ a: number }> = [];
  noSemicolon: string
  other!: number

  constructor(private a: number, public b = 3) { super(); }

  get size(): number { return 1; }
  set size(value: number) { }

  /** Must draw. */
  abstract draw(canvas: Canvas): void;
  optional?(a: number): { b: string } { return { b: '' }; }

  protected async load<U>(url: string, done: (u: U) => void): Promise<U> { return null; }

  // The first of three.
  find(a: number): void;
  find(a: string): void;
  find(a: any): void { if (a) { a(); } }

  last(): void {}
}

export enum Kind { Round, Square = 2 }
type Alias<T> = { a: T } | string;

namespace Geo.Math {
  export class Point {}
  export function distance(a: number): number { return 1; }
}

/** Adds. */
export function add(a: number, b?: string): void { const local = 1; }
export const LIMIT = 1, NAME: string = '';
declare function declared(x: number): string;
export default class Main {}
)~");
    CommentExtractor comments(tree.Folder());
    EXPECT_EQ(Dump(tree.Scan(), {.Places = true}, &comments), R"~(
+Module shape @shape.ts:1-55
  +Interface Shaped @shape.ts:4-8 @shape.ts:10 "What has a shape."
    +Field size : number @shape.ts:5
    +Field label : string @shape.ts:6
    +Method draw (canvas: Canvas) : void @shape.ts:7
    +Field more : number @shape.ts:10
  +Class Shape < Base<T>,Shaped<T>,Other @shape.ts:14-41 "A shape."
    -Field x : number @shape.ts:15
    #Field y : string @shape.ts:16
    +Field z @shape.ts:17
    -Field #secret @shape.ts:18
    +Field handler @shape.ts:19
    +Field list : Array<{a:number}> @shape.ts:20
    +Field noSemicolon : string @shape.ts:21
    +Field other : number @shape.ts:22
    +Constructor constructor (private a: number, public b = 3) @shape.ts:24
    +Property size @shape.ts:26 @shape.ts:27
    +Method draw (canvas: Canvas) : void @shape.ts:30 "Must draw."
    +Method optional (a: number) : {b:string} @shape.ts:31
    #Method load (url: string, done: (u: U) => void) : Promise<U> @shape.ts:33
    +Method find(number) (a: number) : void @shape.ts:36 "The first of three."
    +Method find(string) (a: string) : void @shape.ts:37
    +Method find(any) (a: any) : void @shape.ts:38
    +Method last () : void @shape.ts:40
  +Enumeration Kind @shape.ts:43
    +Enumerator Round @shape.ts:43
    +Enumerator Square @shape.ts:43
  +Typedef Alias @shape.ts:44
  +Namespace Geo
    +Namespace Math @shape.ts:46
      +Class Point @shape.ts:47
      +Function distance (a: number) : number @shape.ts:48
  +Function add (a: number, b?: string) : void @shape.ts:52 "Adds."
  +Constant LIMIT @shape.ts:53
  +Constant NAME : string @shape.ts:53
  +Function declared (x: number) : string @shape.ts:54
  +Class Main @shape.ts:55
)~");
}

} // namespace paperkite::test
