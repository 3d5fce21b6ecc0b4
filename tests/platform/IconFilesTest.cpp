#include "platform/ViewTest.h"
#include "platform/qt/Icons.h"
#include "widgets/ExplorerBar.h"

#include <gtest/gtest.h>

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
                count += image.pixelColor(x, y) == QColor(0x2e, 0x9e, 0x57);
        return count;
    };
    EXPECT_EQ(greenPixels(), 0);
    item->SetIcon("xmlisland_ticked");
    QTest::qWait(10);
    EXPECT_GT(greenPixels(), 10) << "the badge";
}

} // namespace
} // namespace paperkite
