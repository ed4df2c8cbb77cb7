#include "Manipulators.h"

#include "PelluxApplication.h"
#include "PngFile.h"

#include <OrvikCore/ASession.h>
#include <OrvikCore/Document.h>
#include <OrvikCore/SessionMgr.h>
#include <TambVizCore/AView3DAdapter.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/Image.h>
#include <TambVizCore/RenderingOptions.h>
#include <TambVizCore/Utils.h>

namespace Pellux {
namespace {

using TambVizCore::IView3D;
using TambVizCore::RenderingOptions;

IView3D* currentView()
{
    return OrvikCore::SessionMgr::Instance().CurrentSession().View3D();
}

void display(void (RenderingOptions::*setter)(bool), bool show)
{
    IView3D* const view = currentView();
    TambVizCore::AView3DAdapter* const adapter =
        view == nullptr ? nullptr : view->GetView3DAdapter();
    RenderingOptions* const options = adapter == nullptr ? nullptr : adapter->GetRenderingOptions();
    if (options == nullptr)
        return;
    (options->*setter)(show);
    view->UpdateDisplay();
}

PngTexts picturesTexts()
{
    const auto& document = OrvikCore::SessionMgr::Instance().CurrentSession().Document();
    return {{"Software", "Pellux " + TambVizCore::Utils::WstringToString(ProgramVersion())},
            {"Title", TambVizCore::Utils::WstringToString(document.GetOpenedModelName())}};
}

} // namespace

void ViewManipulator::DisplayFaces(bool show)
{
    display(&RenderingOptions::SetShowFaces, show);
}

void ViewManipulator::DisplayEdges(bool show)
{
    display(&RenderingOptions::SetShowEdges, show);
}

void ViewManipulator::DisplayVertices(bool show)
{
    display(&RenderingOptions::SetShowVertices, show);
}

void ViewManipulator::DisplayTessellation(bool show)
{
    display(&RenderingOptions::SetShowTessellation, show);
}

void ViewManipulator::DisplayClouds(bool show)
{
    display(&RenderingOptions::SetShowPointClouds, show);
}

void ViewManipulator::DisplayPMI(bool show)
{
    display(&RenderingOptions::SetShowPMI, show);
}

bool BufferManipulator::GetSize(int& width, int& height) const
{
    const IView3D* const view = currentView();
    if (view == nullptr)
        return false;
    view->GetWindowSize(width, height);
    return true;
}

bool BufferManipulator::SaveImage(const std::wstring& fileName, int width, int height,
                                  std::wstring* errorText)
{
    std::wstring reason;
    IView3D* const view = currentView();
    int viewWidth = 0;
    int viewHeight = 0;
    if (view == nullptr) {
        reason = fileName + L": there is no view to draw";
    } else {
        view->GetWindowSize(viewWidth, viewHeight);
        width = width > 0 ? width : viewWidth;
        height = height > 0 ? height : viewHeight;
        TambVizCore::Image image;
        if (!view->ReadImage(width, height, image))
            reason = fileName + L": a picture of " + std::to_wstring(width) + L" x " +
                     std::to_wstring(height) + L" pixels cannot be drawn";
        else if (WritePng(fileName, image, picturesTexts(), reason))
            return true;
    }
    if (errorText != nullptr)
        *errorText = reason;
    return false;
}

} // namespace Pellux
