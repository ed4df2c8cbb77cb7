#ifndef PLUGINCOMMANDS_COMMANDPARTS_H
#define PLUGINCOMMANDS_COMMANDPARTS_H

#include <TambCommandsInfra/Command.h>
#include <TambCommandsInfra/CommandError.h>

#include <array>
#include <string>

class ITambApplicationCoreServices;
class ITambDocumentServices;
class ITambViewServices;

namespace OrvikCore {
class ASession;
}

namespace OrvikCommands {

/// The service sets of the application; their public operations cross the call gate.
ITambApplicationCoreServices& ApplicationServices();
ITambDocumentServices& DocumentServices();
ITambViewServices& ViewServices();

/// The current session. Worker thread; the session exists before the first script runs.
OrvikCore::ASession& Session();

/// Parameters that many commands share.
TambCommandsInfra::Parameter RealParameter(std::string name, std::string help, std::string unit);
TambCommandsInfra::Parameter PointParameter(std::string name, std::string help);
TambCommandsInfra::Parameter PathParameter(std::string name, std::string help);

/// An optional side of a picture, pixels; name is "width" or "height".
TambCommandsInfra::Parameter PictureSideParameter(std::string name);

/// An optional switch that is on when left out.
TambCommandsInfra::Parameter SwitchParameter(std::string name, std::string help);

/// The error of an argument whose form the table cannot check by itself:
/// "<command>: parameter \"<parameter>\": expected <what>, got <what it is>."
TambCommandsInfra::CommandError WrongArgument(const std::string& command,
                                              const std::string& parameter,
                                              const std::string& expected,
                                              const TambCommandsInfra::Value& got);

/// Whether a value is a list of three numbers, finite or not.
bool IsThreeNumbers(const TambCommandsInfra::Value& value);

/// @return the coordinates of a list of three numbers, fit for a scene of single precision.
/// @throws CommandError "..., expected coordinates of at most 1e+30 in amount, ..." for others.
std::array<double, 3> PlaceFrom(const std::string& command, const std::string& parameter,
                                const TambCommandsInfra::Value& value);

/// Makes a path that does not begin at the root relative to @p folder; "." leaves it alone.
std::wstring InFolder(const std::wstring& folder, const std::wstring& path);

/// The text of a value as app:print shows it: strings as they are, numbers in shortest form.
std::wstring DisplayText(const TambCommandsInfra::Value& value);

} // namespace OrvikCommands

#endif
