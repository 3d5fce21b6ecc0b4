#include "doctypes/SourceTree.h"

#include <gtest/gtest.h>

namespace paperkite::test {

TEST(ScanningRuby, ReopenedClassesAreOneAndVisibilityIsFollowed) {
    SourceTree tree;
    tree.Write("more.rb", R"~(module Draw
  class Shape
    # Reopened.
    def more
    end
  end
end

def helper(a)
end
)~");
    tree.Write("shape.rb", R"~(# Drawing.
module Draw
  # A shape.
  class Shape < Base
    LIMIT = 3
    attr_accessor :width, :height
    attr_reader :name
    include Comparable

    # Makes one.
    def initialize(a, b = 1, *rest, depth: 2, &block)
      @x = 1
    end

    def self.make(x)
    end

    def round?; end
    def ==(other)
      true
    end

    private

    def hidden
    end

    protected

    def guarded
    end

    public

    def later
    end
    private :later

    alias_method :old, :round?

    class Part
      def use
      end
    end
  end
end
)~");
    CommentExtractor comments(tree.Folder());
    EXPECT_EQ(Dump(tree.Scan(), {.Places = true}, &comments), R"~(
+Module Draw @more.rb:1-7 @shape.rb:2-46 "Drawing."
  +Class Shape < Base @more.rb:2-6 @shape.rb:4-45 "A shape."
    +Method more () @more.rb:4-5 "Reopened."
    +Constant LIMIT @shape.rb:5
    +Property width @shape.rb:6
    +Property height @shape.rb:6
    +Property name @shape.rb:7
    +Constructor initialize (a, b = 1, *rest, depth: 2, &block) @shape.rb:11-13 "Makes one."
    +Method make (x) @shape.rb:15-16
    +Method round? () @shape.rb:18
    +Method == (other) @shape.rb:19-21
    -Method hidden () @shape.rb:25-26
    #Method guarded () @shape.rb:30-31
    -Method later () @shape.rb:35-36
    +Method old @shape.rb:39
    +Class Part @shape.rb:41-44
      +Method use () @shape.rb:42-43
+Module more
  +Function helper (a) @more.rb:9-10
)~");
}

} // namespace paperkite::test
