#include <TambVizCore/Utils.h>

#include <gtest/gtest.h>

#include <bit>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <limits>
#include <locale>
#include <random>
#include <string>

namespace TambVizCore {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

std::string printf17(double value)
{
    char buffer[64];
    std::snprintf(buffer, sizeof(buffer), "%.17g", value);
    return buffer;
}

double parsed(std::string_view text)
{
    double value = 12345.0;
    return Utils::ParseDouble(text, value) ? value : -99999.0;
}

TEST(Numbers, PointersAreLowerCaseHexadecimal)
{
    EXPECT_EQ(Utils::PointerToHexString(reinterpret_cast<const void*>(std::uintptr_t{0xABCDEF12})),
              "0xabcdef12");
    EXPECT_EQ(Utils::PointerToHexString(nullptr), "0x0");
}

TEST(Numbers, IntegersAreLowerCaseHexadecimal)
{
    EXPECT_EQ(Utils::IntToHexString(0), "0x0");
    EXPECT_EQ(Utils::IntToHexString(0x7E), "0x7e");
    EXPECT_EQ(Utils::IntToHexString(0xFFFFFFFFFFFFFFFFu), "0xffffffffffffffff");
}

TEST(Numbers, FixedHasTheDecimalsAskedFor)
{
    EXPECT_EQ(Utils::FormatFixed(1.0, 4), "1.0000");
    EXPECT_EQ(Utils::FormatFixed(-0.00004, 4), "-0.0000");
    EXPECT_EQ(Utils::FormatFixed(2.5, 0), "2");
    EXPECT_EQ(Utils::FormatFixed(1e15, 2), "1000000000000000.00");
    EXPECT_EQ(Utils::FormatFixed(0.1, -5), "0");
}

TEST(Numbers, FixedPadsToItsWidth)
{
    EXPECT_EQ(Utils::FormatFixed(1.5, 1, 6), "   1.5");
    EXPECT_EQ(Utils::FormatFixed(kInfinity, 4, 4), " inf");
    EXPECT_EQ(Utils::FormatFixed(-kInfinity, 4, 4), "-inf");
}

TEST(Numbers, FixedHoldsTheLargestDouble)
{
    const std::string text = Utils::FormatFixed(-std::numeric_limits<double>::max(), 30);

    EXPECT_EQ(text.size(), 341u);
    EXPECT_EQ(text.substr(0, 6), "-17976");
}

TEST(Numbers, FixedAgreesWithPrintf)
{
    std::mt19937_64 random(7);
    for (int i = 0; i < 2000; ++i) {
        const double value = std::ldexp(static_cast<double>(random()) - 9.2e18, i % 80 - 80);
        char expected[512];
        std::snprintf(expected, sizeof(expected), "%4.4f", value);
        ASSERT_EQ(Utils::FormatFixed(value, 4, 4), expected);
    }
}

TEST(Numbers, GeneralAgreesWithPrintfAndReadsBackTheSame)
{
    std::mt19937_64 random(11);
    for (int i = 0; i < 5000; ++i) {
        const double value = std::bit_cast<double>(random());
        if (!std::isfinite(value)) {
            continue;
        }
        const std::string text = Utils::FormatGeneral(value);
        ASSERT_EQ(text, printf17(value));
        ASSERT_EQ(parsed(text), value);
        ASSERT_EQ(parsed(Utils::FormatShortest(value)), value);
    }
}

TEST(Numbers, GeneralCutsToTheDigitsAskedFor)
{
    EXPECT_EQ(Utils::FormatGeneral(1.0 / 3.0, 4), "0.3333");
    EXPECT_EQ(Utils::FormatGeneral(123456.0, 3), "1.23e+05");
    EXPECT_EQ(Utils::FormatGeneral(0.1), "0.10000000000000001");
    EXPECT_EQ(Utils::FormatGeneral(2.0, 0), "2");
    EXPECT_EQ(Utils::FormatGeneral(1.0 / 3.0, 99), "0.33333333333333331");
}

TEST(Numbers, ShortestIsShort)
{
    EXPECT_EQ(Utils::FormatShortest(0.1), "0.1");
    EXPECT_EQ(Utils::FormatShortest(-2.0), "-2");
}

TEST(Numbers, IntegersHaveNoSeparators)
{
    EXPECT_EQ(Utils::FormatInt(-9223372036854775807LL - 1), "-9223372036854775808");
}

TEST(Numbers, ParseTakesTheUsualForms)
{
    EXPECT_EQ(parsed("1"), 1.0);
    EXPECT_EQ(parsed("+1.5"), 1.5);
    EXPECT_EQ(parsed("-.5"), -0.5);
    EXPECT_EQ(parsed("2."), 2.0);
    EXPECT_EQ(parsed("1e3"), 1000.0);
    EXPECT_EQ(parsed("1.25E-2"), 0.0125);
    EXPECT_EQ(parsed(" \t7\r\n"), 7.0);
    EXPECT_EQ(parsed("inf"), kInfinity);
    EXPECT_EQ(parsed("-INF"), -kInfinity);
    EXPECT_TRUE(std::isnan(parsed("nan")));
}

TEST(Numbers, ParseRefusesEverythingElseAndLeavesTheValue)
{
    for (const char* const text :
         {"", " ", "x", "1,5", "1.5x", "1 2", "++1", "+-1", "0x10", "1e", "e5", ".", "--1", "+"}) {
        double value = 77.0;
        EXPECT_FALSE(Utils::ParseDouble(std::string_view(text), value)) << text;
        EXPECT_EQ(value, 77.0) << text;
    }
}

TEST(Numbers, NumbersTooLargeBecomeInfinite)
{
    EXPECT_EQ(parsed("1e400"), kInfinity);
    EXPECT_EQ(parsed("-1e400"), -kInfinity);
    EXPECT_EQ(parsed("1e99999999999999999999"), kInfinity);
    EXPECT_EQ(parsed(std::string(400, '9')), kInfinity);
    EXPECT_EQ(parsed("0.001e+400"), kInfinity);
}

TEST(Numbers, NumbersTooSmallBecomeZero)
{
    EXPECT_EQ(parsed("1e-400"), 0.0);
    EXPECT_TRUE(std::signbit(parsed("-1e-400")));
    EXPECT_EQ(parsed("1e-99999999999999999999"), 0.0);
    EXPECT_EQ(parsed("0." + std::string(400, '0') + "1"), 0.0);
    EXPECT_EQ(parsed("12345e-400"), 0.0);
}

TEST(Numbers, HugePowersMayCancel)
{
    EXPECT_EQ(parsed("0." + std::string(400, '0') + "1e401"), 1.0);
    EXPECT_EQ(parsed("1" + std::string(400, '0') + "e-400"), 1.0);
}

TEST(Numbers, DenormalsAreKept)
{
    EXPECT_EQ(parsed("5e-324"), std::numeric_limits<double>::denorm_min());
}

TEST(Numbers, WideTextIsParsedAlike)
{
    double value = 0.0;

    EXPECT_TRUE(Utils::ParseDouble(std::wstring_view(L" -2.5e1 "), value));
    EXPECT_EQ(value, -25.0);
    // An Arabic digit one.
    EXPECT_FALSE(Utils::ParseDouble(std::wstring_view(L"\u0661"), value));
    EXPECT_FALSE(Utils::ParseDouble(std::wstring_view(L"1\0", 2), value));
    EXPECT_EQ(value, -25.0);
}

TEST(Numbers, IntegersAreParsedWhole)
{
    long long value = 0;

    EXPECT_TRUE(Utils::ParseInt(" +42 ", value));
    EXPECT_EQ(value, 42);
    EXPECT_TRUE(Utils::ParseInt("-9223372036854775808", value));
    for (const char* const text : {"", "4.0", "9223372036854775808", "0x1", "1 1", "+-3"}) {
        EXPECT_FALSE(Utils::ParseInt(text, value)) << text;
    }
    EXPECT_EQ(value, -9223372036854775807LL - 1);
}

void expectPoints()
{
    double value = 0.0;
    EXPECT_EQ(Utils::FormatFixed(1234567.5, 4), "1234567.5000");
    EXPECT_EQ(Utils::FormatGeneral(0.5), "0.5");
    EXPECT_EQ(Utils::FormatShortest(1234567.5), "1234567.5");
    EXPECT_EQ(Utils::FormatInt(1234567), "1234567");
    EXPECT_EQ(Utils::IntToHexString(1234567), "0x12d687");
    EXPECT_TRUE(Utils::ParseDouble("1234567.5", value));
    EXPECT_EQ(value, 1234567.5);
    EXPECT_FALSE(Utils::ParseDouble("0,5", value));
}

/// Writes a comma for the point and a point after every three digits.
struct GermanNumbers : std::numpunct<char>
{
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

TEST(Numbers, TheStreamsLocaleChangesNothing)
{
    const std::locale before =
        std::locale::global(std::locale(std::locale::classic(), new GermanNumbers));

    expectPoints();

    std::locale::global(before);
}

/// Sets a locale with a decimal comma, one of the system's or one compiled for the test.
bool setCommaLocale()
{
    for (const char* const name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8"}) {
        if (std::setlocale(LC_ALL, name) != nullptr) {
            return true;
        }
    }
    const auto folder = std::filesystem::path(::testing::TempDir()) / "vizcore-locale";
    std::filesystem::create_directories(folder);
    const std::string locale = (folder / "de_DE.UTF-8").string();
    const std::string command = "localedef -i de_DE -f UTF-8 '" + locale + "' >/dev/null 2>&1";
    return std::system(command.c_str()) == 0 && setenv("LOCPATH", folder.c_str(), 1) == 0 &&
           std::setlocale(LC_ALL, "de_DE.UTF-8") != nullptr;
}

TEST(Numbers, TheHostsLocaleChangesNothing)
{
    if (!setCommaLocale()) {
        GTEST_SKIP() << "no locale with a decimal comma can be set or compiled here";
    }
    char buffer[32];
    std::snprintf(buffer, sizeof(buffer), "%.1f", 0.5);
    ASSERT_STREQ(buffer, "0,5");

    expectPoints();

    std::setlocale(LC_ALL, "C");
}

} // namespace
} // namespace TambVizCore
