#include "controls/SectionPlane.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace Pellux {

using TambCommandsInfra::Value;

namespace {

/// The shortest text of a number of single precision, which is what a plane has.
QString shortText(double number)
{
    char text[32];
    const std::to_chars_result end =
        std::to_chars(text, text + sizeof text, static_cast<float>(number));
    return QString::fromLatin1(text, end.ptr - text);
}

/// The number that somebody has written down for one of single precision.
double asWritten(float number)
{
    return shortText(static_cast<double>(number)).toDouble();
}

QString listText(const std::array<double, 3>& vector)
{
    QString text = QStringLiteral("'(");
    for (std::size_t i = 0; i < 3; ++i)
        text += (i == 0 ? QString() : QStringLiteral(" ")) + shortText(vector[i]);
    return text + QLatin1Char(')');
}

/// Negative zero would be written as it is.
double plain(double number)
{
    return number == 0.0 ? 0.0 : number;
}

} // namespace

SectionPlane SectionPlane::FromClipPlane(const TambVizCore::ClipPlane& plane)
{
    SectionPlane section;
    for (std::size_t i = 0; i < 3; ++i)
        section.axis[i] = plain(-asWritten(plane.normal[i]));
    section.position = plain(asWritten(plane.offset));
    const bool isAlongAxis = std::count(section.axis.begin(), section.axis.end(), 0.0) == 2;
    const bool pointsBack = section.axis[0] + section.axis[1] + section.axis[2] < 0.0;
    if (isAlongAxis && pointsBack) {
        section.isFlipped = true;
        section.position = plain(-section.position);
        for (double& number : section.axis)
            number = plain(-number);
    }
    return section;
}

int SectionPlane::AxisNumber() const
{
    for (std::size_t i = 0; i < 3; ++i)
        if (axis[i] == 1.0 && axis[(i + 1) % 3] == 0.0 && axis[(i + 2) % 3] == 0.0)
            return static_cast<int>(i);
    return 3;
}

std::array<double, 3> SectionPlane::Normal() const
{
    std::array<double, 3> normal = axis;
    if (isFlipped)
        for (double& number : normal)
            number = plain(-number);
    return normal;
}

std::array<double, 3> SectionPlane::Point() const
{
    return {plain(axis[0] * position), plain(axis[1] * position), plain(axis[2] * position)};
}

std::vector<Value> SectionPlane::Arguments(int number) const
{
    return {Value::FromVector(Point()), Value::FromVector(Normal()), Value(number)};
}

QString SectionPlane::Form(int number) const
{
    return QStringLiteral("(view:section %1 %2 %3)")
        .arg(listText(Point()), listText(Normal()))
        .arg(number);
}

double SectionPlane::Rounded(double position, double range)
{
    if (!(range > 0.0))
        return position;
    const double digits = 3.0 - std::floor(std::log10(range));
    // A power of ten that is a fraction is not exact, its reciprocal is.
    const double power = std::pow(10.0, std::abs(digits));
    return plain(digits > 0.0 ? std::round(position * power) / power
                              : std::round(position / power) * power);
}

std::array<double, 2> SectionPlane::Range(const TambVizCore::VizBox& box) const
{
    std::array<double, 2> range = {0.0, 0.0};
    if (box.IsEmpty())
        return range;
    for (std::size_t i = 0; i < 3; ++i) {
        const double low = axis[i] * static_cast<double>(box.Lo()[i]);
        const double high = axis[i] * static_cast<double>(box.Hi()[i]);
        range[0] += std::min(low, high);
        range[1] += std::max(low, high);
    }
    return range;
}

} // namespace Pellux
