#include "doctypes/SourceTree.h"

#include <gtest/gtest.h>

namespace paperkite::test {

TEST(ScanningGo, FoldersArePackagesAndMethodsBelongToTheirReceivers) {
    SourceTree tree;
    tree.Write("internal/geo/move.go", R"~(package geo

// Move shifts it.
func (p *Point) Move(dx, dy int) (int, error) { return 0, nil }

func (n Num) String() string { return "" }

func (l *Pair[T]) Push(x T) {}

func New(a int, rest ...string) *Point { return nil }

func Map[T any](x T) T { return x }
)~");
    tree.Write("internal/geo/point.go", R"~(package geo

// Point is a place.
type Point struct {
	X, Y int
	// what it is called
	name string
	Base
}

// Shape has an area.
type Shape interface {
	Area() float64
	perimeter(a, b int) (int, error)
}

type Num int
type Visit func(a int) error
type Pair[T any] struct{ head *T }

// Limit is the end.
const Limit = 3

const (
	// First one.
	First = iota
	second
)

var Count, total int = 1, 2
)~");
    tree.Write("main.go", R"~(// Command shapes draws.
package main

import (
	"fmt"
	alias "os"
)

func main() {
	local := 1
}

func init() {}
)~");
    CommentExtractor comments(tree.Folder());
    EXPECT_EQ(Dump(tree.Scan(), {.Places = true}, &comments), R"~(
+Package internal
  +Package geo @internal/geo/move.go:1 @internal/geo/point.go:1
    +Function New (a int, rest ...string) : *Point @internal/geo/move.go:10
    +Function Map (x T) : T @internal/geo/move.go:12
    +Struct Point @internal/geo/point.go:4-9 "Point is a place."
      +Method Move (dx, dy int) : (int, error) @internal/geo/move.go:4 "Move shifts it."
      +Field X : int @internal/geo/point.go:5
      +Field Y : int @internal/geo/point.go:5
      ~Field name : string @internal/geo/point.go:7 "what it is called"
      +Field Base : Base @internal/geo/point.go:8
    +Interface Shape @internal/geo/point.go:12-15 "Shape has an area."
      +Method Area () : float64 @internal/geo/point.go:13
      ~Method perimeter (a, b int) : (int, error) @internal/geo/point.go:14
    +Typedef Num : int @internal/geo/point.go:17
      +Method String () : string @internal/geo/move.go:6
    +Typedef Visit : func(a int) error @internal/geo/point.go:18
    +Struct Pair @internal/geo/point.go:19
      +Method Push (x T) @internal/geo/move.go:8
    +Constant Limit @internal/geo/point.go:22 "Limit is the end."
    +Constant First @internal/geo/point.go:26 "First one."
    ~Constant second @internal/geo/point.go:27
    +Variable Count : int @internal/geo/point.go:30
    ~Variable total : int @internal/geo/point.go:30
+Package main @main.go:2 "Command shapes draws."
  ~Function main () @main.go:9-11
  ~Function init () @main.go:13
)~");
}

} // namespace paperkite::test
