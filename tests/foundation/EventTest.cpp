#include "foundation/Event.h"

#include "foundation/Error.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace paperkite {
namespace {

class EventTest : public testing::Test {
protected:
    Event<>::Handler Write(const std::string& text) {
        return [this, text] { mHeard += text; };
    }
    std::string Raised() {
        mHeard.clear();
        mEvent->Raise();
        return mHeard;
    }

    std::string mHeard;
    std::unique_ptr<Event<>> mEvent = std::make_unique<Event<>>();
};

TEST_F(EventTest, HandlersRunInTheOrderInWhichTheyCame) {
    const auto first = mEvent->Connect(Write("1"));
    const auto second = mEvent->Connect(Write("2"));
    const auto third = mEvent->Connect(Write("3"));
    EXPECT_EQ(Raised(), "123");
}

TEST_F(EventTest, ATieEndsWithItsConnection) {
    auto kept = mEvent->Connect(Write("k"));
    {
        const auto dropped = mEvent->Connect(Write("d"));
        EXPECT_TRUE(dropped.IsConnected());
        EXPECT_EQ(Raised(), "kd");
    }
    EXPECT_EQ(Raised(), "k");
    EXPECT_TRUE(mEvent->HasHandlers());
    kept = Connection();
    EXPECT_FALSE(mEvent->HasHandlers());
    EXPECT_EQ(Raised(), "");
}

TEST_F(EventTest, AMovedConnectionHoldsTheTie) {
    Connection outer;
    {
        auto inner = mEvent->Connect(Write("x"));
        outer = std::move(inner);
    }
    EXPECT_EQ(Raised(), "x");
    outer.Disconnect();
    outer.Disconnect();
    EXPECT_FALSE(outer.IsConnected());
    EXPECT_EQ(Raised(), "");
}

TEST_F(EventTest, AHandlerThatIsCutDuringTheRoundIsNotCalled) {
    Connection later;
    const auto first = mEvent->Connect([&] {
        mHeard += "1";
        later.Disconnect();
    });
    later = mEvent->Connect(Write("2"));
    const auto third = mEvent->Connect(Write("3"));
    EXPECT_EQ(Raised(), "13");
    EXPECT_EQ(Raised(), "13");
}

TEST_F(EventTest, AHandlerMayCutItself) {
    Connection self;
    auto text = std::make_shared<std::string>("once");
    self = mEvent->Connect([&, text] {
        self.Disconnect();
        mHeard += *text;
    });
    text.reset();
    const auto other = mEvent->Connect(Write("+"));
    EXPECT_EQ(Raised(), "once+");
    EXPECT_EQ(Raised(), "+");
}

TEST_F(EventTest, AHandlerThatComesDuringTheRoundIsCalledTheNextTime) {
    std::vector<Connection> late;
    const auto first = mEvent->Connect([&] {
        mHeard += "1";
        if (late.empty()) late.push_back(mEvent->Connect(Write("n")));
    });
    const auto second = mEvent->Connect(Write("2"));
    EXPECT_EQ(Raised(), "12");
    EXPECT_EQ(Raised(), "12n");
}

TEST_F(EventTest, TheEventMayEndInsideAHandler) {
    const auto first = mEvent->Connect([&] {
        mHeard += "1";
        mEvent.reset();
    });
    const auto second = mEvent->Connect(Write("2"));
    mEvent->Raise();
    EXPECT_EQ(mHeard, "12");
    EXPECT_FALSE(mEvent);
}

TEST_F(EventTest, RoundsNestAndTheOuterOneGoesOn) {
    int depth = 0;
    Connection last;
    const auto first = mEvent->Connect([&] {
        mHeard += "a" + std::to_string(depth);
        if (depth++ > 0) return;
        mEvent->Raise();
        last.Disconnect();
        mHeard += "|";
    });
    const auto second = mEvent->Connect(Write("b"));
    last = mEvent->Connect(Write("c"));
    EXPECT_EQ(Raised(), "a0a1bc|b");
    EXPECT_EQ(Raised(), "a2b");
}

TEST_F(EventTest, AFailureEndsTheRoundAndReachesTheCaller) {
    bool failing = true;
    const auto first = mEvent->Connect(Write("1"));
    const auto second = mEvent->Connect([&] {
        if (failing) RaiseError(ErrorNumber::InvalidCall);
    });
    const auto third = mEvent->Connect(Write("3"));
    EXPECT_THROW(mEvent->Raise(), Error);
    EXPECT_EQ(mHeard, "1");
    failing = false;
    EXPECT_EQ(Raised(), "13");
}

TEST(EventArgumentsTest, AHandlerAnswersThroughReferencesAndTheNextOneSeesIt) {
    Event<const std::string&, std::string&, bool&> request;
    const auto first =
        request.Connect([](const std::string& asked, std::string& link, bool&) { link += asked; });
    const auto second = request.Connect(
        [](const std::string&, std::string& link, bool& cancel) { cancel = link == "to:page"; });
    std::string link = "to:";
    bool cancel = false;
    request.Raise("page", link, cancel);
    EXPECT_EQ(link, "to:page");
    EXPECT_TRUE(cancel);
}

} // namespace
} // namespace paperkite
