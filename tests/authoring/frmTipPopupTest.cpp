#include "authoring/frmTipPopup.h"

#include "support/ModelServices.h"

#include <gtest/gtest.h>

namespace paperkite::test {
namespace {

/// A diagnostic server that answers, and tells what is counted.
class CountingServer : public DiagnosticServer {
public:
    CountingServer() {
        modBulwarkSupport::SetDiagnosticServer(this);
        modBulwarkSupport::StartUp();
    }
    ~CountingServer() override { modBulwarkSupport::SetDiagnosticServer(nullptr); }
    std::shared_ptr<DiagnosticEndpoint> CreateEndpoint() override {
        return std::make_shared<Endpoint>(*this);
    }
    std::vector<std::int32_t> ServerEndpoints() override { return {7}; }
    std::shared_ptr<SharedCounters> OpenSharedCounters(const std::string&, std::size_t) override {
        return std::make_shared<Counters>(*this);
    }
    std::string CommandLine() override { return "paperkite"; }
    std::string ModuleFilename() override { return "/lib/paperkite"; }

    std::vector<std::string> Registered;
    int Living = 0;

private:
    struct Endpoint : DiagnosticEndpoint {
        explicit Endpoint(CountingServer& server) : Server(server) {}
        std::int32_t GetHandle() const override { return 1; }
        std::int32_t GetProcessId() const override { return 2; }
        std::string Send(std::int32_t, int message, int, const std::string& text) override {
            constexpr int kRegister = 502;
            if (message == kRegister) Server.Registered.push_back(text);
            return message == kRegister ? "40" : "0";
        }
        bool Ask(std::int32_t, int) override { return true; }
        CountingServer& Server;
    };
    struct Counters : SharedCounters {
        explicit Counters(CountingServer& server) : Server(server) {}
        void Add(std::int32_t, int difference) override { Server.Living += difference; }
        CountingServer& Server;
    };
};

TEST(frmTipPopupTest, AServerCountsItAsAForm) {
    CountingServer server;
    {
        const frmTipPopup form;
        ASSERT_EQ(server.Registered.size(), 1u);
        EXPECT_TRUE(server.Registered[0].ends_with("frmTipPopup,3,")) << server.Registered[0];
        EXPECT_EQ(server.Living, 1);
    }
    EXPECT_EQ(server.Living, 0);
}

TEST(frmTipPopupTest, AFailureIsReportedAndNotHandedOn) {
    ModelServices services;
    frmTipPopup form;
    const auto tie =
        form.ControlEvents.Resize.Connect([](int, int) { RaiseError(ErrorNumber::InvalidCall); });
    form.SetTipText("one\r\ntwo");
    EXPECT_EQ(services.TakeReports(), "frmTipPopup.TipText (5)\n");
    EXPECT_EQ(form.GetTipText(), "one<BR>two");
}

TEST(frmTipPopupTest, LineBreaksBecomeBreaksOfTheLabel) {
    frmTipPopup form;
    form.SetTipText("<b>One</b>\r\ntwo\r\n\r\nthree");
    EXPECT_EQ(form.Tip->GetCaption(), "<b>One</b><BR>two<BR><BR>three");
    EXPECT_EQ(form.GetTipText(), form.Tip->GetCaption());
    EXPECT_TRUE(form.Tip->GetRichText());
    form.SetTipText("a lone \n stays");
    EXPECT_EQ(form.Tip->GetCaption(), "a lone \n stays");
}

TEST(frmTipPopupTest, TheLabelStandsCentred) {
    frmTipPopup form;
    for (const std::string& text : {std::string(), std::string("short"), std::string(2000, 'x')}) {
        form.SetTipText(text);
        EXPECT_EQ(form.GetHeight(), form.Tip->GetHeight() + 2 * form.Tip->GetTop());
        EXPECT_EQ(form.GetWidth(), form.Tip->GetWidth() + 2 * form.Tip->GetLeft());
        EXPECT_GT(form.Tip->GetTop(), 0);
        EXPECT_GT(form.Tip->GetLeft(), 0);
    }
}

TEST(frmTipPopupTest, ALongerTipMakesAHigherForm) {
    frmTipPopup form;
    form.SetTipText("short");
    const int low = form.GetHeight();
    form.SetTipText("short\r\nand a second line");
    EXPECT_GT(form.GetHeight(), low);
    form.SetTipText("short");
    EXPECT_EQ(form.GetHeight(), low);
}

TEST(frmTipPopupTest, BrokenMarkupIsATextLikeAnyOther) {
    frmTipPopup form;
    form.SetTipText("<b unclosed");
    EXPECT_EQ(form.GetTipText(), "<b unclosed");
    form.SetTipText("> >> <");
    EXPECT_EQ(form.GetTipText(), "> >> <");
    EXPECT_GT(form.GetHeight(), 0);
}

} // namespace
} // namespace paperkite::test
