#include "doctypes/SourceTree.h"

#include <gtest/gtest.h>

namespace paperkite::test {

TEST(ScanningRust, ImplementationsBelongToTheirTypes) {
    SourceTree tree;
    tree.Write("src/geo/mod.rs", R"~(//! Geometry.

pub fn area(a: i32) -> i32 { a }

mod inner {
    pub struct Deep;
}
)~");
    tree.Write("src/lib.rs", R"~(//! The crate.
//! It is small.

pub mod geo;

/// A shape.
#[derive(Debug, Clone)]
#[serde(rename = "x")]
pub struct Shape<T> {
    /// How wide.
    pub width: i32,
    pub(crate) height: i32,
    secret: T,
}

pub enum Kind {
    /// Round.
    Round,
    Square(i32),
    Free { x: i32 },
}

pub trait Draw: Base {
    type Item;
    /// Must draw.
    fn draw(&self, scale: i32) -> i32;
    fn twice(&self) {}
}

impl<T> Shape<T> {
    /// Makes one.
    pub fn new(width: i32) -> Self { todo!() }
    fn hidden(&mut self) {}
    pub(crate) fn ours<'a, U: Base>(&'a self, other: &'a U) -> Result<(), Error> where U: Clone { Ok(()) }
}

impl<T> Draw for Shape<T> {
    fn draw(&self, scale: i32) -> i32 { 1 }
}

impl fmt::Display for Kind {
    fn fmt(&self, f: &mut Formatter) -> fmt::Result { Ok(()) }
}

impl fmt::Debug for Kind {
    fn fmt(&self, f: &mut Formatter) -> fmt::Result { Ok(()) }
}

pub const LIMIT: i32 = 3;
static NAME: &str = "x";
pub type Pair = (i32, i32);

fn private() {
    fn nested() {}
}
)~");
    CommentExtractor comments(tree.Folder());
    EXPECT_EQ(Dump(tree.Scan(), {.Places = true}, &comments), R"~(
+Module geo @src/geo/mod.rs:1-7 @src/lib.rs:4 "Geometry."
  +Function area (a: i32) : i32 @src/geo/mod.rs:3
  -Module inner @src/geo/mod.rs:5
    +Struct Deep @src/geo/mod.rs:6
+Struct Shape @src/lib.rs:9-14 "A shape."
  +Field width : i32 @src/lib.rs:11 "How wide."
  ~Field height : i32 @src/lib.rs:12
  -Field secret : T @src/lib.rs:13
  +Method new (width: i32) : Self @src/lib.rs:32 "Makes one."
  -Method hidden (&mut self) @src/lib.rs:33
  ~Method ours (&'a self, other: &'a U) : Result<(), Error> @src/lib.rs:34
  +Method draw (&self, scale: i32) : i32 @src/lib.rs:38
+Enumeration Kind @src/lib.rs:16-21
  +Enumerator Round @src/lib.rs:18 "Round."
  +Enumerator Square @src/lib.rs:19
  +Enumerator Free @src/lib.rs:20
  +Method fmt(fmt%3A%3ADisplay) (&self, f: &mut Formatter) : fmt::Result @src/lib.rs:42
  +Method fmt(fmt%3A%3ADebug) (&self, f: &mut Formatter) : fmt::Result @src/lib.rs:46
+Trait Draw @src/lib.rs:23-28
  +Typedef Item @src/lib.rs:24
  +Method draw (&self, scale: i32) : i32 @src/lib.rs:26 "Must draw."
  +Method twice (&self) @src/lib.rs:27
+Constant LIMIT : i32 @src/lib.rs:49
-Variable NAME : &str @src/lib.rs:50
+Typedef Pair @src/lib.rs:51
-Function private () @src/lib.rs:53-55
)~");
}

} // namespace paperkite::test
