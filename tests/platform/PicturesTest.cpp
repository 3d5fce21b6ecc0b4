#include "platform/SampleControls.h"
#include "platform/ViewTest.h"
#include "platform/qt/PropertiesListView.h"
#include "widgets/frmFilterProperties.h"

#include <QAbstractButton>
#include <QLabel>

namespace paperkite {
namespace {

// Each window is drawn light, dark and with large text; set PAPERKITE_PICTURES to a folder to keep
// the pictures.
class PicturesTest : public ViewTest, public testing::WithParamInterface<const char*> {
protected:
    void Prepare() {
        const QString look = GetParam();
        mTheme.SetScheme(look == "dark" ? ColourScheme::Dark : ColourScheme::Light);
        mTheme.SetTextScale(look == "large" ? 200 : 100);
    }

    QString Name(const char* window) { return QStringLiteral("%1-%2").arg(window, GetParam()); }

    /// Colours that come up often enough to be seen.
    static int ColoursIn(const QImage& image) {
        QHash<QRgb, int> counts;
        for (int y = 0; y < image.height(); y += 2)
            for (int x = 0; x < image.width(); x += 2)
                ++counts[image.pixel(x, y)];
        return static_cast<int>(
            std::count_if(counts.begin(), counts.end(), [](int count) { return count > 20; }));
    }

    void ExpectNoClippedButton() {
        for (auto* button : mWindow->findChildren<QAbstractButton*>()) {
            if (!button->isVisible() || button->text().isEmpty()) continue;
            EXPECT_GE(button->width() + 1, button->fontMetrics().horizontalAdvance(button->text()))
                << button->text().toStdString();
            EXPECT_GE(button->height(), button->fontMetrics().height())
                << button->text().toStdString();
        }
    }
};

TEST_P(PicturesTest, TheAuthoringWindowIsDrawn) {
    Prepare();
    const bool large = mTheme.GetTextScale() > 100;
    Show(SampleWindow(), large ? QSize(1800, 1100) : QSize(1280, 760));
    const QImage image = Picture(Name("window"));
    const QColor base = QApplication::palette().color(QPalette::Base);
    EXPECT_EQ(base.lightness() < 128, mTheme.IsDark());
    EXPECT_GT(ColoursIn(image), 8);
    EXPECT_EQ(QColor(image.pixel(image.width() - 40, image.height() - 150)), base);
}

TEST_P(PicturesTest, AnEditInPlaceIsDrawnOverItsRow) {
    Prepare();
    auto list = SampleList();
    auto* view = Show<PropertiesListView>(list, QSize(900, 480));
    list->SetSelectedItem(list->Item("t1"));
    const QImage before = Picture(Name("list"));
    list->BeginEdit();
    const QImage during = Picture(Name("editing"));
    ASSERT_TRUE(view->GetTable().GetEditor());
    EXPECT_GE(view->GetTable().GetEditor()->height(), 2 * view->fontMetrics().height());
    EXPECT_NE(before, during);
}

TEST_P(PicturesTest, ADialogIsDrawnWithoutAClippedWord) {
    Prepare();
    auto form = MakeRef<frmFilterProperties>();
    form->SetVisible(true);
    auto* view = Show(form, QSize(100, 100));
    const QSize hint = view->sizeHint();
    mWindow->resize(hint);
    view->resize(hint);
    EXPECT_GT(ColoursIn(Picture(Name("dialog"))), 3);
    ExpectNoClippedButton();
    for (auto* label : mWindow->findChildren<QLabel*>()) {
        if (!label->isVisible() || label->wordWrap()) continue;
        EXPECT_GE(label->width(), label->sizeHint().width()) << label->text().toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(Looks, PicturesTest, testing::Values("light", "dark", "large"),
                         [](const auto& look) { return std::string(look.param); });

} // namespace
} // namespace paperkite
