// The home of the tables of the interfaces that hosts implement.
#include "OrvikCore/ABufferManipulator.h"
#include "OrvikCore/APathHelper.h"
#include "OrvikCore/AViewManipulator.h"
#include "OrvikCore/IApplication.h"
#include "OrvikCore/IHostWindow.h"
#include "OrvikCore/IIdPictureSaver.h"
#include "OrvikCore/ISessionObserver.h"

namespace OrvikCore {

ABufferManipulator::~ABufferManipulator() = default;
APathHelper::~APathHelper() = default;
AViewManipulator::~AViewManipulator() = default;
IApplication::~IApplication() = default;

IHostWindow::~IHostWindow() = default;

IHostWindowProvider::~IHostWindowProvider() = default;
IIdPictureSaver::~IIdPictureSaver() = default;
ISessionObserver::~ISessionObserver() = default;

} // namespace OrvikCore
