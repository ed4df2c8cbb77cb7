#include "properties/PropertyTexts.h"

#include "runtime/QtText.h"

#include <QLocale>
#include <QStringList>

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

QString plainText(const Value& value)
{
    switch (value.GetKind()) {
    case Value::Kind::Integer:
        return QString::number(value.AsInteger());
    case Value::Kind::Real:
        return QLocale::c().toString(value.AsReal(), 'g', kDigits);
    case Value::Kind::String:
        return ToQt(value.AsString());
    case Value::Kind::List: {
        QStringList texts;
        for (const Value& element : value.AsList())
            texts << plainText(element);
        return texts.join(QStringLiteral(", "));
    }
    default:
        return {};
    }
}

} // namespace

QString NumberText(double number, Unit unit, LengthUnit length)
{
    return ValueText(Value(number), unit, length);
}

QString ValueText(const Value& value, Unit unit, LengthUnit length)
{
    return plainText(value) + unitText(unit, length);
}

} // namespace Pellux
