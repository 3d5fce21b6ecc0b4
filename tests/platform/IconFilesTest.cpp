#include "platform/ViewTest.h"
#include "platform/qt/Icons.h"
#include "widgets/ExplorerBar.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <vector>

namespace paperkite {
namespace {

Picture IconFile(const std::string& name) {
    return {{}, PAPERKITE_SOURCE_DIR "/icons/commenttypes/" + name + ".ico", {}};
}

TEST(IconFilesTest, AFileHoldsThePictureAtThreeSizes) {
    QList<QSize> sizes = Icons::Of(IconFile("keywords")).availableSizes();
    std::sort(sizes.begin(), sizes.end(),
              [](QSize left, QSize right) { return left.width() < right.width(); });
    EXPECT_EQ(sizes, (QList<QSize>{{16, 16}, {24, 24}, {32, 32}}));
}

TEST(IconFilesTest, TheSizeIsThatOfTheScreensPixels) {
    const QIcon icon = Icons::Of(IconFile("keywords_ticked"));
    EXPECT_EQ(icon.pixmap(QSize(16, 16), 1.0).size(), QSize(16, 16));
    EXPECT_EQ(icon.pixmap(QSize(16, 16), 1.5).size(), QSize(24, 24));
    EXPECT_EQ(icon.pixmap(QSize(16, 16), 2.0).size(), QSize(32, 32));
}

double Luminance(QColor colour) {
    const auto part = [](double value) {
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) +
           0.0722 * part(colour.blueF());
}

double Contrast(QColor one, QColor other) {
    const auto [low, high] = std::minmax({Luminance(one), Luminance(other)});
    return (high + 0.05) / (low + 0.05);
}

/// The best contrast to the ground of a thirtieth of the picture's area: lines may have a soft edge
/// and a fill, but something of them has to be seen.
double ContrastOn(const QImage& image, QColor ground) {
    std::vector<double> contrasts;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            const double a = pixel.alphaF();
            const auto mixed = [a](double over, double under) {
                return over * a + under * (1 - a);
            };
            contrasts.push_back(
                Contrast(QColor::fromRgbF(float(mixed(pixel.redF(), ground.redF())),
                                          float(mixed(pixel.greenF(), ground.greenF())),
                                          float(mixed(pixel.blueF(), ground.blueF()))),
                         ground));
        }
    const auto last = contrasts.end() - std::ptrdiff_t(contrasts.size() / 30);
    std::nth_element(contrasts.begin(), last, contrasts.end());
    return *last;
}

TEST(IconFilesTest, EachIconIsSeenOnLightAndOnDarkGround) {
    int count = 0;
    for (const auto& file :
         std::filesystem::directory_iterator(PAPERKITE_SOURCE_DIR "/icons/commenttypes")) {
        if (file.path().extension() != ".ico") continue;
        ++count;
        for (const int size : {16, 24, 32}) {
            const QImage image =
                Icons::Of(IconFile(file.path().stem())).pixmap(QSize(size, size), 1.0).toImage();
            ASSERT_FALSE(image.isNull()) << file.path();
            for (const char* ground : {"#ffffff", "#eff0f1", "#202326", "#1b1e20"})
                EXPECT_GE(ContrastOn(image, QColor(ground)), 3.0)
                    << file.path().filename() << " of " << size << " on " << ground;
        }
    }
    EXPECT_GE(count, 39);
}

class IconsInTheBarTest : public ViewTest {};

TEST_F(IconsInTheBarTest, ALineShowsItsFileAndTheMarkOfUse) {
    auto bar = MakeRef<ExplorerBar>("eb");
    auto images = MakeRef<ImageList>();
    images->Add("xmlisland", IconFile("xmlisland"));
    images->Add("xmlisland_ticked", IconFile("xmlisland_ticked"));
    bar->SetImageList(images);
    auto item = bar->AddGroup("g", "Reference")->Add("##xml", "XML");
    item->SetIcon("xmlisland");
    Show(bar);
    const auto greenPixels = [this] {
        const QImage image = Picture("icons");
        int count = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                count += image.pixelColor(x, y) == QColor(0x2c, 0x9a, 0x54);
        return count;
    };
    EXPECT_EQ(greenPixels(), 0);
    item->SetIcon("xmlisland_ticked");
    QTest::qWait(10);
    EXPECT_GT(greenPixels(), 10) << "the badge";
}

} // namespace
} // namespace paperkite
