#include "doctypes/SourceTree.h"

#include <gtest/gtest.h>

namespace paperkite::test {

TEST(ScanningPython, FilesAreModulesAndLocalsAreLeftOut) {
    SourceTree tree;
    tree.Write("pkg/__init__.py", R"~("""The package."""

VERSION = "1"
)~");
    tree.Write("pkg/sub/tool.py", R"~(#!/usr/bin/env python3
# Copyright
"""A tool.

It does things.
"""
import os
from a import b as c

LIMIT = 3
_hidden = {}


class Tool(Base, metaclass=Meta):
    """A tool that works.

        Indented.
    """

    kind = "x"
    size: int = 5

    def __init__(self, name, *args, depth: int = 3, **rest) -> None:
        """Makes one."""
        self.name = name

        def inner():
            pass

    # Runs it.
    # Twice.
    def run(self, how=(1, 2)):
        return 1

    def _guarded(self): pass
    def __private(self): pass

    @property
    def label(self) -> str:
        """Its label."""
        return ""

    @label.setter
    def label(self, value):
        pass

    @staticmethod
    @decorated(
        1,
    )
    def make(a):
        'One line.'

    class Part:
        def use(self): pass


# Free.
async def work(a: str, b: dict = {"a": 1}) -> Dict[str, int]:
    class Local:
        def q(self): pass


if LIMIT:
    def either(): pass
else:
    def either(): pass
)~");
    CommentExtractor comments(tree.Folder());
    EXPECT_EQ(Dump(tree.Scan(), {.Places = true}, &comments), R"~(
+Module pkg @pkg/__init__.py:1-3 "The package."
  +Constant VERSION @pkg/__init__.py:3
  +Package sub
    +Module tool @pkg/sub/tool.py:1-67 "A tool.||It does things."
      +Constant LIMIT @pkg/sub/tool.py:10
      #Variable _hidden @pkg/sub/tool.py:11
      +Class Tool < Base @pkg/sub/tool.py:14-55 "A tool that works.||Indented."
        +Field kind @pkg/sub/tool.py:20
        +Field size : int @pkg/sub/tool.py:21
        +Constructor __init__ (self, name, *args, depth: int = 3, **rest) : None @pkg/sub/tool.py:23-28 "Makes one."
        +Method run (self, how=(1, 2)) @pkg/sub/tool.py:32-33 "Runs it.|Twice."
        #Method _guarded (self) @pkg/sub/tool.py:35
        -Method __private (self) @pkg/sub/tool.py:36
        +Property label : str @pkg/sub/tool.py:39-41 @pkg/sub/tool.py:44-45 "Its label."
        +Method make (a) @pkg/sub/tool.py:51-52 "One line."
        +Class Part @pkg/sub/tool.py:54-55
          +Method use (self) @pkg/sub/tool.py:55
      +Function work (a: str, b: dict = {"a": 1}) : Dict[str,int] @pkg/sub/tool.py:59-61 "Free."
      +Function either () @pkg/sub/tool.py:65 @pkg/sub/tool.py:67
)~");
}

} // namespace paperkite::test
