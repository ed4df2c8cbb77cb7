#ifndef ORVIKCORE_MESSAGETYPE_H
#define ORVIKCORE_MESSAGETYPE_H

namespace OrvikCore {

/// The kind of a text that a session prints.
enum class MessageType : int
{
    Output = 0,  ///< Ordinary output.
    Warning = 1, ///< A warning.
    Error = 2,   ///< An error.
};

} // namespace OrvikCore

#endif
