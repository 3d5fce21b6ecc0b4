#include "platform/qt/ColourViews.h"

#include "platform/ViewTest.h"
#include "platform/qt/FormView.h"
#include "widgets/HeaderBar.h"
#include "widgets/WebColours.h"
#include "widgets/frmBrowseHTMLColor.h"

#include <QComboBox>
#include <QLineEdit>

#include <cmath>

namespace paperkite {
namespace {

class ColourViewsTest : public ViewTest {
protected:
    /// A point of the view where that colour is painted; where it is in the middle of a cell.
    static QPoint FindColour(QWidget& view, std::int32_t colour) {
        const QImage image = view.grab().toImage();
        const QRgb wanted = ToQColor(colour).rgb();
        for (int y = 2; y < image.height() - 2; ++y)
            for (int x = 2; x < image.width() - 2; ++x)
                if (image.pixel(x, y) == wanted && image.pixel(x + 2, y + 2) == wanted)
                    return QPoint(x + 2, y + 2);
        return QPoint(-1, -1);
    }
};

TEST_F(ColourViewsTest, AllButTwoNamesMeanWhatTheyMeanElsewhere) {
    std::string others;
    for (const auto& named : WebColours::NamedColours()) {
        const QColor known(QString::fromStdString(named.Text).remove(' ').toLower());
        if (!known.isValid() || known != ToQColor(named.Color)) others += named.Text + ";";
    }
    EXPECT_EQ(others, "Alice Blue;Blanche Diamond;");
    EXPECT_EQ(WebColours::NamedColours().size(), 136u);
}

TEST_F(ColourViewsTest, AClickOnACellChoosesItsColour) {
    auto hexagon = MakeRef<ColourHexagon>();
    auto* view = Show(hexagon, QSize(360, 360));
    for (const std::size_t cell : {0u, 30u, 80u, 126u, 133u}) {
        const std::int32_t colour = hexagon->GetCells()[cell].Color;
        QTest::mouseClick(view, Qt::LeftButton, {}, FindColour(*view, colour));
        EXPECT_EQ(hexagon->GetColor(), colour) << cell;
        EXPECT_EQ(hexagon->GetCurrentCell(), static_cast<int>(cell));
    }
    QTest::mouseClick(view, Qt::LeftButton, {}, QPoint(1, 1));
    EXPECT_EQ(hexagon->GetCurrentCell(), 133);
}

TEST_F(ColourViewsTest, TheArrowsMoveAndADoubleClickTakes) {
    auto hexagon = MakeRef<ColourHexagon>();
    auto* view = Show(hexagon, QSize(360, 360));
    view->setFocus();
    hexagon->UserClick(60);
    QTest::keyClick(view, Qt::Key_Right);
    EXPECT_EQ(hexagon->GetCurrentCell(), 61);
    int taken = 0;
    auto tie = hexagon->Events.DblClick.Connect([&] { ++taken; });
    const std::int32_t colour = hexagon->GetCells()[20].Color;
    QTest::mouseDClick(view, Qt::LeftButton, {}, FindColour(*view, colour));
    EXPECT_EQ(taken, 1);
    EXPECT_EQ(hexagon->GetColor(), colour);
    EXPECT_EQ(view->accessibleDescription().toStdString(), WebColours::Text(colour));
}

TEST_F(ColourViewsTest, TheDialogShowsWhatIsTyped) {
    frmBrowseHTMLColor form;
    form.SetRunner([](Form&, FormMode) {});
    form.Show(FormMode::Modal);
    FormView view(mFactory, form, nullptr);
    view.show();
    auto* box = view.findChild<QComboBox*>();
    ASSERT_TRUE(box);
    EXPECT_EQ(box->count(), 136);
    EXPECT_EQ(box->itemData(1, Qt::ToolTipRole), "#FAEBD7\n250,235,215");
    EXPECT_FALSE(box->itemIcon(1).isNull());
    box->lineEdit()->selectAll();
    QTest::keyClicks(box->lineEdit(), "#102030");
    EXPECT_EQ(form.GetSelectedColor(), WebColours::FromComponents({16, 32, 48}));
    EXPECT_EQ(form.swaPreview->GetColor(), form.GetSelectedColor());
    QTest::keyClick(box->lineEdit(), Qt::Key_Return);
    EXPECT_FALSE(form.GetVisible());
    EXPECT_FALSE(form.GetCancelled());
}

TEST_F(ColourViewsTest, TheBarLightsUpUnderThePointer) {
    auto bar = MakeRef<HeaderBar>("hdrElements");
    bar->SetText("Some elements in this document cannot be edited in this view");
    bar->SetHotTracking(true);
    auto* view = Show(bar, QSize(500, 28));
    EXPECT_EQ(bar->GetHeight(), 28);
    EXPECT_EQ(view->accessibleName().toStdString(), bar->GetText());
    const QColor before(view->grab().toImage().pixel(495, 14));
    int clicks = 0;
    int x = 0;
    auto click = bar->Events.Click.Connect([&] { ++clicks; });
    auto down = bar->Events.MouseDown.Connect([&](int, int, int at, int) { x = at; });
    QTest::mouseMove(view, QPoint(250, 14));
    QTest::mouseClick(view, Qt::LeftButton, {}, QPoint(251, 14));
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(x, 251);
    EXPECT_TRUE(bar->GetHot());
    const QColor lit(view->grab().toImage().pixel(495, 14));
    EXPECT_EQ(lit, QApplication::palette().color(QPalette::Highlight));
    EXPECT_NE(lit, before);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(view, &leave);
    EXPECT_FALSE(bar->GetHot());
    EXPECT_EQ(QColor(view->grab().toImage().pixel(495, 14)), before);
}

} // namespace
} // namespace paperkite
