#include "links/LinkBuilder.h"

#include "links/LinksFixture.h"

#include <vector>

namespace paperkite::test {
namespace {

constexpr const char* kTick = "HKCU:Software\\Brindlewick\\Paperkite4:LinkBuilderKiteLink";

class LinkBuilderTest : public LinksFixture {
protected:
    LinkBuilderTest() { Connect(); }

    void Connect() {
        auto& events = mPanel->Events;
        mTies.clear();
        mTies.push_back(events.ShowMemberExplorer.Connect([this] { mLog += "show;"; }));
        mTies.push_back(events.HideMemberExplorer.Connect([this] { mLog += "hide;"; }));
        mTies.push_back(
            events.GetSelectedMember.Connect([this](std::string& name) { name = mMember; }));
        mTies.push_back(
            events.MoveMemberExplorer.Connect([this](int left, int top, int width, int height) {
                mLog += "move " + std::to_string(left) + "," + std::to_string(top) + "," +
                        std::to_string(width) + "," + std::to_string(height) + ";";
            }));
    }
    void Remake(LinkBuilder::HostMode mode = LinkBuilder::HostMode::User) {
        mPanel = MakeRef<LinkBuilder>("panel", mode);
        Connect();
    }
    /// As the in-place editor's host does.
    void Initialize(const std::string& caption = {}, bool addExtension = true,
                    bool kiteLinks = true) {
        mPanel->Initialize(true, kiteLinks, true, {}, "Link to", addExtension, caption);
        mLog.clear();
    }
    Ref<GroupItem> Kind(const std::string& key) const {
        for (const auto& group : mPanel->eb->GetGroups())
            if (group->Contains(key)) return group->Item(key);
        return {};
    }
    void Choose(const std::string& key) { mPanel->eb->UserClick(Kind(key)); }
    std::string Selected() const { return mPanel->eb->GetSelectedItem()->GetKey(); }
    /// The names of the pages that are to be seen.
    std::string Pages() const {
        std::string names;
        for (const auto& page : {mPanel->conAnotherMember, mPanel->conanotheritem,
                                 mPanel->conAnotherHelpFile, mPanel->conInternetURL})
            if (page->GetVisible()) names += page->GetName() + " ";
        return names;
    }
    std::string Captions() const {
        std::string texts;
        for (const auto& group : mPanel->eb->GetGroups()) {
            texts += "[" + group->GetKey() + ":" + group->GetCaption() + "]\n";
            for (const auto& item : *group)
                texts += item->GetKey() + ": " + item->GetCaption() + "\n";
        }
        return texts;
    }
    std::string Kept() const {
        const auto found = mServices.Registry->Values.find(kTick);
        return found == mServices.Registry->Values.end() ? "nothing" : found->second;
    }
    std::string TakeLog() { return std::exchange(mLog, {}); }

