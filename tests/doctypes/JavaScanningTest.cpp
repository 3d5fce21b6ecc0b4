#include "doctypes/SourceTree.h"

#include <gtest/gtest.h>

namespace paperkite::test {

TEST(ScanningJava, PackagesHoldTypesAndOverloadsAreToldApart) {
    SourceTree tree;
    tree.Write("com/example/Shape.java", R"~(package com.example;

import java.util.*;

/**
 * A shape.
 *
 * @author me
 */
@Deprecated
public abstract class Shape<T extends Comparable<T>> extends Base<T> implements Runnable, List<String> {
    private static final int LIMIT = 3;
    int x, y;
    protected String[] names;
    private int size;

    /** Makes one. */
    public Shape() {}

    Shape(int x) { this.x = x; }

    /** How large it is. */
    public int size() { return size; }

    /**
     * Runs.
     */
    @Override
    @SuppressWarnings({
        "unchecked",
        "rawtypes"
    })
    public void run() {
        int local = 1;
        Runnable r = new Runnable() { public void run() {} };
    }

    public <U> Map<String, List<U>> find(Map<String, U> where, int... rest) throws Exception { return null; }
    private int find(final int x) { return 1; }

    static class Nested {
        class Deep { int z; }
    }

    enum Color {
        /** Like blood. */
        RED,
        GREEN;
        void paint() {}
    }

    public interface Visitor {
        int LIMIT = 4;
        void visit(Shape<?> shape);
    }

    @interface Marker { String value() default ""; }
}

class Helper {}
)~");
    CommentExtractor comments(tree.Folder());
    EXPECT_EQ(Dump(tree.Scan(), {.Places = true}, &comments), R"~(
+Package com.example @com/example/Shape.java:1
  +Class Shape < Base,Runnable,List @com/example/Shape.java:11-58 "A shape.||@author me"
    -Constant LIMIT : int @com/example/Shape.java:12
    ~Field x : int @com/example/Shape.java:13
    ~Field y : int @com/example/Shape.java:13
    #Field names : String[] @com/example/Shape.java:14
    -Field size[Field] : int @com/example/Shape.java:15
    +Constructor Shape() () @com/example/Shape.java:18 "Makes one."
    ~Constructor Shape(int) (int x) @com/example/Shape.java:20
    +Method size () : int @com/example/Shape.java:23 "How large it is."
    +Method run () : void @com/example/Shape.java:33-36 "Runs."
    +Method find(Map<String,U>,int...) (Map<String, U> where, int... rest) : Map<String, List<U>> @com/example/Shape.java:38
    -Method find(int) (final int x) : int @com/example/Shape.java:39
    ~Class Nested @com/example/Shape.java:41-43
      ~Class Deep @com/example/Shape.java:42
        ~Field z : int @com/example/Shape.java:42
    ~Enumeration Color @com/example/Shape.java:45-50
      +Enumerator RED @com/example/Shape.java:47 "Like blood."
      +Enumerator GREEN @com/example/Shape.java:48
      ~Method paint () : void @com/example/Shape.java:49
    +Interface Visitor @com/example/Shape.java:52-55
      +Constant LIMIT : int @com/example/Shape.java:53
      +Method visit (Shape<?> shape) : void @com/example/Shape.java:54
    ~Annotation Marker @com/example/Shape.java:57
      +Method value () : String @com/example/Shape.java:57
  ~Class Helper @com/example/Shape.java:60
)~");
}

} // namespace paperkite::test
