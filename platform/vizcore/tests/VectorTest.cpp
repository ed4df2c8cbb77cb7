#include <TambVizCore/Vector.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

namespace TambVizCore {
namespace {

using ::testing::ElementsAre;
using ::testing::FloatNear;

TEST(Vector, SubtractTakesTheSecondFromTheFirst)
{
    const float a[3] = {5.0f, 7.0f, 9.0f};
    const float b[3] = {1.0f, 10.0f, -2.0f};
    float out[3];

    Subtract(a, b, out);

    EXPECT_THAT(out, ElementsAre(4.0f, -3.0f, 11.0f));
}

TEST(Vector, AddMayWriteToAnInput)
{
    float a[3] = {1.0f, 2.0f, 3.0f};
    const float b[3] = {10.0f, 20.0f, 30.0f};

    Add(a, b, a);

    EXPECT_THAT(a, ElementsAre(11.0f, 22.0f, 33.0f));
}

TEST(Vector, MultiplyScalesInPlace)
{
    float v[3] = {1.0f, -2.0f, 0.5f};

    Multiply(v, -4.0f);

    EXPECT_THAT(v, ElementsAre(-4.0f, 8.0f, -2.0f));
}

TEST(Vector, NormalizeDividesByTheLength)
{
    float v[3] = {2.0f, 3.0f, 6.0f}; // Length 7.

    Normalize(v);

    EXPECT_THAT(v, ElementsAre(2.0f / 7.0f, 3.0f / 7.0f, 6.0f / 7.0f));
}

TEST(Vector, NormalizeOfAZeroVectorIsNotANumber)
{
    float v[3] = {0.0f, 0.0f, 0.0f};

    Normalize(v);

    EXPECT_TRUE(std::isnan(v[0]) && std::isnan(v[1]) && std::isnan(v[2]));
}

TEST(Vector, NormalizeOfAHugeVectorDoesNotOverflow)
{
    float v[3] = {3e30f, 0.0f, 4e30f};

    Normalize(v);

    EXPECT_THAT(v, ElementsAre(FloatNear(0.6f, 1e-7f), 0.0f, FloatNear(0.8f, 1e-7f)));
}

TEST(Vector, LengthOfTwoThreeSixIsSeven)
{
    const float v[3] = {2.0f, -3.0f, 6.0f};

    EXPECT_EQ(Length(v), 7.0f);
}

TEST(Vector, DotProductSumsTheProducts)
{
    const float a[3] = {1.0f, 2.0f, 3.0f};
    const float b[3] = {4.0f, -5.0f, 6.0f};

    EXPECT_EQ(DotProduct(a, b), 12.0f);
}

TEST(Vector, CrossProductOfXAndYIsZ)
{
    const float x[3] = {2.0f, 0.0f, 0.0f};
    const float y[3] = {0.0f, 3.0f, 0.0f};
    float out[3];

    CrossProduct(x, y, out);

    EXPECT_THAT(out, ElementsAre(0.0f, 0.0f, 6.0f));
}

TEST(Vector, CrossProductMayWriteToAnInput)
{
    float a[3] = {1.0f, 2.0f, 3.0f};
    const float b[3] = {4.0f, 5.0f, 6.0f};

    CrossProduct(a, b, a);

    EXPECT_THAT(a, ElementsAre(-3.0f, 6.0f, -3.0f));
}

TEST(Vector, NumbersAMillionthApartAreClose)
{
    EXPECT_TRUE(AreClose(0.0f, 1e-6f));
    EXPECT_TRUE(AreClose(-1e-6f, 0.0f));
}

TEST(Vector, NumbersTwoMillionthsApartAreNotClose)
{
    EXPECT_FALSE(AreClose(0.0f, 2e-6f));
}

TEST(Vector, NotANumberIsCloseToNothing)
{
    const float nan = std::numeric_limits<float>::quiet_NaN();

    EXPECT_FALSE(AreClose(nan, nan));
}

TEST(Vector, VectorsAreCloseOnlyWithAllComponents)
{
    const float a[3] = {1.0f, 2.0f, 3.0f};
    const float near[3] = {1.0f, 2.0000005f, 3.0f};
    const float far[3] = {1.0f, 2.0f, 3.001f};

    EXPECT_TRUE(AreClose(a, near));
    EXPECT_FALSE(AreClose(a, far));
}

TEST(Vector, DirectionsOfDifferentLengthAreNotClose)
{
    const float a[3] = {1.0f, 0.0f, 0.0f};
    const float b[3] = {2.0f, 0.0f, 0.0f};

    EXPECT_FALSE(AreClose(a, b));
}

TEST(Vector, AntiParallelDirectionsAreOppositeWhateverTheirLengths)
{
    const float a[3] = {1.0f, 2.0f, -2.0f};
    const float b[3] = {-10.0f, -20.0f, 20.0f};

    EXPECT_TRUE(AreOpposite(a, b));
}

TEST(Vector, DirectionsOneDegreeOffAreNotOpposite)
{
    const float a[3] = {1.0f, 0.0f, 0.0f};
    const float b[3] = {-0.99985f, 0.01745f, 0.0f};

    EXPECT_FALSE(AreOpposite(a, b));
}

TEST(Vector, EqualDirectionsAreNotOpposite)
{
    const float a[3] = {0.0f, 0.0f, 5.0f};

    EXPECT_FALSE(AreOpposite(a, a));
}

TEST(Vector, AZeroVectorIsOppositeToNothing)
{
    const float zero[3] = {0.0f, 0.0f, 0.0f};
    const float x[3] = {1.0f, 0.0f, 0.0f};

    EXPECT_FALSE(AreOpposite(zero, x));
    EXPECT_FALSE(AreOpposite(x, zero));
    EXPECT_FALSE(AreOpposite(zero, zero));
}

TEST(Vector, PiIsOneUnitBelowTheNearestFloat)
{
    EXPECT_EQ(std::bit_cast<std::uint32_t>(kPi), 0x40490FDAu);
}

TEST(Vector, TheAngleOfOppositeDirectionsIsExactlyPi)
{
    const float a[3] = {0.3f, -0.4f, 1.7f};
    const float b[3] = {-0.6f, 0.8f, -3.4f};

    EXPECT_EQ(std::bit_cast<std::uint32_t>(GetAngleRadians(a, b)), 0x40490FDAu);
}

TEST(Vector, TheAngleOfEqualDirectionsIsExactlyZero)
{
    const float a[3] = {0.3f, -0.4f, 1.7f};
    const float b[3] = {0.9f, -1.2f, 5.1f};

    EXPECT_EQ(GetAngleRadians(a, b), 0.0f);
}

TEST(Vector, TheAngleWithAZeroVectorIsZero)
{
    const float a[3] = {1.0f, 0.0f, 0.0f};
    const float zero[3] = {0.0f, 0.0f, 0.0f};

    EXPECT_EQ(GetAngleRadians(a, zero), 0.0f);
}

TEST(Vector, TheAngleOfXAndYIsARightAngle)
{
    const float x[3] = {5.0f, 0.0f, 0.0f};
    const float y[3] = {0.0f, 0.1f, 0.0f};

    EXPECT_FLOAT_EQ(GetAngleRadians(x, y), 1.5707964f);
    EXPECT_FLOAT_EQ(GetAngleRadians(y, x), 1.5707964f);
}

TEST(Vector, TheAngleOfXAndTheDiagonalIsAnEighthOfATurn)
{
    const float x[3] = {1.0f, 0.0f, 0.0f};
    const float diagonal[3] = {3.0f, 0.0f, -3.0f};

    EXPECT_FLOAT_EQ(GetAngleRadians(x, diagonal), 0.78539819f);
}

TEST(Vector, SmallAnglesKeepTheirPrecision)
{
    const float a[3] = {1.0f, 0.0f, 0.0f};
    const float b[3] = {1.0f, 1e-4f, 0.0f};

    EXPECT_NEAR(GetAngleRadians(a, b), 1e-4f, 1e-9f);
}

TEST(Vector, NoAngleIsLargerThanPi)
{
    // Just outside the tolerance of opposite directions.
    const float a[3] = {1.0f, 0.0f, 0.0f};
    const float b[3] = {-1.0f, 1.2e-6f, 0.0f};

    EXPECT_LE(GetAngleRadians(a, b), kPi);
    EXPECT_GT(GetAngleRadians(a, b), 3.14158f);
}

TEST(Vector, TheSignedAngleFollowsTheRightHand)
{
    const float x[3] = {1.0f, 0.0f, 0.0f};
    const float y[3] = {0.0f, 1.0f, 0.0f};
    const float z[3] = {0.0f, 0.0f, 1.0f};
    const float down[3] = {0.0f, 0.0f, -1.0f};

    EXPECT_FLOAT_EQ(GetAngleRadians(x, y, z), 1.5707964f);
    EXPECT_FLOAT_EQ(GetAngleRadians(x, y, down), -1.5707964f);
    EXPECT_FLOAT_EQ(GetAngleRadians(y, x, z), -1.5707964f);
}

TEST(Vector, TheSignedAngleOfOppositeDirectionsIsPlusPi)
{
    const float a[3] = {1.0f, 1.0f, 0.0f};
    const float b[3] = {-1.0f, -1.0f, 0.0f};
    const float axis[3] = {0.0f, 0.0f, -1.0f};

    EXPECT_EQ(GetAngleRadians(a, b, axis), 3.1415925f);
}

TEST(Vector, APositiveTurnAboutZTakesXToY)
{
    const float x[3] = {2.0f, 0.0f, 5.0f};
    const float origin[3] = {0.0f, 0.0f, 0.0f};
    const float axis[3] = {0.0f, 0.0f, 3.0f};
    float out[3];

    RotatePoint(x, 90.0, origin, axis, out);

    EXPECT_THAT(out, ElementsAre(FloatNear(0.0f, 1e-6f), FloatNear(2.0f, 1e-6f), 5.0f));
}

TEST(Vector, APositiveTurnAboutXTakesYToZ)
{
    float point[3] = {0.0f, 4.0f, 0.0f};
    const float axis[3] = {1.0f, 0.0f, 0.0f};

    RotatePointAroundOrigin(point, 90.0, axis, point);

    EXPECT_THAT(point, ElementsAre(0.0f, FloatNear(0.0f, 1e-6f), FloatNear(4.0f, 1e-6f)));
}

TEST(Vector, APositiveTurnAboutYTakesZToX)
{
    float point[3] = {0.0f, 0.0f, 4.0f};
    const float axis[3] = {0.0f, 1.0f, 0.0f};

    RotatePointAroundOrigin(point, 90.0, axis, point);

    EXPECT_THAT(point, ElementsAre(FloatNear(4.0f, 1e-6f), 0.0f, FloatNear(0.0f, 1e-6f)));
}

TEST(Vector, ATurnAboutACentreLeavesTheCentreInPlace)
{
    const float point[3] = {3.0f, 1.0f, 7.0f};
    const float centre[3] = {1.0f, 1.0f, 0.0f};
    const float axis[3] = {0.0f, 0.0f, 1.0f};
    float out[3];

    RotatePointRadians(point, 3.14159265358979, centre, axis, out);

    EXPECT_THAT(out, ElementsAre(FloatNear(-1.0f, 1e-6f), FloatNear(1.0f, 1e-6f), 7.0f));
}

TEST(Vector, AThirdOfATurnAboutTheDiagonalRotatesTheAxes)
{
    float point[3] = {1.0f, 0.0f, 0.0f};
    const float diagonal[3] = {1.0f, 1.0f, 1.0f};

    RotatePointAroundOrigin(point, 120.0, diagonal, point);

    EXPECT_THAT(
        point, ElementsAre(FloatNear(0.0f, 1e-6f), FloatNear(1.0f, 1e-6f), FloatNear(0.0f, 1e-6f)));
}

TEST(Vector, ATurnAboutAZeroAxisCopiesThePoint)
{
    const float point[3] = {3.0f, 1.0f, 7.0f};
    const float zero[3] = {0.0f, 0.0f, 0.0f};
    float out[3];

    RotatePoint(point, 45.0, zero, zero, out);

    EXPECT_THAT(out, ElementsAre(3.0f, 1.0f, 7.0f));
}

/// A camera at (0, 0, 10) that looks at the origin and sees 8 x 4 units there; window 200 x 100.
struct RayVector : ::testing::Test
{
    void shoot(int x, int y, bool perspective)
    {
        GetRayVector(x, y, 200, 100, eye, target, up, 8.0f, 4.0f, perspective, origin, direction);
    }

