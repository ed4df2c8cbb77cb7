#include "CommandParts.h"

#include <OrvikCore/SessionMgr.h>
#include <OrvikCore/TambServiceSetCollectionPelluxApplication.h>
#include <TambCommandsInfra/ICommandObject.h>
#include <TambVizCore/Utils.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace OrvikCommands {

using TambCommandsInfra::Parameter;
using TambCommandsInfra::Presence;
using TambCommandsInfra::Value;
using TambCommandsInfra::ValueType;
using TambVizCore::Utils;

namespace {

/// Largest side of a picture, pixels.
/// The longest row of a PNG file; the driver of the view usually allows less, and says so.
constexpr double kMaxPictureSide = 1000000;

/// Largest coordinate of a place, in amount; sums of many such are floats still.
constexpr double kFarthest = 1e30;

TambServiceSetCollectionBase& services()
{
    return *TambServiceSetCollectionPelluxApplication::GetServiceSetCollection();
}

} // namespace

ITambApplicationCoreServices& ApplicationServices()
{
    return *services().GetApplicationCoreServices();
}

ITambDocumentServices& DocumentServices()
{
    return *services().GetDocumentServices();
}

ITambViewServices& ViewServices()
{
    return *services().GetViewServices();
}

OrvikCore::ASession& Session()
{
    return OrvikCore::SessionMgr::Instance().CurrentSession();
}

Parameter RealParameter(std::string name, std::string help, std::string unit)
{
    Parameter parameter;
    parameter.name = std::move(name);
    parameter.type = ValueType::Real;
    parameter.help = std::move(help);
    parameter.unit = std::move(unit);
    return parameter;
}

Parameter PointParameter(std::string name, std::string help)
{
    Parameter parameter;
    parameter.name = std::move(name);
    parameter.type = ValueType::Point;
    parameter.help = std::move(help);
    parameter.unit = "mm";
    return parameter;
}

Parameter PathParameter(std::string name, std::string help)
{
    Parameter parameter;
    parameter.name = std::move(name);
    parameter.type = ValueType::Path;
    parameter.help = std::move(help);
    return parameter;
}

Parameter PictureSideParameter(std::string name)
{
    Parameter parameter;
    parameter.help = name + " of the picture; that of the view when left out";
    parameter.name = std::move(name);
    parameter.type = ValueType::Integer;
    parameter.unit = "pixels";
    parameter.presence = Presence::Optional;
    parameter.minimum = 1;
    parameter.maximum = kMaxPictureSide;
    return parameter;
}

Parameter SwitchParameter(std::string name, std::string help)
{
    Parameter parameter;
    parameter.name = std::move(name);
    parameter.type = ValueType::Bool;
    parameter.help = std::move(help);
    parameter.presence = Presence::Optional;
    parameter.defaultValue = Value(true);
    return parameter;
}

TambCommandsInfra::CommandError WrongArgument(const std::string& command,
                                              const std::string& parameter,
                                              const std::string& expected, const Value& got)
{
    return TambCommandsInfra::CommandError(command + ": parameter \"" + parameter +
                                           "\": expected " + expected + ", got " +
                                           TambCommandsInfra::DescribeValue(got) + ".");
}

bool IsThreeNumbers(const Value& value)
{
    const auto isNumber = [](const Value& item) {
        return item.GetKind() == Value::Kind::Integer || item.GetKind() == Value::Kind::Real;
    };
    return value.GetKind() == Value::Kind::List && value.AsList().size() == 3 &&
           std::all_of(value.AsList().begin(), value.AsList().end(), isNumber);
}

std::array<double, 3> PlaceFrom(const std::string& command, const std::string& parameter,
                                const Value& value)
{
    const std::array<double, 3> place = value.AsVector();
    for (const double coordinate : place)
        if (!(std::fabs(coordinate) <= kFarthest))
            throw WrongArgument(command, parameter, "coordinates of at most 1e+30 in amount",
                                value);
    return place;
}

std::wstring InFolder(const std::wstring& folder, const std::wstring& path)
{
    const bool fromRoot = !path.empty() && (path.front() == L'/' || path.front() == L'\\' ||
                                            (path.size() > 1 && path[1] == L':'));
    return fromRoot || folder.empty() || folder == L"." ? path : folder + L"/" + path;
}

std::wstring DisplayText(const Value& value)
{
    switch (value.GetKind()) {
    case Value::Kind::Nil:
        return L"";
    case Value::Kind::Bool:
        return value.AsBool() ? L"#t" : L"#f";
    case Value::Kind::Integer:
        return std::to_wstring(value.AsInteger());
    case Value::Kind::Real:
        return Utils::StringToWstring(Utils::FormatShortest(value.AsReal()));
    case Value::Kind::String:
        return value.AsString();
    case Value::Kind::List: {
        std::wstring text;
        for (const Value& element : value.AsList())
            text += (text.empty() ? L"" : L" ") + DisplayText(element);
        return L"(" + text + L")";
    }
    case Value::Kind::Object:
        return L"#<" + Utils::StringToWstring(value.AsObject()->TypeName()) + L" " +
               value.AsObject()->Describe() + L">";
    }
    return L"";
}

} // namespace OrvikCommands
