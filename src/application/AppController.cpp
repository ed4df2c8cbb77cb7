#include "OrvikCore/AppController.h"

#include "OrvikCore/ABufferManipulator.h"
#include "OrvikCore/APathHelper.h"
#include "OrvikCore/AViewManipulator.h"
#include "OrvikCore/CommandLineOptions.h"

namespace OrvikCore {

namespace {

/// Deletes what @p held points to and stores @p replacement instead.
template <typename T> void Replace(T*& held, T* replacement)
{
    T* const before = held;
    held = replacement;
    delete before;
}

} // namespace

AppController& AppController::Instance()
{
    static AppController instance;
    return instance;
}

AppController::AppController() : m_options(new CommandLineOptions) {}

AppController::~AppController()
{
    Terminate();
}

void AppController::SetBufferManipulator(ABufferManipulator* manipulator)
{
    Replace(m_bufferManipulator, manipulator);
}

void AppController::SetViewManipulator(AViewManipulator* manipulator)
{
    Replace(m_viewManipulator, manipulator);
}

void AppController::SetPathHelper(APathHelper* pathHelper)
{
    Replace(m_pathHelper, pathHelper);
}

ABufferManipulator* AppController::GetBufferManipulator() const
{
    return m_bufferManipulator;
}

AViewManipulator* AppController::GetViewManipulator() const
{
    return m_viewManipulator;
}

APathHelper* AppController::GetPathHelper() const
{
    return m_pathHelper;
}

CommandLineOptions* AppController::Options() const
{
    return m_options;
}

void AppController::Terminate()
{
    Replace<ABufferManipulator>(m_bufferManipulator, nullptr);
    Replace<AViewManipulator>(m_viewManipulator, nullptr);
    Replace<APathHelper>(m_pathHelper, nullptr);
    Replace<CommandLineOptions>(m_options, nullptr);
}

} // namespace OrvikCore
