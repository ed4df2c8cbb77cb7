#ifndef PLUGINCOMMANDS_INPUTPARTS_H
#define PLUGINCOMMANDS_INPUTPARTS_H

#include <OrvikCore/IInputProvider.h>
#include <TambCommandsInfra/CallGate.h>
#include <TambCommandsInfra/Command.h>

#include <string>
#include <utility>

/// What the commands for mouse and keys, and others that take places in the view, share.
namespace OrvikCommands {

/// The help of every command that queues events.
inline constexpr char kWhenEventsAct[] =
    "The events wait until the script's top-level form has ended, and then act as those of a hand.";

/// Main thread.
/// @throws std::runtime_error "This program takes no input from scripts."
OrvikCore::IInputProvider& InputProvider();

/// Runs a function on the main thread with the host's queue.
template <typename Function> TambCommandsInfra::Value PostEvents(Function&& function)
{
    TambCommandsInfra::CallGate::Call([&function] { function(*InputProvider().GetInputQueue()); });
    return TambCommandsInfra::Value();
}

/// A place in the view: a whole number of pixels from the upper left corner, at most a million
/// either way, which is far beyond every window and safe for sums.
TambCommandsInfra::Parameter PixelParameter(const std::string& name, const std::string& help);
TambCommandsInfra::Parameter WordParameter(const std::string& name, const std::string& help);
TambCommandsInfra::Parameter OptionalWord(const std::string& name, const std::string& help,
                                          const wchar_t* word);

} // namespace OrvikCommands

#endif
