#include <TambVizCore/Matrix.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace TambVizCore {
namespace {

using ::testing::ElementsAre;
using ::testing::FloatNear;

/// A quarter turn about z, then a move by (10, 20, 30).
constexpr double kTurnAndMove[16] = {0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 10, 20, 30, 1};
/// Twice as wide, three times as deep, four times as high.
constexpr double kScale[16] = {2, 0, 0, 0, 0, 3, 0, 0, 0, 0, 4, 0, 0, 0, 0, 1};

TEST(Matrix, IdentityIsRecognised)
{
    double matrix[16];
    SetIdentity(matrix);

    EXPECT_TRUE(IsIdentity(matrix));
    EXPECT_FALSE(IsIdentity(kScale));
}

TEST(Matrix, TransformPointTurnsThenMoves)
{
    const float point[3] = {1.0f, 0.0f, 0.0f};
    float out[3];

    TransformPoint(kTurnAndMove, point, out);

    EXPECT_THAT(out, ElementsAre(10.0f, 21.0f, 30.0f));
}

TEST(Matrix, TransformDirectionDoesNotMove)
{
    float direction[3] = {1.0f, 0.0f, 2.0f};

    TransformDirection(kTurnAndMove, direction, direction);

    EXPECT_THAT(direction, ElementsAre(0.0f, 1.0f, 2.0f));
}

TEST(Matrix, TheSecondFactorOfAProductActsFirst)
{
    double product[16];
    const float point[3] = {1.0f, 1.0f, 1.0f};
    float out[3];

    MultiplyMatrices(kTurnAndMove, kScale, product);
    TransformPoint(product, point, out);

    EXPECT_THAT(out, ElementsAre(7.0f, 22.0f, 34.0f));
}

TEST(Matrix, AMatrixTimesItsInverseIsTheIdentity)
{
    double matrix[16];
    double inverse[16];
    MultiplyMatrices(kTurnAndMove, kScale, matrix);

    ASSERT_TRUE(InvertMatrix(matrix, inverse));
    MultiplyMatrices(matrix, inverse, matrix);

    for (int i = 0; i < 16; ++i) {
        EXPECT_NEAR(matrix[i], i % 5 == 0 ? 1.0 : 0.0, 1e-14) << i;
    }
}

TEST(Matrix, AFlatMatrixHasNoInverse)
{
    const double flat[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1};
    double out[16] = {42};

    EXPECT_FALSE(InvertMatrix(flat, out));
    EXPECT_EQ(out[0], 42);
}

TEST(Matrix, AMatrixThatIsNotFiniteHasNoInverse)
{
    double matrix[16];
    SetIdentity(matrix);
    matrix[13] = std::numeric_limits<double>::infinity();
    double out[16];

    EXPECT_FALSE(InvertMatrix(matrix, out));
}

TEST(Matrix, AMirrorHasANegativeDeterminant)
{
    const double mirror[16] = {-1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

    EXPECT_EQ(Determinant3x3(mirror), -1.0);
    EXPECT_EQ(Determinant3x3(kScale), 24.0);
}

TEST(Matrix, NormalsStayAtRightAnglesUnderUnevenScaling)
{
    // The plane x + y = 0 stretched by (2, 3, 4) becomes x / 2 + y / 3 = 0.
    double inverse[16];
    ASSERT_TRUE(InvertMatrix(kScale, inverse));
    float normal[3] = {0.70710677f, 0.70710677f, 0.0f};

    TransformNormal(inverse, normal, normal);

    EXPECT_THAT(normal, ElementsAre(FloatNear(0.83205f, 1e-5f), FloatNear(0.5547f, 1e-5f), 0.0f));
}

TEST(Matrix, AZeroNormalStaysZero)
{
    float normal[3] = {0.0f, 0.0f, 0.0f};

    TransformNormal(kScale, normal, normal);

    EXPECT_THAT(normal, ElementsAre(0.0f, 0.0f, 0.0f));
}

} // namespace
} // namespace TambVizCore
