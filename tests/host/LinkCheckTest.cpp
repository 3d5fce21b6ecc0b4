#include "host/LinkCheck.h"

#include "foundation/Text.h"
#include "host/HostTest.h"

namespace paperkite::test {

namespace {

class LinkCheckTest : public HostTest {
protected:
    LinkCheckTest() {
        mFolder.Write("zoo/keepers_namespace.h", "namespace keepers_namespace { class Feed_er {};\n"
                                                 "int operator<(int left, int right);\n"
                                                 "void Feed(int times); void Feed(char food); }\n");
        mWorkspace = std::make_unique<Workspace>(Create());
    }

    CommentStore& Store() { return *mWorkspace->GetSession().GetProject()->GetComments(); }
    LinkCheck Checking() { return LinkCheck(*mWorkspace->GetSession().GetProvider()); }
    void Load(const std::string& item, const std::string& tag, const std::string& text) {
        auto comment = MakeRef<TaggedComment>(item + tag);
        comment->SetTagIdentifier(tag);
        comment->SetText(text);
        Store().Load(item, comment, {});
    }
    void LoadLink(const std::string& address) {
        Load("zoo~animals~Dog", "##", "<a href=\"" + address + "\">x</a>");
    }
    LinkCheck::Link Judged(const std::string& address) {
        Store().Clear();
        LoadLink(address);
        const auto links = Checking().Check(Store());
        EXPECT_EQ(links.size(), 1u);
        return links.empty() ? LinkCheck::Link() : links[0];
    }

