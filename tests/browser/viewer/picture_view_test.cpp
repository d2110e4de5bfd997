#include "apps/browser/viewer/picture_view.h"
#include "tests/browser/viewer/test_pictures.h"

#include <QMouseEvent>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

namespace
{

using browser::PictureView;
using browser::SharedPicture;

SharedPicture pictureOf(const QSize &size)
{
    auto picture = std::make_shared<browser::Picture>();
    picture->levels.push_back(cornersPicture(size));
    picture->size = size;
    return picture;
}

class ShownPicture : public testing::Test
{
protected:
    ShownPicture()
    {
        view.resize(400, 300);
        view.show();
        view.setPicture(pictureOf({1600, 1200}));
    }

    void turnWheel(const QPointF &at, int eighths)
    {
        QWheelEvent event(at, view.mapToGlobal(at.toPoint()), QPoint(), QPoint(0, eighths), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&view, &event);
    }

    QString shownCorners() { return cornersOf(view.grab().toImage()); }

    PictureView view;
};

void expectNear(const QPointF &one, const QPointF &other)
{
    EXPECT_NEAR(one.x(), other.x(), 0.01);
    EXPECT_NEAR(one.y(), other.y(), 0.01);
}

TEST_F(ShownPicture, IsFittedFirst)
{
    EXPECT_TRUE(view.transform().isFitted());
    EXPECT_DOUBLE_EQ(view.transform().zoom(), 0.25);
    EXPECT_EQ(shownCorners().toStdString(), "RGBW");
    view.resize(200, 300);
    EXPECT_DOUBLE_EQ(view.transform().zoom(), 0.125);
}

TEST_F(ShownPicture, IsNeverMadeCoarseByFitting)
{
    view.setPicture(pictureOf({100, 50}));
    EXPECT_DOUBLE_EQ(view.transform().zoom(), 1);
    EXPECT_EQ(view.transform().pictureInView(), QRectF(150, 125, 100, 50));
}

TEST_F(ShownPicture, KeepsThePointUnderThePointerWhenZoomed)
{
    const QPointF pointer(130, 110);
    view.showActualSize();
    for (const int eighths : {120, 240, -120, 15, -60}) {
        const QPointF before = view.transform().toPicture(pointer);
        const double zoom = view.transform().zoom();
        turnWheel(pointer, eighths);
        EXPECT_NE(view.transform().zoom(), zoom);
        expectNear(view.transform().toPicture(pointer), before);
    }
}

TEST_F(ShownPicture, HasLimitsOfZoom)
{
    turnWheel({200, 150}, 120 * 100);
    EXPECT_DOUBLE_EQ(view.transform().zoom(), browser::ViewTransform::largestZoom);
    turnWheel({200, 150}, -120 * 200);
    EXPECT_DOUBLE_EQ(view.transform().zoom(), view.transform().smallestZoom());
    EXPECT_EQ(view.transform().pictureInView().center(), QPointF(200, 150));
}

TEST_F(ShownPicture, FollowsTheMouseAndStopsAtItsEdge)
{
    view.showActualSize();
    const QPointF before = view.transform().toPicture({0, 0});
    QTest::mousePress(&view, Qt::LeftButton, Qt::NoModifier, {200, 150});
    QMouseEvent move(QEvent::MouseMove, {230, 140}, Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&view, &move);
    QTest::mouseRelease(&view, Qt::LeftButton, Qt::NoModifier, {230, 140});
    expectNear(view.transform().toPicture({0, 0}), before - QPointF(30, -10));
    view.pan(-100, -100);
    expectNear(view.transform().toPicture({0, 0}), {0, 0});
    EXPECT_EQ(view.grab().toImage().pixelColor(200, 150), QColor(Qt::red));
    view.pan(100, 100);
    expectNear(view.transform().toPicture({400, 300}), {1600, 1200});
    EXPECT_EQ(view.grab().toImage().pixelColor(200, 150), QColor(Qt::white));
}

TEST_F(ShownPicture, GoesToItsOwnPixelsAndBackByDoubleClick)
{
    QTest::mouseDClick(&view, Qt::LeftButton, Qt::NoModifier, {100, 75});
    EXPECT_DOUBLE_EQ(view.transform().zoom(), 1);
    expectNear(view.transform().toPicture({100, 75}), {400, 300});
    QTest::mouseDClick(&view, Qt::LeftButton, Qt::NoModifier, {100, 75});
    EXPECT_TRUE(view.transform().isFitted());
}

TEST_F(ShownPicture, KeepsZoomAndPlaceOfItsPlaceholder)
{
    view.setPlaceholder(cornersPicture({80, 60}), {1600, 1200});
    EXPECT_EQ(shownCorners().toStdString(), "RGBW");
    view.showActualSize();
    const QPointF corner = view.transform().toPicture({0, 0});
    view.setPicture(pictureOf({1600, 1200}));
    EXPECT_DOUBLE_EQ(view.transform().zoom(), 1);
    expectNear(view.transform().toPicture({0, 0}), corner);
    view.setPlaceholder(cornersPicture({80, 60}), {1600, 1200});
    view.showActualSize();
    view.setPicture(pictureOf({800, 600}));
    EXPECT_TRUE(view.transform().isFitted());
}

TEST_F(ShownPicture, IsNotStretchedLikeItsPlaceholderThatWasCutSquare)
{
    view.setPlaceholder(cornersPicture({60, 60}), {1600, 1200});
    EXPECT_EQ(view.transform().pictureSize(), QSize(1200, 1200));
    view.setPlaceholder(cornersPicture({79, 60}), {1600, 1200});
    EXPECT_EQ(view.transform().pictureSize(), QSize(1600, 1200)) << "a pixel was rounded";
}

TEST_F(ShownPicture, MovesWhenItIsAnAnimation)
{
    auto picture = std::make_shared<browser::Picture>();
    picture->frames = {{cornersPicture(), 20}, {cornersPicture().mirrored(true, false), 20}};
    picture->size = {400, 300};
    view.setPicture(picture);
    for (const char *corners : {"GRWB", "RGBW"})
        EXPECT_TRUE(QTest::qWaitFor([&] { return shownCorners() == QLatin1String(corners); }, 30'000)) << corners;
}

TEST(ViewTransform, CountsPixelsOfTheScreen)
{
    browser::ViewTransform transform;
    transform.setViewSize({400, 300}, 2);
    transform.setPictureSize({1600, 1200});
    EXPECT_DOUBLE_EQ(transform.zoom(), 0.5);
    transform.setZoom(1, {200, 150});
    EXPECT_EQ(transform.pictureInView().size(), QSizeF(800, 600));
}

TEST(ViewTransform, WithoutAPictureIsHarmless)
{
    browser::ViewTransform transform;
    transform.setViewSize({0, 0}, 1);
    transform.setZoom(3, {5, 5});
    transform.moveBy({10, 10});
    EXPECT_FALSE(transform.isLargerThanView());
}

} // namespace
