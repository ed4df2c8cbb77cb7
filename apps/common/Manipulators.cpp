#include "Manipulators.h"

#include "JournalText.h"
#include "PelluxApplication.h"
#include "PngFile.h"
#include "RunHistory.h"

#include <OrvikCore/ACamera.h>
#include <OrvikCore/AContent.h>
#include <OrvikCore/ASession.h>
#include <OrvikCore/Document.h>
#include <OrvikCore/ICameraProvider.h>
#include <OrvikCore/SessionMgr.h>
#include <TambVizCore/AView3DAdapter.h>
#include <TambVizCore/EntityId.h>
#include <TambVizCore/IIdPictureProvider.h>
#include <TambVizCore/IPictureErrorProvider.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/Image.h>
#include <TambVizCore/Node.h>
#include <TambVizCore/RenderingOptions.h>
#include <TambVizCore/Utils.h>

#include <cstddef>
#include <cstdint>

namespace Pellux {
namespace {

using TambVizCore::EntityId;
using TambVizCore::IdPicture;
using TambVizCore::IView3D;
using TambVizCore::RenderingOptions;
using TambVizCore::Utils;

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

/// @return the view to draw, the size of a picture completed; null, with the reason, without one.
IView3D* viewFor(const std::wstring& fileName, int& width, int& height, std::wstring& reason)
{
    IView3D* const view = currentView();
    if (view == nullptr) {
        reason = fileName + L": there is no view to draw";
        return nullptr;
    }
    int viewWidth = 0;
    int viewHeight = 0;
    view->GetWindowSize(viewWidth, viewHeight);
    width = width > 0 ? width : viewWidth;
    height = height > 0 ? height : viewHeight;
    return view;
}

/// @return why a view has not drawn a picture.
std::wstring cannotDraw(const IView3D& view, const std::wstring& fileName, int width, int height)
{
    const auto* const provider = dynamic_cast<const TambVizCore::IPictureErrorProvider*>(&view);
    if (provider != nullptr && !provider->GetPictureError().empty())
        return fileName + L": " + Utils::StringToWstring(provider->GetPictureError());
    return fileName + L": a picture of " + std::to_wstring(width) + L" x " +
           std::to_wstring(height) + L" pixels cannot be drawn";
}

/// The numbers of what is drawn as colours.
TambVizCore::Image imageOf(const IdPicture& picture)
{
    TambVizCore::Image image;
    image.width = picture.width;
    image.height = picture.height;
    image.rgba.reserve(picture.pixels.size() * 4);
    for (const std::uint32_t number : picture.pixels)
        for (const std::uint32_t byte : {number >> 16, number >> 8, number, 255u})
            image.rgba.push_back(static_cast<std::uint8_t>(byte & 255u));
    return image;
}

/// One line for each number: the number, a tabulator, the entity.
std::string listOf(const std::vector<EntityId>& entities)
{
    std::string list;
    for (std::size_t i = 0; i < entities.size(); ++i)
        list +=
            std::to_string(i + 1) + "\t" +
            (entities[i].IsEmpty() ? "nothing" : Utils::WstringToString(EntityWords(entities[i]))) +
            "\n";
    return list;
}

/// The names of all files that are loaded.
std::string modelNames()
{
    std::string names;
    for (OrvikCore::AContent* const content :
         OrvikCore::SessionMgr::Instance().CurrentSession().Document().GetContentList())
        names += (names.empty() ? "" : ", ") + Utils::WstringToString(content->GetShortId());
    return names;
}

/// The form that moves the camera to where it is; empty without one.
std::wstring cameraForm(IView3D& view)
{
    auto* const provider = dynamic_cast<OrvikCore::ICameraProvider*>(&view);
    OrvikCore::ACamera* const camera = provider == nullptr ? nullptr : provider->GetCamera();
    if (camera == nullptr)
        return {};
    float eye[3], target[3], up[3];
    camera->GetCamera(eye, target, up);
    return CameraForm(eye, target, up) + L"\n(view:projection \"" +
           (camera->IsOrthographic() ? L"parallel" : L"perspective") + L"\")";
}

PngTexts textsOf(IView3D& view, const RunHistory& history)
{
    int width = 0;
    int height = 0;
    view.GetWindowSize(width, height);
    const std::wstring camera = cameraForm(view);
    PngTexts texts = {{"Software", "Pellux " + Utils::WstringToString(ProgramVersion())},
                      {"Title", modelNames()},
                      {"Camera", Utils::WstringToString(camera)}};
    const std::string command = history.CommandLine(width, height, camera);
    if (!command.empty())
        texts.emplace_back("Command", command);
    return texts;
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
    IView3D* const view = viewFor(fileName, width, height, reason);
    TambVizCore::Image image;
    if (view != nullptr && !view->ReadImage(width, height, image))
        reason = cannotDraw(*view, fileName, width, height);
    else if (view != nullptr && WritePng(fileName, image, textsOf(*view, m_history), reason))
        return true;
    if (errorText != nullptr)
        *errorText = reason;
    return false;
}

bool BufferManipulator::SaveIdPicture(const std::wstring& fileName, int width, int height,
                                      std::vector<EntityId>& entities, std::wstring* errorText)
{
    std::wstring reason;
    IView3D* const view = viewFor(fileName, width, height, reason);
    auto* const provider = dynamic_cast<TambVizCore::IIdPictureProvider*>(view);
    IdPicture picture;
    if (view != nullptr &&
        (provider == nullptr || !provider->ReadIdPicture(width, height, picture)))
        reason = cannotDraw(*view, fileName, width, height);
    if (!reason.empty()) {
        if (errorText != nullptr)
            *errorText = reason;
        return false;
    }
    entities.assign(picture.items.size(), EntityId());
    for (std::size_t i = 0; i < entities.size(); ++i)
        TambVizCore::GetRenderIdEntity(view->GetSceneRoot(), picture.items[i], entities[i]);
    const PngTexts texts = {{"Software", "Pellux " + Utils::WstringToString(ProgramVersion())},
                            {"Entities", listOf(entities)}};
    if (WritePng(fileName, imageOf(picture), texts, reason))
        return true;
    if (errorText != nullptr)
        *errorText = reason;
    return false;
}

} // namespace Pellux
