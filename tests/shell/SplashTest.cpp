#include "platform/Events.h"
#include "shell/SplashPicture.h"
#include "shell/frmStartSplash.h"
#include "tests/shell/FreshAccount.h"

#include <QLabel>
#include <QTest>

namespace vistor {
namespace {

/// A picture of one letter for each pixel: "." is green, "x" is red, "k" is black.
QImage drawn(const QStringList& rows) {
    QImage image(int(rows[0].size()), int(rows.size()), QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QChar letter = rows[y][x];
            image.setPixel(x, y, letter == u'.' ? 0xFF00FF00 : letter == u'x' ? 0xFFFF0000 : 0xFF000000);
        }
    }
    return image;
}

TEST(SplashPicture, RunsOfARowBecomeRectangles) {
    const QImage image = drawn({"..xx.x", "......", "xxxxxx", "x....x"});
    const std::vector<QRect> expected = {
        {2, 0, 2, 1}, {5, 0, 1, 1}, {0, 2, 6, 1}, {0, 3, 1, 1}, {5, 3, 1, 1}};
    EXPECT_EQ(opaqueRuns(image, 0xFF00FF00), expected);
    EXPECT_EQ(opaqueRuns(drawn({"xx", "xx"}), 0xFF00FF00).size(), 2U);
    EXPECT_TRUE(opaqueRuns(drawn({".."}), 0xFF00FF00).empty());
}

TEST(SplashPicture, TheCornersColourIsTransparentUnlessOneIsGiven) {
    const QImage image = drawn({"..xk"});
    struct Case {
        std::int32_t given;
        std::int32_t seen;
        QRegion region;
    };
    const Case cases[] = {{0, 0x0000FF00, QRect(2, 0, 2, 1)},
                          {-1, 0x0000FF00, QRect(2, 0, 2, 1)},
                          {0x000000FF, 0x000000FF, QRegion(0, 0, 2, 1) + QRect(3, 0, 1, 1)}};
    for (const Case& c : cases) {
        std::int32_t colour = c.given;
        EXPECT_EQ(fRegionFromBitmap(image, colour), c.region);
        EXPECT_EQ(colour, c.seen);
    }
    std::int32_t colour = 0;
    EXPECT_TRUE(fRegionFromBitmap(QImage(), colour).isEmpty());
}

class SplashTest : public FreshAccount {};

TEST_F(SplashTest, WithoutAPictureItShowsItsOwnShapeAndAPressClosesIt) {
    frmStartSplash splash;
    EXPECT_EQ(splash.size(), splashPicture(1).size());
    EXPECT_FALSE(splash.mask().contains(QPoint(0, 0)));
    EXPECT_FALSE(splash.mask().contains(QPoint(splash.width() - 1, 10)));
    EXPECT_TRUE(splash.mask().contains(QPoint(150, 150)));
    EXPECT_TRUE(splash.mask().contains(QPoint(splash.width() - 30, 150)));
    splash.show();
    QTest::mouseClick(splash.picSkin, Qt::LeftButton);
    EXPECT_FALSE(splash.isVisible());
}

TEST_F(SplashTest, APictureBesideTheProgramTakesItsPlace) {
    const QString path = root.filePath("build/program/Splash.jpg");
    QImage picture(120, 80, QImage::Format_RGB32);
    picture.fill(Qt::white);
    ASSERT_TRUE(picture.save(path, "JPG", 100));
    EXPECT_EQ(frmStartSplash().size(), QSize(120, 80));
    write(path, "no picture");
    EXPECT_EQ(frmStartSplash().size(), splashPicture(1).size());
}

} // namespace
} // namespace vistor
