#ifndef ORVIKCORE_APPCONTROLLER_H
#define ORVIKCORE_APPCONTROLLER_H

#include "OrvikCore/Export.h"

namespace OrvikCore {

class ABufferManipulator;
class APathHelper;
class AViewManipulator;
class CommandLineOptions;

/// Holds the objects that the host hands in once at its start, and the parsed command line.
///
/// Owns the two manipulators, the path helper and the options. Created on first use of Instance()
/// and destroyed at process exit; a host calls Terminate() before. Main thread.
class ORVIKCORE_API AppController
{
public:
    virtual ~AppController();

    AppController(const AppController&) = delete;
    AppController& operator=(const AppController&) = delete;

    /// @return the one object of the process. Any thread may be the first to ask.
    static AppController& Instance();

    /// Keeps @p manipulator (transferred in, may be null) and deletes the one held before.
    void SetBufferManipulator(ABufferManipulator* manipulator);

    /// Keeps @p manipulator (transferred in, may be null) and deletes the one held before.
    void SetViewManipulator(AViewManipulator* manipulator);

    /// Keeps @p pathHelper (transferred in, may be null) and deletes the one held before.
    void SetPathHelper(APathHelper* pathHelper);

    /// @return the buffer manipulator or null; not owned, valid until it is replaced or
    /// Terminate().
    ABufferManipulator* GetBufferManipulator() const;

    /// @return the view manipulator or null; not owned, valid until it is replaced or Terminate().
    AViewManipulator* GetViewManipulator() const;

    /// @return the path helper or null; not owned, valid until it is replaced or Terminate().
    APathHelper* GetPathHelper() const;

    /// @return the options; not owned, null after Terminate().
    CommandLineOptions* Options() const;

    /// Deletes the three objects and the options. May be called more than once.
    void Terminate();

private:
    AppController();

    ABufferManipulator* m_bufferManipulator = nullptr; ///< Owned.
    AViewManipulator* m_viewManipulator = nullptr;     ///< Owned.
    APathHelper* m_pathHelper = nullptr;               ///< Owned.
    CommandLineOptions* m_options = nullptr;           ///< Owned; made by the constructor.
};

} // namespace OrvikCore

#endif
