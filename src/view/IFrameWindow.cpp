#include "OrvikCore/IFrameWindow.h"

namespace OrvikCore {

IFrameWindow::~IFrameWindow() = default;

bool IFrameWindow::MakeContextCurrent()
{
    return false;
}

void IFrameWindow::DoneContextCurrent() {}

} // namespace OrvikCore
