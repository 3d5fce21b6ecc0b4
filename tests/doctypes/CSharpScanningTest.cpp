#include "doctypes/SourceTree.h"

#include <gtest/gtest.h>

namespace paperkite::test {

TEST(ScanningCSharp, PartialTypesAreOneAndAccessIsThatOfTheModifiers) {
    SourceTree tree;
    tree.Write("Shape.cs", R"~(using System;

namespace Draw.Shapes
{
    /// <summary>A shape.</summary>
    [Serializable]
    public abstract partial class Shape<T> : Base, IShape where T : class
    {
        private const int Limit = 3;
        private int _x, _y;

        /// <summary>Its name.</summary>
        public string Name { get; set; }
        protected internal double Area => 3.0;
        public event EventHandler Moved;

        public Shape() : base() { }
        public Shape(int x) { _x = x; }
        ~Shape() { }

        // Adds two.
        public static Shape<T> operator +(Shape<T> a, Shape<T> b) { return a; }

        void Hidden() { int local = 1; }
        internal void Ours() { }

        [Obsolete("old")]
        public async Task<int> Run(string a, params object[] rest) { return 1; }
        public void Draw(Canvas canvas) { }
        public void Draw(Canvas canvas, double scale = 1.0) { }

        public delegate void Handler(object sender);
        public enum Kind { Round, Square = 2 }
        class Inner { public int Depth; }
    }

    public interface IShape : IDisposable
    {
        void Draw(Canvas canvas);
        string Name { get; set; }
    }

    struct Point { public int X; }
    public record Person(string First, string Last);
}
)~");
    tree.Write("ShapeMore.cs", R"~(namespace Draw.Shapes;

public abstract partial class Shape<T>
{
    public void More() { }
}
)~");
    CommentExtractor comments(tree.Folder());
    EXPECT_EQ(Dump(tree.Scan(), {.Places = true}, &comments), R"~(
+Namespace Draw
  +Namespace Shapes @Shape.cs:3-45
    +Class Shape < Base,IShape @Shape.cs:7-35 @ShapeMore.cs:3-6 "<summary>A shape.</summary>"
      -Constant Limit : int @Shape.cs:9
      -Field _x : int @Shape.cs:10
      -Field _y : int @Shape.cs:10
      +Property Name : string @Shape.cs:13 "<summary>Its name.</summary>"
      #Property Area : double @Shape.cs:14
      +Event Moved : EventHandler @Shape.cs:15
      +Constructor Shape() () @Shape.cs:17
      +Constructor Shape(int) (int x) @Shape.cs:18
      -Destructor %7EShape () @Shape.cs:19
      +Operator operator+ (Shape<T> a, Shape<T> b) : Shape<T> @Shape.cs:22 "Adds two."
      -Method Hidden () : void @Shape.cs:24
      ~Method Ours () : void @Shape.cs:25
      +Method Run (string a, params object[] rest) : Task<int> @Shape.cs:28
      +Method Draw(Canvas) (Canvas canvas) : void @Shape.cs:29
      +Method Draw(Canvas,double) (Canvas canvas, double scale = 1.0) : void @Shape.cs:30
      +Delegate Handler (object sender) : void @Shape.cs:32
      +Enumeration Kind @Shape.cs:33
        +Enumerator Round @Shape.cs:33
        +Enumerator Square @Shape.cs:33
      -Class Inner @Shape.cs:34
        +Field Depth : int @Shape.cs:34
      +Method More () : void @ShapeMore.cs:5
    +Interface IShape < IDisposable @Shape.cs:37-41
      +Method Draw (Canvas canvas) : void @Shape.cs:39
      +Property Name : string @Shape.cs:40
    ~Struct Point @Shape.cs:43
      +Field X : int @Shape.cs:43
    +Class Person (string First, string Last) @Shape.cs:44
)~");
}

} // namespace paperkite::test
