// Zoom and pan of a picture: what stays where it is, the limits, and the way back.
#include "preview/picture_view.h"

#include <gtest/gtest.h>

#include "preview/section_preview.h"

namespace corvane {
namespace {

// 400 by 200 units that show y from -10 to 10 m and z from 0 to 10 m: 20 units for each metre.
struct PictureViewTest : testing::Test {
    Picture picture;

    PictureViewTest() {
        picture.width = 400;
        picture.height = 200;
        Fit();
    }
    ~PictureViewTest() override = default;

    // What a drawing does: the fit, and then the view.
    void Fit() {
        picture.scaleLeft = -10;
        picture.scaleTop = 10;
        picture.scaleWidth = 20;
        picture.scaleHeight = -10;
        ApplyView(picture);
    }
    void Zoom(double factor, double x, double y) {
        ZoomView(picture, factor, x, y);
        Fit();
    }
    void Move(double right, double down) {
        MoveView(picture, right, down);
        Fit();
    }
    void ExpectFrame(float left, float top, float width) const {
        EXPECT_NEAR(picture.scaleLeft, left, 1e-4);
        EXPECT_NEAR(picture.scaleTop, top, 1e-4);
        EXPECT_NEAR(picture.scaleWidth, width, 1e-4);
        EXPECT_NEAR(picture.scaleHeight, -width / 2, 1e-4) << "undistorted";
    }
};

TEST_F(PictureViewTest, FittedPictureIsAsItWasFitted) {
    ExpectFrame(-10, 10, 20);
    EXPECT_EQ(picture.view.fittedUnitsPerMetre, 20);
}

TEST_F(PictureViewTest, PlaceUnderThePointerStaysThere) {
    for (const auto& [x, y] : {std::pair(0.25, 0.75), std::pair(0.0, 0.0), std::pair(1.0, 0.1)}) {
        const double yBefore = YAt(picture, x);
        const double zBefore = ZAt(picture, y);
        Zoom(2, x, y);
        EXPECT_NEAR(YAt(picture, x), yBefore, 1e-4);
        EXPECT_NEAR(ZAt(picture, y), zBefore, 1e-4);
        Zoom(1 / 1.7, x, y);
        EXPECT_NEAR(YAt(picture, x), yBefore, 1e-4);
        EXPECT_NEAR(ZAt(picture, y), zBefore, 1e-4);
    }
}

TEST_F(PictureViewTest, ZoomAroundTheMiddleShowsTheMiddle) {
    Zoom(4, 0.5, 0.5);
    ExpectFrame(-2.5F, 6.25F, 5);
}

TEST_F(PictureViewTest, MovingGoesWithTheMouse) {
    Move(0.5, 0);
    ExpectFrame(-20, 10, 20);
    Move(-0.5, 0.1);
    ExpectFrame(-10, 11, 20);
}

TEST_F(PictureViewTest, MovingAtALargeScaleMovesLess) {
    Zoom(4, 0.5, 0.5);
    Move(0.5, 0);
    ExpectFrame(-5, 6.25F, 5);
}

TEST_F(PictureViewTest, ZoomToTheLimitAndBackIsTheFirstScale) {
    for (int i = 0; i < 100; ++i) Zoom(1.2, 0.5, 0.5);
    EXPECT_NEAR(picture.view.unitsPerMetre, 20 * kMostZoom, 1);
    Zoom(1e6, 0.3, 0.3);
    EXPECT_NEAR(picture.view.unitsPerMetre, 20 * kMostZoom, 1);
    Zoom(1e-7, 0.5, 0.5);
    EXPECT_NEAR(picture.view.unitsPerMetre, 20 * kLeastZoom, 1e-9);
    Zoom(1 / kLeastZoom, 0.5, 0.5);
    ExpectFrame(-10, 10, 20);
}

TEST_F(PictureViewTest, MillionTimesAndBackIsTheFirstPicture) {
    constexpr int kSteps = 76;
    const Picture first = picture;
    const auto expectSamePlace = [&](double yWanted, double zWanted) {
        // Of a unit, which is less than a pixel.
        EXPECT_NEAR((YAt(picture, 0.31) - yWanted) * picture.view.unitsPerMetre, 0, 1e-3);
        EXPECT_NEAR((ZAt(picture, 0.77) - zWanted) * picture.view.unitsPerMetre, 0, 1e-3);
    };
    const double y = YAt(picture, 0.31);
    const double z = ZAt(picture, 0.77);
    for (int i = 0; i < kSteps; ++i) {
        Zoom(1.2, 0.31, 0.77);
        expectSamePlace(y, z);
    }
    EXPECT_GT(ZoomOf(picture), 1e6);
    Move(0.25, -0.5);
    EXPECT_NEAR((YAt(picture, 0.56) - y) * picture.view.unitsPerMetre, 0, 1e-3);
    EXPECT_NEAR((ZAt(picture, 0.27) - z) * picture.view.unitsPerMetre, 0, 1e-3);
    Move(-0.25, 0.5);
    for (int i = 0; i < kSteps; ++i) Zoom(1 / 1.2, 0.31, 0.77);
    EXPECT_TRUE(picture.view.isFitted);
    EXPECT_EQ(picture.scaleLeft, first.scaleLeft);
    EXPECT_EQ(picture.scaleTop, first.scaleTop);
    EXPECT_EQ(picture.scaleWidth, first.scaleWidth);
    EXPECT_EQ(picture.scaleHeight, first.scaleHeight);
}

TEST_F(PictureViewTest, FitsScaleAtAnotherPlaceIsNotTheFit) {
    Zoom(2, 0.5, 0.5);
    Move(0.01, 0);
    Zoom(0.5, 0.5, 0.5);
    EXPECT_FALSE(picture.view.isFitted);
    ExpectFrame(-10.1F, 10, 20);
}

TEST_F(PictureViewTest, FittingForgetsTheUsersView) {
    Zoom(3, 0.1, 0.9);
    Move(0.2, 0.2);
    FitView(picture.view);
    Fit();
    ExpectFrame(-10, 10, 20);
}

TEST_F(PictureViewTest, AnotherSizeKeepsScaleAndMiddle) {
    Zoom(2, 0.5, 0.5);
    picture.width = 200;
    picture.height = 400;
    Fit();
    EXPECT_NEAR(YAt(picture, 0.5), 0, 1e-4);
    EXPECT_NEAR(ZAt(picture, 0.5), 5, 1e-4);
    EXPECT_NEAR(picture.scaleWidth, 5, 1e-4);
    EXPECT_NEAR(picture.scaleHeight, -10, 1e-4);
}

TEST_F(PictureViewTest, PictureThatWasNeverDrawnStaysAsItIs) {
    Picture empty;
    ZoomView(empty, 2, 0.5, 0.5);
    MoveView(empty, 0.1, 0.1);
    ApplyView(empty);
    EXPECT_TRUE(empty.view.isFitted);
    EXPECT_EQ(empty.scaleWidth, 0);
    Zoom(-1, 0.5, 0.5);
    EXPECT_TRUE(picture.view.isFitted);
}

}  // namespace
}  // namespace corvane
