#include "properties/PropertyTexts.h"

#include "runtime/QtText.h"

#include <QLocale>
#include <QStringList>

namespace Pellux {

using TambCommandsInfra::Value;

namespace {

/// Enough to tell neighbouring lengths apart, few enough to hide the last bits of a sum.
constexpr int kDigits = 10;

QString unitText(Unit unit)
{
    switch (unit) {
    case Unit::None:
        break;
    case Unit::Length:
        return QStringLiteral(" units");
    case Unit::Area:
        return QStringLiteral(" units\u00B2");
    case Unit::Volume:
        return QStringLiteral(" units\u00B3");
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

QString NumberText(double number, Unit unit)
{
    return ValueText(Value(number), unit);
}

QString ValueText(const Value& value, Unit unit)
{
    return plainText(value) + unitText(unit);
}

} // namespace Pellux
