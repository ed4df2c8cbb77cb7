#include "properties/PropertyTexts.h"

#include "runtime/QtText.h"

#include <QLocale>
#include <QStringList>
#include <algorithm>
#include <cmath>

namespace Pellux {

using TambCommandsInfra::Value;

namespace {

/// Enough to tell neighbouring lengths apart, few enough to hide the last bits of a sum.
constexpr int kDigits = 10;

QString unitText(Unit unit, LengthUnit length)
{
    const QString word =
        length == LengthUnit::Millimetre ? QStringLiteral(" mm") : QStringLiteral(" units");
    switch (unit) {
    case Unit::None:
        break;
    case Unit::Length:
        return word;
    case Unit::Area:
        return word + QChar(0x00B2);
    case Unit::Volume:
        return word + QChar(0x00B3);
    case Unit::Angle:
        return QStringLiteral("\u00B0");
    }
    return {};
}

/// Six significant digits are finer than what is looked at; a screen has no room for more.
constexpr int kFewDigits = 6;

/// Numbers between these are written without an exponent.
constexpr double kLeastPlain = 1e-4;
constexpr double kMostPlain = 1e12;

QString fewDigits(double number)
{
    const double size = std::abs(number);
    if (!(size >= kLeastPlain && size < kMostPlain))
        return QLocale::c().toString(number, 'g', kFewDigits);
    const int before = static_cast<int>(std::floor(std::log10(size))) + 1;
    QString text = QString::number(number, 'f', std::max(0, kFewDigits - before));
    if (!text.contains(u'.'))
        return text;
    while (text.endsWith(u'0'))
        text.chop(1);
    if (text.endsWith(u'.'))
        text.chop(1);
    return text;
}

QString plainText(const Value& value, Digits digits)
{
    switch (value.GetKind()) {
    case Value::Kind::Integer:
        return QString::number(value.AsInteger());
    case Value::Kind::Real:
        return digits == Digits::Few ? fewDigits(value.AsReal())
                                     : QLocale::c().toString(value.AsReal(), 'g', kDigits);
    case Value::Kind::String:
        return ToQt(value.AsString());
    case Value::Kind::List: {
        QStringList texts;
        for (const Value& element : value.AsList())
            texts << plainText(element, digits);
        return texts.join(QStringLiteral(", "));
    }
    default:
        return {};
    }
}

} // namespace

QString NumberText(double number, Unit unit, LengthUnit length, Digits digits)
{
    return ValueText(Value(number), unit, length, digits);
}

QString ValueText(const Value& value, Unit unit, LengthUnit length, Digits digits)
{
    return plainText(value, digits) + unitText(unit, length);
}

} // namespace Pellux
