#include "foundation/NodeDef.h"

#include <gtest/gtest.h>

namespace paperkite {

TEST(NodeDef, EachHasAKeyOfItsOwnAndAReadOneKeepsIts) {
    EXPECT_NE(NodeDef().GetKey(), NodeDef().GetKey());
    EXPECT_EQ(NodeDef("kept").GetKey(), "kept");
}

TEST(NodeDef, TheImageShowsWhetherItHasChildren) {
    NodeDef node;
    EXPECT_EQ(node.GetImage(false), node.GetExpandedImage(false));
    EXPECT_NE(node.GetImage(false), node.GetImage(true));
    EXPECT_NE(node.GetImage(true), node.GetExpandedImage(true));
}

TEST(NodeDef, AnIconOfItsOwnIsShownAlways) {
    NodeDef node;
    node.Icon = 42;
    EXPECT_NE(node.GetImage(true), 42);
    node.CustomIcon = true;
    EXPECT_EQ(node.GetImage(true), 42);
    EXPECT_EQ(node.GetExpandedImage(true), 42);
    EXPECT_EQ(node.GetImage(false), 42);
}

} // namespace paperkite
