#include "InputParts.h"

#include <OrvikCore/IApplication.h>
#include <OrvikCore/SessionMgr.h>

#include <stdexcept>

namespace OrvikCommands {

using TambCommandsInfra::Parameter;
using TambCommandsInfra::Presence;
using TambCommandsInfra::Value;
using TambCommandsInfra::ValueType;

OrvikCore::IInputProvider& InputProvider()
{
    auto* const provider = dynamic_cast<OrvikCore::IInputProvider*>(
        OrvikCore::SessionMgr::Instance().GetApplication());
    if (provider == nullptr || provider->GetInputQueue() == nullptr ||
        provider->GetNavigationChoice() == nullptr)
        throw std::runtime_error("This program takes no input from scripts.");
    return *provider;
}

Parameter PixelParameter(const std::string& name, const std::string& help)
{
    constexpr double kFarPixel = 1000000;
    Parameter parameter;
    parameter.name = name;
    parameter.type = ValueType::Integer;
    parameter.help = help;
    parameter.unit = "pixels";
    parameter.minimum = -kFarPixel;
    parameter.maximum = kFarPixel;
    return parameter;
}

Parameter WordParameter(const std::string& name, const std::string& help)
{
    Parameter parameter;
    parameter.name = name;
    parameter.type = ValueType::String;
    parameter.help = help;
    return parameter;
}

Parameter OptionalWord(const std::string& name, const std::string& help, const wchar_t* word)
{
    Parameter parameter = WordParameter(name, help);
    parameter.presence = Presence::Optional;
    parameter.defaultValue = Value(word);
    return parameter;
}

} // namespace OrvikCommands
