#include "support/PageClick.h"
#include "web/SurfaceTest.h"

#include <QClipboard>
#include <QFile>
#include <QMimeData>
#include <QTcpServer>
#include <QTemporaryDir>

#include <csignal>

namespace paperkite::test {
namespace {

class SafetyTest : public SurfaceTest {
protected:
    /// What becomes of pasted HTML behind the letter "a".
    std::string Pasted(const QString& html, const QString& text = {}) {
        auto* data = new QMimeData;
        if (!html.isEmpty()) data->setHtml(html);
        if (!text.isEmpty()) data->setText(text);
        QApplication::clipboard()->setMimeData(data);
        Load({"a"});
        Focus();
        mLog.Last.clear();
        mSurface->Run("paste", {});
        EXPECT_TRUE(WaitUntil([&] { return !Settled().empty(); })) << html.toStdString();
        return mLog.Last;
    }
    /// Whether the page draws this colour anywhere.
    bool Shows(const QColor& colour) {
        const QImage image = mWindow.grab().toImage();
        for (int x = 0; x < image.width(); x += 4)
            for (int y = 0; y < image.height(); y += 4)
                if (image.pixelColor(x, y) == colour) return true;
        return false;
    }
    static void Write(const QString& path, const QColor& colour) {
        QImage image(80, 80, QImage::Format_RGB32);
        image.fill(colour);
        ASSERT_TRUE(image.save(path)) << path.toStdString();
    }
};

TEST_F(SafetyTest, NothingOfAPageRuns) {
    const QString hostile = "document.body.innerHTML = '';"
                            "document.getElementById('p0').textContent = 'ran';";
    WebPage page;
    page.Html = "<html><head><script>" + hostile + "</script></head><body onload=\"" + hostile +
                "\"><div id=\"p0\" contenteditable=\"true\"></div><script>" + hostile +
                "</script><img src=\"none.png\" onerror=\"" + hostile +
                "\"><iframe srcdoc=\"<script>parent.document.body.innerHTML=''</script>\">"
                "</iframe><svg onload=\"" +
                hostile + "\"></svg></body></html>";
    page.Places = QStringList{"safe<img src=\"none.png\" onerror=\"" + hostile +
                              "\"><a href=\"javascript:" + hostile + "\">x</a>"};
    Load(page);
    Focus();
    Type("!");
    EXPECT_TRUE(WaitUntil([&] { return Settled().starts_with("safe"); })) << mLog.Last;
    EXPECT_NE(mLog.Last.find("javascript:"), std::string::npos) << "it is kept, and does not run";
}

TEST_F(SafetyTest, FilesAreReadBelowTheNamedFoldersOnly) {
    QTemporaryDir open, closed;
    Write(open.filePath("red.png"), Qt::red);
    Write(open.filePath("green.png"), Qt::green);
    Write(closed.filePath("red.png"), Qt::red);
    QFile::link(closed.filePath("red.png"), open.filePath("link.png"));
    const auto shows = [&](const QString& source) {
        WebPage page;
        page.BaseUrl = QUrl::fromLocalFile(open.path() + '/').toString();
        page.Html = "<html><head></head><body><img src=\"" + source +
                    "\"><img src=\"green.png\"></body></html>";
        Load({"nothing"});
        EXPECT_TRUE(WaitUntil([&] { return !Shows(Qt::green); }));
        Load(page);
        EXPECT_TRUE(WaitUntil([&] { return Shows(Qt::green); })) << "what comes behind it is there";
        return Shows(Qt::red);
    };
    EXPECT_TRUE(shows("red.png"));
    EXPECT_FALSE(shows(QUrl::fromLocalFile(closed.filePath("red.png")).toString()));
    EXPECT_FALSE(shows("link.png")) << "a link leads out of the folder";
}

TEST_F(SafetyTest, NothingGoesOverTheNetwork) {
    QTcpServer server;
    int visits = 0;
    QObject::connect(&server, &QTcpServer::newConnection, &server, [&] { ++visits; });
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    const QString there = QStringLiteral("http://127.0.0.1:%1/").arg(server.serverPort());
    WebPage page;
    page.Html = "<html><head><link rel=\"preconnect\" href=\"" + there +
                "\"><link rel=\"prefetch\" href=\"" + there +
                "a\"><link rel=\"stylesheet\" href=\"" + there +
                "s.css\"><meta http-equiv=\"refresh\" content=\"0;url=" + there +
                "\"><style>body { background: url('" + there +
                "b.png'); }</style></head><body>"
                "<img src=\"" +
                there + "i.png\"><iframe src=\"" + there +
                "\"></iframe>"
                "<object data=\"" +
                there + "\"></object><video src=\"" + there +
                "v\"></video>"
                "<div contenteditable=\"true\"></div></body></html>";
    page.Places = QStringList{"x<img src=\"" + there + "p.png\"><link rel=\"preconnect\" href=\"" +
                              there + "\">"};
    Load(page);
    Focus();
    Type("y");
    EXPECT_TRUE(WaitUntil([&] { return Settled().find("y") != std::string::npos; })) << mLog.Last;
    Load({"the next page"});
    EXPECT_EQ(visits, 0);
}

TEST_F(SafetyTest, LinksAreReportedAndThePageStays) {
    Load({"place"}, "<a id=\"l\" href=\"other.html#here\" style=\"display:block;height:100px;"
                    "width:600px;position:absolute;top:0;left:0\">go</a>");
    EXPECT_TRUE(
        ClickUntil(mSurface->InputWidget(), QPoint(50, 50), [&] { return !mLog.Links.empty(); }));
    EXPECT_EQ(mLog.Links, "other.html#here;");
    Focus();
    Type("!");
    EXPECT_TRUE(WaitUntil([&] { return Settled() == "place!"; })) << mLog.Last;
}

TEST_F(SafetyTest, PastedTextKeepsWhatACommentCanSay) {
    EXPECT_EQ(Pasted("<p class=\"x\" style=\"color:red\">One <b>b</b> <i onclick=\"x()\">i</i> "
                     "<code>c</code></p><script>alert(1)</script>"),
              "aOne <b>b</b> <i>i</i> <code>c</code>")
        << "the first line goes on where the caret was";
    EXPECT_EQ(Pasted("<a href=\"javascript:alert(1)\">bad</a><a href=\"http://h/\">good</a>"),
              "abad<a href=\"http://h/\">good</a>");
    EXPECT_EQ(Pasted("<b style=\"font-weight:normal\" id=\"docs-internal-guid-1\">"
                     "<span style=\"font-weight:700;font-family:Arial\">bold</span></b>"),
              "a<b>bold</b>");
}

TEST_F(SafetyTest, PlainTextIsPastedAsText) {
    EXPECT_EQ(Pasted({}, "<b>x & y"), "a&lt;b&gt;x &amp; y");
}

TEST_F(SafetyTest, PictureDataIsRefusedWithAWord) {
    auto* data = new QMimeData;
    QImage image(4, 4, QImage::Format_RGB32);
    image.fill(Qt::red);
    data->setImageData(image);
    QApplication::clipboard()->setMimeData(data);
    Load({"a"});
    Focus();
    mSurface->Run("paste", {});
    EXPECT_TRUE(WaitUntil([&] { return mLog.Pictures == 1; }));
    EXPECT_EQ(Settled(), "");
}

TEST_F(SafetyTest, ALongPageLoads) {
    const QString word = QStringLiteral("word ").repeated(600000);
    Load({"x"}, "<p>" + word + "</p>");
    Focus();
    Type("y");
    EXPECT_TRUE(WaitUntil([&] { return Settled() == "xy"; })) << mLog.Last;
}

TEST_F(SafetyTest, AKilledEngineIsTold) {
    Load({"x"});
    Focus();
    Type("y");
    ASSERT_TRUE(WaitUntil([&] { return mLog.Last == "xy"; }));
    ASSERT_GT(mSurface->ProcessNumber(), 0);
    ::kill(static_cast<pid_t>(mSurface->ProcessNumber()), SIGKILL);
    EXPECT_TRUE(WaitUntil([&] { return mLog.Losses == 1; }));
    EXPECT_TRUE(mSurface->Flush().isEmpty());
    Load({"xy"});
    Focus();
    Type("z");
    EXPECT_TRUE(WaitUntil([&] { return Settled() == "xyz"; })) << mLog.Last;
}

} // namespace
} // namespace paperkite::test