    const float eye[3] = {0.0f, 0.0f, 10.0f};
    const float target[3] = {0.0f, 0.0f, 0.0f};
    const float up[3] = {0.0f, 1.0f, 0.0f};
    float origin[3] = {};
    float direction[3] = {};
};

TEST_F(RayVector, ParallelRaysStartBesideTheEyeAndRunStraight)
{
    shoot(149, 24, /*perspective=*/false);

    // s = 149.5 / 200 - 0.5 = 0.2475; t = 0.5 - 24.5 / 100 = 0.255.
    EXPECT_THAT(origin, ElementsAre(FloatNear(1.98f, 1e-5f), FloatNear(1.02f, 1e-5f), 10.0f));
    EXPECT_THAT(direction, ElementsAre(0.0f, 0.0f, -10.0f));
}

TEST_F(RayVector, PerspectiveRaysStartAtTheEyeAndReachThePlaneOfTheTarget)
{
    shoot(149, 24, /*perspective=*/true);

    EXPECT_THAT(origin, ElementsAre(0.0f, 0.0f, 10.0f));
    EXPECT_THAT(direction, ElementsAre(FloatNear(1.98f, 1e-5f), FloatNear(1.02f, 1e-5f), -10.0f));
}

TEST_F(RayVector, TheFirstPixelLooksHalfAPixelInsideTheUpperLeftCorner)
{
    shoot(0, 0, /*perspective=*/false);

    EXPECT_THAT(origin, ElementsAre(FloatNear(-3.98f, 1e-5f), FloatNear(1.98f, 1e-5f), 10.0f));
}

TEST_F(RayVector, ALeaningUpVectorIsStraightened)
{
    const float leaning[3] = {0.0f, 1.0f, -0.7f};

    GetRayVector(149, 24, 200, 100, eye, target, leaning, 8.0f, 4.0f, false, origin, direction);

    EXPECT_THAT(origin, ElementsAre(FloatNear(1.98f, 1e-5f), FloatNear(1.02f, 1e-5f),
                                    FloatNear(10.0f, 1e-5f)));
}

TEST_F(RayVector, AWindowWithoutSizeGivesTheMiddleRay)
{
    GetRayVector(7, 9, 0, 0, eye, target, up, 8.0f, 4.0f, true, origin, direction);

    EXPECT_THAT(origin, ElementsAre(0.0f, 0.0f, 10.0f));
    EXPECT_THAT(direction, ElementsAre(0.0f, 0.0f, -10.0f));
}

} // namespace
} // namespace TambVizCore