    std::unique_ptr<Workspace> mWorkspace;
};

TEST_F(LinkCheckTest, EachLinkComesWithItemTagTargetAndCaptionSortedByItem) {
    Load("zoo~animals~Dog", "##remarks",
         "<p>See <a href=\"zoo~animals~Cat.html\">the cat</a>.</p>");
    Load("zoo~animals~Dog", "##", "<a href=\"https://example.org\">outside</a>");
    Load("zoo~animals~Cat", "##", "No link.");
    Load("zoo~animals~Cat", "##remarks", "<a href=\"zoo~animals~Emu.html\">the emu</a>");
    std::string shown;
    const auto links = Checking().Check(Store());
    for (const auto& link : links)
        shown += link.Item + "|" + link.Tag + "|" + link.Name + "|" + link.Target + "|" +
                 link.Caption + "|" + link.LeadsToItem + "|" + link.Problem + "\n";
    EXPECT_EQ(shown,
              "zoo~animals~Cat|##remarks|Remarks|zoo~animals~Emu.html|the emu||There is no item "
              "\"zoo~animals~Emu\" in this project. It may have been renamed or removed: link to "
              "another item, or take the link away.\n"
              "zoo~animals~Dog|##remarks|Remarks|zoo~animals~Cat.html|the cat|zoo~animals~Cat|\n"
              "zoo~animals~Dog|##|General Description|https://example.org|outside||\n");
    EXPECT_EQ(CountNowhere(links), 1u);
    EXPECT_EQ(LinkSummary(links), "3 links, 1 of them leads nowhere.");
}

TEST_F(LinkCheckTest, APageIsKnownByItsItemWithAndWithoutALayoutSuffix) {
    for (const auto& [address, item] :
         {std::pair("zoo~animals~Dog.html", "zoo~animals~Dog"),
          std::pair("zoo~animals~Dog_allmembers.html", "zoo~animals~Dog"),
          std::pair("zoo~animals~Dog.html#Bark", "zoo~animals~Dog"),
          std::pair("pages/zoo~animals~Dog.html", "zoo~animals~Dog"),
          std::pair("file:///out/zoo~animals~Dog.html", "zoo~animals~Dog"),
          std::pair("zoo~animals~Dog~Bark", "zoo~animals~Dog~Bark"),
          std::pair("zoo~animals~Dog%7EBark.html", "zoo~animals~Dog~Bark"),
          std::pair("zoo~keepers_namespace.html", "zoo~keepers_namespace"),
          std::pair("zoo~keepers_namespace~Feed_er.html", "zoo~keepers_namespace~Feed_er"),
          std::pair("zoo~keepers_namespace~Feed_er_members.html", "zoo~keepers_namespace~Feed_er"),
          std::pair("zoo~keepers_namespace~operator%3C.html", "zoo~keepers_namespace~operator&lt;"),
          std::pair("zoo.html", "zoo")}) {
        const auto link = Judged(address);
        EXPECT_EQ(link.LeadsToItem, ReplaceAll(item, "&lt;", "<")) << address;
        EXPECT_EQ(link.Problem, "") << address;
    }
}

TEST_F(LinkCheckTest, AnItemThatIsGoneIsNamed) {
    for (const auto& [address, name] :
         {std::pair("zoo~animals~Emu.html", "zoo~animals~Emu"),
          std::pair("zoo~animals~Emu", "zoo~animals~Emu"),
          std::pair("zoo~Animals~Dog.html", "zoo~Animals~Dog"),
          std::pair("zoo~dogs_namespace.html", "zoo~dogs_namespace"),
          std::pair("std::map", "std::map"), std::pair(".html", "")}) {
        const auto link = Judged(address);
        EXPECT_TRUE(link.LeadsNowhere()) << address;
        EXPECT_EQ(link.Problem.find("There is no item \"" + std::string(name) + "\""), 0u)
            << link.Problem;
    }
}

TEST_F(LinkCheckTest, FilesAreLookedForBesideTheProject) {
    mFolder.Write("pictures/a dog.png", "png");
    for (const std::string& address :
         {std::string("pictures/a%20dog.png"), std::string("pictures/a dog.png#x"),
          std::string("./pictures"), "file://" + (mFolder / "pictures/a%20dog.png")})
        EXPECT_EQ(Judged(address).LeadsTo, LinkCheck::Goal::File) << address;
    EXPECT_EQ(
        Judged("pictures/cat.png").Problem,
        "There is no file \"pictures/cat.png\" beside the project file. Put it there, or link "
        "to another one.");
    EXPECT_TRUE(Judged("pictures/cat%00.png").LeadsNowhere());
    EXPECT_TRUE(Judged("file:///none/cat.png").LeadsNowhere());
}

TEST_F(LinkCheckTest, ABareNameIsAnItemOnlyAsTheWholeAddress) {
    EXPECT_EQ(Judged("zoo").LeadsToItem, "zoo");
    EXPECT_EQ(Judged("pictures/zoo").LeadsTo, LinkCheck::Goal::Nowhere);
    EXPECT_EQ(Judged("../zoo~animals~Dog").LeadsTo, LinkCheck::Goal::Nowhere);
    mFolder.Write("hs/zoo/dog.png", "png");
    EXPECT_EQ(Judged("hs/zoo").LeadsTo, LinkCheck::Goal::File);
    EXPECT_EQ(Judged("hs/zoo").LeadsToItem, "");
}

TEST_F(LinkCheckTest, AnAddressOutsideWithoutItsSchemeIsToldWhatItLacks) {
    for (const char* address : {"www.example.org", "WWW.example.org/a.b#c"})
        EXPECT_NE(Judged(address).Problem.find("write \"https://\" before it"), std::string::npos)
            << Judged(address).Problem;
    EXPECT_EQ(Judged("awww.png").Problem.find("https"), std::string::npos);
}

TEST_F(LinkCheckTest, NamesAloneInSeeAlsoCommentsAreLinks) {
    Load("zoo~animals~Dog", "##seealso", " zoo~animals~Cat\n");
    Load("zoo~animals~Cat", "##SeeAlso", "zoo~animals~Emu");
    Load("zoo~animals~Cat~Purr", "##seealso", "About ~5 animals and the zoo~s");
    Load("zoo~animals~Dog~Bark", "##remarks", "zoo~animals~Emu");
    Load("zoo~animals~Dog~Age", "##seealso", "~");
    const auto links = Checking().Check(Store());
    ASSERT_EQ(links.size(), 2u);
    EXPECT_EQ(links[0].Target, "zoo~animals~Emu");
    EXPECT_EQ(links[0].Problem.find("There is no item \"zoo~animals~Emu\" in this project."), 0u);
    EXPECT_EQ(links[1].LeadsToItem, "zoo~animals~Cat");
    EXPECT_EQ(links[1].Problem, "");
}

TEST_F(LinkCheckTest, WhatNamesHoldThemselvesIsNotDecoded) {
    mFolder.Write("zoo/words.h", "class Words {\npublic:\n    ~Words();\n"
                                 "    int put(const std::string& word);\n    int put(int count);\n"
                                 "    int operator/(int by);\n    int operator%(int by);\n};\n");
    mFolder.Write("zoo/set.rb", "class Herd\n  def empty?\n  end\nend\n");
    mWorkspace->GetSession().Adopt(std::move(*mWorkspace->GetSession().Scan().Code));
    for (const auto& [address, item] :
         {std::pair("zoo~Words~put(const%20std%3A%3Astring&amp;).html",
                    "zoo~Words~put(const std%3A%3Astring&)"),
          std::pair("zoo~Words~operator%2F.html", "zoo~Words~operator%2F"),
          std::pair("zoo~Words~operator%25.html", "zoo~Words~operator%25"),
          std::pair("zoo~Words~%7EWords.html", "zoo~Words~%7EWords"),
          std::pair("zoo~Words~~Words.html", "zoo~Words~%7EWords"),
          std::pair("zoo~Herd~empty%3F.html", "zoo~Herd~empty?")})
        EXPECT_EQ(Judged(address).LeadsToItem, item) << address;
}

TEST_F(LinkCheckTest, WhatIsMalformedSaysHowToMendIt) {
    EXPECT_EQ(Judged("#").LeadsTo, LinkCheck::Goal::Bookmark);
    EXPECT_EQ(Judged("ms-its:a.chm::/b.htm").LeadsTo, LinkCheck::Goal::HelpTopic);
    EXPECT_EQ(Judged("mailto:a@b.org").LeadsTo, LinkCheck::Goal::Outside);
    for (const char* address : {"", "javascript:x", "ms-its:a.chm", "MS-ITS:a.chm::/b.htm",
                                "ms-help://NS/ID", "http://", "java&#10;script:x"}) {
        EXPECT_TRUE(Judged(address).LeadsNowhere()) << address;
        EXPECT_FALSE(Judged(address).Problem.empty()) << address;
    }
}

TEST_F(LinkCheckTest, AHundredThousandCharactersDoNotFillTheProblem) {
    EXPECT_LT(Judged(std::string(100'000, 'a') + ".html").Problem.size(), 400u);
    EXPECT_LT(Judged(std::string(100'000, 'b')).Problem.size(), 400u);
}

TEST_F(LinkCheckTest, TheItemThatCommentsAreTakenFromIsALinkToo) {
    Load("zoo~animals~Dog", "##commentsfrom", "zoo~animals~Cat");
    Load("zoo~animals~Dog~Age", "##commentsfrom", "zoo~animals~Emu");
    Load("zoo~animals~Dog~Bark", "##keywords", "<a> href=\"x\"");
    const auto links = Checking().Check(Store());
    ASSERT_EQ(links.size(), 2u);
    EXPECT_EQ(links[0].LeadsToItem, "zoo~animals~Cat");
    EXPECT_EQ(links[1].Problem, "There is no item \"zoo~animals~Emu\" in this project to take "
                                "comments from. Choose another one.");
}

TEST_F(LinkCheckTest, CommentsWhoseItemIsGoneAreCheckedAndDeletedOnesAreNot) {
    Load("zoo~animals~Gone", "##", "<a href=\"zoo~animals~Cat.html\">x</a>");
    LoadLink("zoo~animals~Cat.html");
    Store().Find("zoo~animals~Dog")->Item("zoo~animals~Dog##")->SetState(kTaggedCommentTombstone);
    const auto links = Checking().Check(Store());
    ASSERT_EQ(links.size(), 1u);
    EXPECT_EQ(links[0].Item, "zoo~animals~Gone");
}

TEST_F(LinkCheckTest, TheItemOfALinkIsFoundHoweverTheLinkIsWritten) {
    for (const char* link : {"zoo~animals~Dog", "zoo~animals~Dog.html", "zoo~animals~Dog.html#age",
                             "pages/zoo~animals~Dog.html?a", "zoo~animals~Dog_allmembers.html"})
        EXPECT_EQ(Checking().ItemOfLink(link), "zoo~animals~Dog") << link;
    for (const char* link : {"", "#", "zoo~animals~Cow.html", "https://x.example/zoo~animals~Dog",
                             "ms-its:zoo~animals~Dog::/zoo~animals~Dog.html"})
        EXPECT_EQ(Checking().ItemOfLink(link), "") << link;
}

TEST_F(LinkCheckTest, ACallableWithoutItsParametersIsToldThoseThatThereAre) {
    const std::string name = "zoo~keepers_namespace~Feed";
    for (const std::string& address : {name + ".html", name, "pages/" + name + ".html#x"}) {
        const LinkCheck::Link link = Judged(address);
        EXPECT_EQ(link.MissingItem, name);
        EXPECT_EQ(link.Problem,
                  "There is no item \"" + name +
                      "\" without parameters in this project. Link to one of the 2 that take "
                      "them, such as \"" +
                      name + "(int)\".");
    }
    EXPECT_EQ(Judged(name + "(int).html").LeadsTo, LinkCheck::Goal::Item);
    EXPECT_EQ(Judged("zoo~keepers_namespace~Fee.html").Problem.find("parameters"),
              std::string::npos);
    EXPECT_EQ(Judged("zoo~animals~Dog.html").MissingItem, "");
}

TEST_F(LinkCheckTest, TextsOfTheirOwnLeadNowhereLikeScripts) {
    for (const char* link : {"data:text/html,x", "JavaScript:x()", "vbscript::x"}) {
        const LinkTarget target = LinkTarget::Of(link);
        EXPECT_EQ(target.What, LinkTarget::Kind::Malformed) << link;
        EXPECT_EQ(target.Problem, "The address is a script or a text of its own, which no page "
                                  "runs or shows. Link to a page instead.");
    }
    EXPECT_EQ(LinkTarget::Of("database.html").What, LinkTarget::Kind::File);
}

} // namespace

} // namespace paperkite::test