    std::string mLog;
    std::string mMember = "zoo~Dog~Bark";
    Ref<LinkBuilder> mPanel = MakeRef<LinkBuilder>("panel");
    std::vector<Connection> mTies;
};

TEST_F(LinkBuilderTest, BearsItsTexts) {
    EXPECT_EQ(Captions(),
              "[paperkitelink:Paperkite Link]\n"
              "anothermember: Link to another member in the same item\n"
              "anotheritem: Link to a member in a different item but in the same help file\n"
              "anotherhelpfile: Link to a topic in another help file\n"
              "[interneturl:Other]\n"
              "netframework: .NET Framework docs\n"
              "interneturl: Link to an Internet or other URL\n");
    EXPECT_EQ(Kind("anothermember")->GetToolTipText(),
              "Use this page to build a link to a topic for another member in this same item");
    EXPECT_EQ(Kind("anotheritem")->GetToolTipText(),
              "Use this page to build a link to a member contained in a different item");
    EXPECT_EQ(Kind("anotherhelpfile")->GetToolTipText(), "");
    EXPECT_EQ(mPanel->chkKiteLink->GetCaption(),
              "Create as a Paperkite Link, converted during generation to a hyperlink");
    EXPECT_EQ(mPanel->lblURL->GetCaption(), "&URL:");
    EXPECT_EQ(mPanel->txtURL->GetText(), "http://");
    EXPECT_EQ(mPanel->cmdTest->GetCaption(), "&Test");
    EXPECT_EQ(mPanel->Label1->GetCaption(), "Link &Caption:");
}

TEST_F(LinkBuilderTest, BeginsWithALinkToAnotherMember) {
    EXPECT_EQ(Selected(), "anothermember");
    EXPECT_EQ(Pages(), "conAnotherMember ");
    EXPECT_EQ(mPanel->conAnotherMember->GetZOrder(), 0);
    EXPECT_TRUE(mPanel->conCaption->GetVisible());
    EXPECT_FALSE(Kind("netframework")->GetVisible());
    EXPECT_EQ(mPanel->txtCaption->GetTag(), "");
    EXPECT_EQ(TakeMessages(), "");
}

TEST_F(LinkBuilderTest, EachKindHasThePageOfItsName) {
    Initialize();
    for (const auto& [key, page] : std::initializer_list<std::pair<const char*, const char*>>{
             {"anotheritem", "conanotheritem "},
             {"anotherhelpfile", "conAnotherHelpFile "},
             {"interneturl", "conInternetURL "},
             {"anothermember", "conAnotherMember "}}) {
        Choose(key);
        EXPECT_EQ(Pages(), page);
        EXPECT_TRUE(mPanel->conCaption->GetVisible());
        EXPECT_EQ(TakeLog(), key == std::string("anothermember") ? "show;" : "hide;");
    }
    EXPECT_EQ(mPanel->conAnotherMember->GetZOrder(), 0);
}

TEST_F(LinkBuilderTest, WithoutASelectionTheFirstKindIsChosen) {
    Initialize();
    Choose("interneturl");
    mPanel->eb->SetSelectedItem({});
    EXPECT_EQ(Selected(), "anothermember");
    EXPECT_EQ(Pages(), "conAnotherMember ");
}

TEST_F(LinkBuilderTest, TheHiddenKindYieldsAnEmptyLinkAndIsAlwaysComplete) {
    Initialize();
    Choose("netframework");
    EXPECT_EQ(Selected(), "anothermember") << "the author cannot choose it";
    Kind("netframework")->SetSelected(true);
    EXPECT_EQ(Pages(), "");
    EXPECT_EQ(mPanel->GetLinkhRef(), "");
    EXPECT_TRUE(mPanel->Validate());
    EXPECT_FALSE(mPanel->GetKiteLink());
}

TEST_F(LinkBuilderTest, OnlyTheKindsInsideTheProjectRemainWithoutExternalLinks) {
    mPanel->Initialize(true, true, false, {}, {}, false, {});
    EXPECT_FALSE(mPanel->eb->GetGroup(2)->GetVisible());
    EXPECT_FALSE(Kind("anotherhelpfile")->GetVisible());
    EXPECT_TRUE(Kind("anotheritem")->GetVisible());
    EXPECT_TRUE(mPanel->eb->GetGroup(1)->GetVisible());
}

TEST_F(LinkBuilderTest, TheDialogCaptionTakesThePlaceOfLinkToInEveryCaption) {
    mPanel->Initialize(true, true, true, "Insert a link to", "Tip", false, {});
    EXPECT_EQ(Captions(),
              "[paperkitelink:Paperkite Link]\n"
              "anothermember: Insert a link to another member in the same item\n"
              "anotheritem: Insert a link to a member in a different item but in the same help "
              "file\n"
              "anotherhelpfile: Insert a link to a topic in another help file\n"
              "[interneturl:Other]\n"
              "netframework: .NET Framework docs\n"
              "interneturl: Insert a link to an Internet or other URL\n");
    EXPECT_EQ(Kind("anothermember")->GetToolTipText(),
              "Use this page to build a link to a topic for another member in this same item");
    EXPECT_EQ(mPanel->MemberLinkDesigner->TipPrefix, "Tip");
}

TEST_F(LinkBuilderTest, WithoutACaptionFieldThePagesAndTheMemberTreeGetItsRoom) {
    const Bounds caption = mPanel->conCaption->GetBounds();
    const Bounds page = mPanel->conInternetURL->GetBounds();
    ASSERT_GT(caption.Height, 5);
    mPanel->Initialize(false, true, true, {}, {}, false, {});
    EXPECT_FALSE(mPanel->conCaption->GetVisible());
    for (const auto& control : {mPanel->conAnotherMember, mPanel->conanotheritem,
                                mPanel->conAnotherHelpFile, mPanel->conInternetURL}) {
        EXPECT_EQ(control->GetTop(), 0) << control->GetName();
        EXPECT_EQ(control->GetHeight(), page.Height + caption.Height - 5) << control->GetName();
    }
    EXPECT_EQ(mPanel->conCaption->GetHeight(), 2 * caption.Height - 5);
    EXPECT_EQ(TakeLog(), "move " + std::to_string(caption.Left) + ",0," +
                             std::to_string(caption.Width) + "," +
                             std::to_string(mPanel->GetHeight() - caption.Height - 5) + ";show;");
}

TEST_F(LinkBuilderTest, ACaptionFieldLeavesThePagesWhereTheyAre) {
    const Bounds page = mPanel->conInternetURL->GetBounds();
    mPanel->Initialize(true, true, true, {}, {}, false, "Old");
    EXPECT_EQ(mPanel->conInternetURL->GetBounds(), page);
    EXPECT_EQ(TakeLog(), "show;");
    EXPECT_EQ(mPanel->GetLinkCaption(), "Old");
}

TEST_F(LinkBuilderTest, CaptionsAreProposedUntilTheAuthorTypesOne) {
    Initialize();
    EXPECT_EQ(mPanel->txtCaption->GetTag(), "Auto");
    mPanel->SetAutoCaption("Dog");
    mPanel->SetAutoCaption("Cat");
    EXPECT_EQ(mPanel->GetLinkCaption(), "Cat");
    EXPECT_EQ(mPanel->txtCaption->GetTag(), "Auto");
    mPanel->txtCaption->UserType("My cat ");
    mPanel->SetAutoCaption("Dog");
    EXPECT_EQ(mPanel->GetLinkCaption(), "My cat ");
    mPanel->txtCaption->UserType("");
    mPanel->SetAutoCaption("Dog");
    EXPECT_EQ(mPanel->GetLinkCaption(), "") << "what was emptied was typed too";
}

TEST_F(LinkBuilderTest, AGivenCaptionIsNotReplaced) {
    Initialize("Given");
    EXPECT_EQ(mPanel->txtCaption->GetTag(), "");
    mPanel->SetAutoCaption("Dog");
    EXPECT_EQ(mPanel->GetLinkCaption(), "Given");
}

TEST_F(LinkBuilderTest, TheHiddenCaptionIsProposedToo) {
    mPanel->Initialize(false, true, true, {}, {}, false, {});
    EXPECT_EQ(mPanel->GetLinkCaption(), "");
    mPanel->SetAutoCaption("Dog");
    EXPECT_EQ(mPanel->GetLinkCaption(), "Dog");
}

TEST_F(LinkBuilderTest, BeforeInitializeNothingIsProposed) {
    mPanel->SetAutoCaption("Dog");
    EXPECT_EQ(mPanel->GetLinkCaption(), "");
    mPanel->txtCaption->SetTag("auto");
    mPanel->SetAutoCaption("Dog");
    EXPECT_EQ(mPanel->GetLinkCaption(), "");
}

TEST_F(LinkBuilderTest, ALinkToAMemberIsItsNameAndAPageUnlessItIsAPaperkiteLink) {
    Initialize();
    EXPECT_TRUE(mPanel->GetKiteLink());
    EXPECT_EQ(mPanel->GetLinkhRef(), "zoo~Dog~Bark");
    mPanel->chkKiteLink->UserClick();
    EXPECT_FALSE(mPanel->GetKiteLink());
    EXPECT_EQ(mPanel->GetLinkhRef(), "zoo~Dog~Bark.html");
    Initialize({}, false);
    EXPECT_EQ(mPanel->GetLinkhRef(), "zoo~Dog~Bark");
}

TEST_F(LinkBuilderTest, TheOtherKindsHaveTheirOwnLinks) {
    Initialize();
    Choose("anotheritem");
    mPanel->MemberLinkDesigner->txtTopic->UserType("zoo~Cat");
    EXPECT_EQ(mPanel->GetLinkhRef(), "zoo~Cat.html");
    EXPECT_FALSE(mPanel->GetKiteLink()) << "the tick is on a hidden page";
    Choose("anotherhelpfile");
    mPanel->HelpTopicLinkDesigner->SethRef("ms-its:b.chm::/a.htm");
    EXPECT_EQ(mPanel->GetLinkhRef(), "ms-its:b.chm::/a.htm.html");
    Choose("interneturl");
    mPanel->txtURL->UserType("  http://example.org/a b ");
    EXPECT_EQ(mPanel->GetLinkhRef(), "  http://example.org/a b ");
    EXPECT_FALSE(mPanel->GetKiteLink());
    Initialize({}, false);
    Choose("anotheritem");
    EXPECT_EQ(mPanel->GetLinkhRef(), "zoo~Cat");
    Choose("anotherhelpfile");
    EXPECT_EQ(mPanel->GetLinkhRef(), "ms-its:b.chm::/a.htm");
}

TEST_F(LinkBuilderTest, AddressesStayAsTheyWereTyped) {
    Initialize();
    Choose("interneturl");
    for (const std::string& url :
         {std::string("javascript:alert(1)"), std::string("JaVaScRiPt:x"),
          std::string("http://a\x01\x1f\n\tb"), std::string("http://\"><script>"),
          "http://" + std::string(100'000, 'u'), std::string("zoo~Dog.html"),
          std::string("file:///etc/passwd")}) {
        mPanel->txtURL->UserType(url);
        EXPECT_EQ(mPanel->GetLinkhRef(), url);
        EXPECT_TRUE(mPanel->Validate());
    }
    EXPECT_EQ(TakeMessages(), "");
    EXPECT_TRUE(mServices.OutsideShell->Calls.empty()) << "nothing is opened by composing it";
}

TEST_F(LinkBuilderTest, LongTopicsAreLinksLikeOthers) {
    Initialize();
    mMember = std::string(100'000, 'm');
    mPanel->chkKiteLink->UserClick();
    EXPECT_EQ(mPanel->GetLinkhRef(), mMember + ".html");
    Choose("anotheritem");
    mPanel->MemberLinkDesigner->txtTopic->UserType(mMember);
    EXPECT_EQ(mPanel->GetLinkhRef(), mMember + ".html");
}

TEST_F(LinkBuilderTest, AnAddressOfBlanksOnlyIsNoneHoweverLong) {
    Initialize();
    Choose("interneturl");
    mPanel->txtURL->UserType(std::string(100'000, ' '));
    EXPECT_FALSE(mPanel->Validate());
    EXPECT_EQ(TakeMessages(), " [warning] Please provide a URL to link to, or click Cancel\n");
    mPanel->txtURL->UserType("\n\t");
    EXPECT_TRUE(mPanel->Validate()) << "only blanks are trimmed";
}

TEST_F(LinkBuilderTest, IncompleteHelpTopicsAreWarnedAboutAndReadAsTheyStand) {
    Initialize();
    Choose("anotherhelpfile");
    for (const auto& [written, read] : std::initializer_list<std::pair<const char*, const char*>>{
             {"", "ms-its:::/.html"},
             {"ms-its:help.chm", "ms-its:::/.html"},
             {"ms-its:help.chm::/", "ms-its:help.chm::/.html"},
             {"ms-its:a::/b::/c", "ms-its:::/.html"},
             {"MS-ITS:help.chm::/a.htm", "ms-its:::/.html"},
             {"ms-its:  ::/a", "ms-its:  ::/a.html"},
             {"ms-help://NS/ID", "ms-help:////.html"},
             {"ms-help://NS/ID/sub/topic", "ms-help:////.html"},
             {"ms-help://NS/ /topic", "ms-help://NS/ /topic.html"}}) {
        mPanel->HelpTopicLinkDesigner->SethRef(written);
        EXPECT_FALSE(mPanel->Validate()) << written;
        EXPECT_NE(TakeMessages(), "") << written;
        EXPECT_EQ(mPanel->GetLinkhRef(), read);
        EXPECT_EQ(Pages(), "conAnotherHelpFile ");
    }
}

TEST_F(LinkBuilderTest, TestHandsOnAnAddressExactlyAsItWasTyped) {
    Initialize();
    Choose("interneturl");
    const std::string longAddress = "http://" + std::string(100'000, 'u');
    for (const std::string& url :
         {std::string("javascript:alert(1)"), std::string("http://a\x01\n\tb"), longAddress,
          std::string("ms-its:help.chm::/a.htm")}) {
        mServices.OutsideShell->Calls.clear();
        mPanel->txtURL->UserType(url);
        mPanel->cmdTest->UserClick();
        EXPECT_EQ(mServices.OutsideShell->Calls,
                  std::vector<std::string>{"open " + url + " [] [] 1"});
        EXPECT_EQ(TakeMessages(), "");
    }
}

TEST_F(LinkBuilderTest, TestAsksAboutAnAddressWithBlanksOrControlsInItsScheme) {
    Initialize();
    Choose("interneturl");
    mServices.Messages->Answer = MessageAnswer::No;
    for (const char* url : {"", " javascript:x", "java\nscript:x", "java script:x", "\x01http://a",
                            "http ://a", "://a", "C:\\a.htm"}) {
        mPanel->txtURL->UserType(url);
        mPanel->cmdTest->UserClick();
        EXPECT_EQ(TakeMessages(), "Link test [question] This link does not appear to be a valid "
                                  "URL. Test anyway?\n")
            << url;
    }
    EXPECT_TRUE(mServices.OutsideShell->Calls.empty());
}

TEST_F(LinkBuilderTest, ValidateAsksForAMember) {
    Initialize();
    EXPECT_TRUE(mPanel->Validate());
    mMember.clear();
    EXPECT_FALSE(mPanel->Validate());
    EXPECT_EQ(TakeMessages(), " [warning] Please select a member to link to, or click Cancel\n");
    mTies.clear();
    EXPECT_FALSE(mPanel->Validate()) << "nobody tells of a member";
    EXPECT_EQ(mPanel->GetLinkhRef(), "") << "a Paperkite link has no extension";
}

TEST_F(LinkBuilderTest, ValidateAsksForAURL) {
    Initialize();
    Choose("interneturl");
    EXPECT_TRUE(mPanel->Validate()) << "what it begins with will do";
    for (const char* url : {"", "   "}) {
        mPanel->txtURL->UserType(url);
        EXPECT_FALSE(mPanel->Validate());
        EXPECT_EQ(TakeMessages(), " [warning] Please provide a URL to link to, or click Cancel\n");
    }
    EXPECT_EQ(Pages(), "conInternetURL ");
}

TEST_F(LinkBuilderTest, ValidateLeavesTheDesignersToTellWhatTheyLack) {
    Initialize();
    Choose("anotheritem");
    EXPECT_FALSE(mPanel->Validate());
    EXPECT_EQ(TakeMessages(), " [warning] Please specify the Topic filename you wish to link to, "
                              "or click Cancel\n");
    mPanel->MemberLinkDesigner->txtTopic->UserType("zoo~Cat");
    EXPECT_TRUE(mPanel->Validate());
    Choose("anotherhelpfile");
    EXPECT_FALSE(mPanel->Validate());
    EXPECT_EQ(TakeMessages(), " [warning] You must provide a filename and topic name to create a "
                              "valid link to a HTML Help 1.x topic\n");
    mPanel->HelpTopicLinkDesigner->SethRef("ms-help://NS/ID/topic");
    EXPECT_TRUE(mPanel->Validate());
}

TEST_F(LinkBuilderTest, ProfileAndFormatReachTheDesigners) {
    mPanel->SetNamespaceProfile("kite.db");
    mPanel->SetDotNetXMLFormat(true);
    EXPECT_EQ(mPanel->GetNamespaceProfile(), "kite.db");
    EXPECT_TRUE(mPanel->GetDotNetXMLFormat());
    EXPECT_EQ(mPanel->MemberLinkDesigner->NamespaceProfile, "kite.db");
    EXPECT_TRUE(mPanel->MemberLinkDesigner->DotNetXMLFormat);
    EXPECT_TRUE(mPanel->HelpTopicLinkDesigner->DotNetXMLFormat);
}

TEST_F(LinkBuilderTest, TestOpensAnAddress) {
    Initialize();
    Choose("interneturl");
    mPanel->txtURL->UserType("http://example.org/");
    mPanel->cmdTest->UserClick();
    EXPECT_EQ(mServices.OutsideShell->Calls,
              std::vector<std::string>{"open http://example.org/ [] [] 1"});
    EXPECT_EQ(TakeMessages(), "");
}

TEST_F(LinkBuilderTest, TestAsksBeforeItOpensWhatIsNoAddress) {
    Initialize();
    Choose("interneturl");
    mPanel->txtURL->UserType("help.chm");
    EXPECT_FALSE(mPanel->IsPathAURL("help.chm"));
    mServices.Messages->Answer = MessageAnswer::No;
    mPanel->cmdTest->UserClick();
    EXPECT_EQ(TakeMessages(), "Link test [question] This link does not appear to be a valid URL. "
                              "Test anyway?\n");
    EXPECT_TRUE(mServices.OutsideShell->Calls.empty());
    mServices.Messages->Answer = MessageAnswer::Yes;
    mPanel->cmdTest->UserClick();
    EXPECT_EQ(mServices.OutsideShell->Calls, std::vector<std::string>{"open help.chm [] [] 1"});
}

TEST_F(LinkBuilderTest, TheTickIsRemembered) {
    Initialize();
    EXPECT_EQ(Kept(), "nothing");
    mPanel->chkKiteLink->UserClick();
    EXPECT_EQ(Kept(), "False");
    Remake();
    EXPECT_FALSE(mPanel->chkKiteLink->GetChecked());
    mPanel->chkKiteLink->UserClick();
    EXPECT_EQ(Kept(), "True");
    Remake();
    EXPECT_TRUE(mPanel->chkKiteLink->GetChecked());
}

TEST_F(LinkBuilderTest, OnlyTheWordFalseClearsTheTick) {
    for (const auto& [kept, ticked] : std::initializer_list<std::pair<const char*, bool>>{
             {"False", false}, {"false", true}, {"0", true}, {"", true}, {"False ", true}}) {
        mServices.Registry->Values[kTick] = kept;
        Remake();
        EXPECT_EQ(mPanel->chkKiteLink->GetChecked(), ticked) << kept;
        mPanel->chkKiteLink->SetVisible(false);
        mPanel->chkKiteLink->SetChecked(!ticked);
        mPanel->UserControl_ReadProperties(PropertyBag());
        EXPECT_EQ(mPanel->chkKiteLink->GetChecked(), ticked) << kept;
    }
}

TEST_F(LinkBuilderTest, ClearingTheTickOfAHiddenBoxIsNotRemembered) {
    Initialize({}, true, false);
    EXPECT_FALSE(mPanel->chkKiteLink->GetVisible());
    EXPECT_FALSE(mPanel->chkKiteLink->GetChecked());
    EXPECT_EQ(Kept(), "nothing");
    EXPECT_EQ(mPanel->GetLinkhRef(), "zoo~Dog~Bark.html");
}

TEST_F(LinkBuilderTest, AFormDesignerKeepsNothing) {
    mServices.Registry->Values[kTick] = "False";
    mServices.Registry->Calls.clear();
    Remake(LinkBuilder::HostMode::Design);
    EXPECT_TRUE(mPanel->chkKiteLink->GetChecked());
    mPanel->chkKiteLink->UserClick();
    mPanel->UserControl_ReadProperties(PropertyBag());
    EXPECT_FALSE(mPanel->chkKiteLink->GetChecked());
    EXPECT_TRUE(mServices.Registry->Calls.empty());
}

TEST_F(LinkBuilderTest, InitializingTwiceChangesNothingMore) {
    mPanel->Initialize(true, false, false, {}, "Tip", true, "A");
    const std::string before = Captions() + Pages() + mPanel->GetLinkCaption();
    mPanel->Initialize(true, false, false, {}, "Tip", true, "A");
    EXPECT_EQ(Captions() + Pages() + mPanel->GetLinkCaption(), before);
}

TEST_F(LinkBuilderTest, AHandlerMayChooseAnotherKindWhileAKindIsBeingShown) {
    Initialize();
    mTies.push_back(mPanel->Events.HideMemberExplorer.Connect([&] {
        if (Selected() == "anotheritem") Kind("interneturl")->SetSelected(true);
    }));
    Choose("anotheritem");
    EXPECT_EQ(Selected(), "interneturl");
    EXPECT_EQ(Pages(), "conInternetURL ");
    EXPECT_EQ(TakeMessages(), "");
}

TEST_F(LinkBuilderTest, AFailingHandlerIsReportedOnceAndThePanelGoesOn) {
    Initialize();
    mTies.push_back(mPanel->Events.GetSelectedMember.Connect(
        [](std::string&) { RaiseError(ErrorNumber::ObjectNotSet); }));
    EXPECT_FALSE(mPanel->Validate());
    EXPECT_NE(TakeMessages().find("Module: LinkBuilder\nProcedure: Validate\n"), std::string::npos);
    EXPECT_EQ(mPanel->GetLinkhRef(), "");
    EXPECT_NE(TakeMessages().find("Procedure: LinkhRef\n"), std::string::npos);
    mTies.pop_back();
    EXPECT_TRUE(mPanel->Validate());
}

TEST_F(LinkBuilderTest, WithoutSettingsItIsMadeAllTheSame) {
    CurrentServices().Registry = nullptr;
    Remake();
    EXPECT_NE(TakeMessages().find("Module: LinkBuilder\n"), std::string::npos);
    EXPECT_EQ(Pages(), "conAnotherMember ");
    mPanel->chkKiteLink->UserClick();
    EXPECT_NE(TakeMessages().find("Procedure: chkKiteLink_Click\n"), std::string::npos);
    EXPECT_EQ(mPanel->GetLinkhRef(), "zoo~Dog~Bark");
}

} // namespace
} // namespace paperkite::test
