#include "designers/DesignerFactory.h"

#include "foundation/CommentDesigner.h"
#include "support/EventLog.h"

#include <gtest/gtest.h>

namespace paperkite {
namespace {

TEST(DesignerFactoryTest, MakesEveryClassUnderItsName) {
    for (const char* name :
         {"dsrHTMLEdit", "dsrIsExample", "dsrCommentsFrom", "dsrMenuItem", "dsrKeywords",
          "dsrExampleSource", "dsrXMLIsland", "dsrSubItem", "dsrIsNew"}) {
        const auto control = MakeDesigner(std::string("kite4commentdesigners.") + name);
        EXPECT_EQ(control->GetName(), std::string("Kite4CommentDesigners") + name);
        EXPECT_TRUE(control->GetObject());
        EXPECT_EQ(bool(control->GetEditor()), std::string(name) == "dsrHTMLEdit");
    }
    EXPECT_EQ(MakeDesigner("GlossmakerDesigners.dsrHTMLEdit")->GetName(),
              "GlossmakerDesignersdsrHTMLEdit");
}

TEST(DesignerFactoryTest, AnUnknownClassIsAnError) {
    EXPECT_EQ(ErrorNumberOf([] { MakeDesigner("Kite4CommentDesigners.dsrNothing"); }), 429);
}

} // namespace
} // namespace paperkite
