#include "OrvikCore/IFrameWindow.h"

namespace OrvikCore {

IFrameWindow::~IFrameWindow() = default;

bool IFrameWindow::MakeContextCurrent()
{
    return false;
}

void IFrameWindow::DoneContextCurrent() {}

double IFrameWindow::GetPixelRatio()
{
    return 1.0;
}

} // namespace OrvikCore
