#include "OrvikCore/TambApplicationCoreServicesPellux.h"

#include "CurrentSession.h"

#include "OrvikCore/ASession.h"
#include "OrvikCore/IApplication.h"
#include "OrvikCore/MessageType.h"
#include "OrvikCore/SessionMgr.h"

#include <TambCommandsInfra/Contract.h>
#include <TambVizCore/AView3DAdapter.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/RGBAColor.h>
#include <TambVizCore/RenderingOptions.h>
#include <TambVizCore/Settings.h>

#include <stdexcept>

using OrvikCore::ASession;
using OrvikCore::MessageType;
using OrvikCore::SessionMgr;
using TambCommandsInfra::Color24;
using TambCommandsInfra::Int8;
using TambCommandsInfra::Nullable;
using TambVizCore::RGBAColor;
using TambVizCore::Settings;

namespace {

constexpr char kInvalidBackgroundNumber[] = "Invalid Background Number";
constexpr std::uint8_t kOpaque = 255;

using Getter = const RGBAColor& (Settings::*)() const;
using Setter = void (Settings::*)(const RGBAColor&);

/// How one colour of the settings is read and written.
struct ColorAccess
{
    Getter get;
    Setter set;
};

constexpr ColorAccess kFace{&Settings::GetDefaultFaceColor, &Settings::SetDefaultFaceColor};
constexpr ColorAccess kEdge{&Settings::GetDefaultEdgeColor, &Settings::SetDefaultEdgeColor};
constexpr ColorAccess kVertex{&Settings::GetDefaultVertexColor, &Settings::SetDefaultVertexColor};
constexpr ColorAccess kTessEdge{&Settings::GetDefaultTessEdgeColor,
                                &Settings::SetDefaultTessEdgeColor};
constexpr ColorAccess kBackground1{&Settings::GetBackgroundColor1, &Settings::SetBackgroundColor1};
constexpr ColorAccess kBackground2{&Settings::GetBackgroundColor2, &Settings::SetBackgroundColor2};

const ColorAccess& background(int number)
{
    switch (number) {
    case 1:
        return kBackground1;
    case 2:
        return kBackground2;
    default:
        throw std::invalid_argument(kInvalidBackgroundNumber);
    }
}

void print(const std::wstring& text, MessageType type)
{
    if (ASession* const session = OrvikCore::FindCurrentSession()) {
        session->PrintMessage(text, type);
    }
}

Nullable<Color24> readColor(const ColorAccess& access)
{
    const Settings* const settings = Settings::Current();
    if (settings == nullptr) {
        return {};
    }
    const RGBAColor& color = (settings->*access.get)();
    return Color24{color.r, color.g, color.b};
}

Nullable<Int8> readAlpha(const ColorAccess& access)
{
    const Settings* const settings = Settings::Current();
    if (settings == nullptr) {
        return {};
    }
    return Int8((settings->*access.get)().a);
}

// Hands the colours of the current settings to the options of the current session's view.
void applyDefaultColors()
{
    TambVizCore::IView3D* const view = OrvikCore::FindCurrentView();
    TambVizCore::AView3DAdapter* const adapter =
        view != nullptr ? view->GetView3DAdapter() : nullptr;
    TambVizCore::RenderingOptions* const options =
        adapter != nullptr ? adapter->GetRenderingOptions() : nullptr;
    const Settings* const settings = Settings::Current();
    if (options == nullptr || settings == nullptr) {
        return;
    }
    options->SetDefaultBodyColor(settings->GetDefaultFaceColor());
    options->SetDefaultFaceColor(settings->GetDefaultFaceColor());
    options->SetDefaultEdgeColor(settings->GetDefaultEdgeColor());
    options->SetDefaultVertexColor(settings->GetDefaultVertexColor());
    options->SetDefaultTessEdgeColor(settings->GetDefaultTessEdgeColor());
    options->SetHighlightColor(settings->GetHighlightColor());
}

// Stores red, green and blue, or restores them from the default settings; alpha stays.
void writeColor(const ColorAccess& access, const Nullable<Color24>& color)
{
    if (Settings* const settings = Settings::Current()) {
        const RGBAColor& initial = (Settings::Default().*access.get)();
        const Color24 rgb = color.ValueOr(Color24{initial.r, initial.g, initial.b});
        const std::uint8_t alpha = (settings->*access.get)().a;
        (settings->*access.set)(RGBAColor(rgb.red, rgb.green, rgb.blue, alpha));
    }
    applyDefaultColors();
}

// Stores alpha, or restores it from the default settings; red, green and blue stay.
void writeAlpha(const ColorAccess& access, const Nullable<Int8>& alpha)
{
    if (Settings* const settings = Settings::Current()) {
        RGBAColor color = (settings->*access.get)();
        color.a = alpha.ValueOr(Int8((Settings::Default().*access.get)().a)).Value();
        (settings->*access.set)(color);
    }
    applyDefaultColors();
}

} // namespace

TambApplicationCoreServicesPellux::TambApplicationCoreServicesPellux() = default;

TambApplicationCoreServicesPellux::~TambApplicationCoreServicesPellux() = default;

void TambApplicationCoreServicesPellux::PrintMessageImpl(const std::wstring& text)
{
    print(text, MessageType::Output);
}

void TambApplicationCoreServicesPellux::PrintWarningMessageImpl(const std::wstring& text)
{
    print(text, MessageType::Warning);
}

void TambApplicationCoreServicesPellux::PrintErrorMessageImpl(const std::wstring& text)
{
    print(text, MessageType::Error);
}

void TambApplicationCoreServicesPellux::SetTooltipImpl(const std::wstring& text)
{
    if (ASession* const session = OrvikCore::FindCurrentSession()) {
        session->ShowToolTip(text);
    }
}

void TambApplicationCoreServicesPellux::AddExtensionInfoImpl(
    const std::vector<std::wstring>& names, const std::vector<std::wstring>& arguments,
    const std::wstring& help)
{
    SessionMgr::Instance().AddExtensionInfo(names, arguments, help);
}

void TambApplicationCoreServicesPellux::AddObjectInfoImpl(const std::vector<std::wstring>& names,
                                                          const std::wstring& help)
{
    SessionMgr::Instance().AddExtensionObject(names, help);
}

void TambApplicationCoreServicesPellux::PauseImpl(bool pause)
{
    OrvikCore::IApplication* const application = SessionMgr::Instance().GetApplication();
    TambCommandsInfra::AssertContract(
        application != nullptr,
        "In TambApplicationCoreServicesPellux::PauseImpl: NULL application in the session.",
        "TambApplicationCoreServicesPellux::PauseImpl");
    if (application != nullptr && !application->IsBatchMode()) {
        application->Pause(pause);
    }
}

Nullable<Color24> TambApplicationCoreServicesPellux::GetDefaultFaceColorImpl()
{
    return readColor(kFace);
}

Nullable<Color24> TambApplicationCoreServicesPellux::GetDefaultEdgeColorImpl()
{
    return readColor(kEdge);
}

Nullable<Color24> TambApplicationCoreServicesPellux::GetDefaultVertexColorImpl()
{
    return readColor(kVertex);
}

Nullable<Color24> TambApplicationCoreServicesPellux::GetDefaultTessEdgeColorImpl()
{
    return readColor(kTessEdge);
}

void TambApplicationCoreServicesPellux::SetDefaultFaceColorImpl(const Nullable<Color24>& color)
{
    writeColor(kFace, color);
}

void TambApplicationCoreServicesPellux::SetDefaultEdgeColorImpl(const Nullable<Color24>& color)
{
    writeColor(kEdge, color);
}

void TambApplicationCoreServicesPellux::SetDefaultVertexColorImpl(const Nullable<Color24>& color)
{
    writeColor(kVertex, color);
}

void TambApplicationCoreServicesPellux::SetDefaultTessEdgeColorImpl(const Nullable<Color24>& color)
{
    writeColor(kTessEdge, color);
}

Nullable<Int8> TambApplicationCoreServicesPellux::GetDefaultFaceAlphaImpl()
{
    return readAlpha(kFace);
}

Nullable<Int8> TambApplicationCoreServicesPellux::GetDefaultEdgeAlphaImpl()
{
    return readAlpha(kEdge);
}

Nullable<Int8> TambApplicationCoreServicesPellux::GetDefaultVertexAlphaImpl()
{
    return readAlpha(kVertex);
}

void TambApplicationCoreServicesPellux::SetDefaultFaceAlphaImpl(const Nullable<Int8>& alpha)
{
    writeAlpha(kFace, alpha);
}

void TambApplicationCoreServicesPellux::SetDefaultEdgeAlphaImpl(const Nullable<Int8>& alpha)
{
    writeAlpha(kEdge, alpha);
}

void TambApplicationCoreServicesPellux::SetDefaultVertexAlphaImpl(const Nullable<Int8>& alpha)
{
    writeAlpha(kVertex, alpha);
}

Nullable<Color24> TambApplicationCoreServicesPellux::GetBackgroundColorImpl(int number)
{
    return readColor(background(number));
}

void TambApplicationCoreServicesPellux::SetBackgroundColorImpl(const Nullable<Color24>& color,
                                                               int number)
{
    const ColorAccess& access = background(number);
    if (!color.HasValue()) {
        return;
    }
    const Color24& rgb = color.Value();
    const RGBAColor opaque(rgb.red, rgb.green, rgb.blue, kOpaque);
    if (Settings* const settings = Settings::Current()) {
        (settings->*access.set)(opaque);
    }
    if (TambVizCore::IView3D* const view = OrvikCore::FindCurrentView()) {
        view->SetBackgroundColor(number, opaque);
    }
}

Nullable<std::wstring> TambApplicationCoreServicesPellux::GetDefaultInputDirectoryImpl()
{
    return SessionMgr::Instance().GetDefaultInputDirectory();
}

Nullable<std::wstring> TambApplicationCoreServicesPellux::GetDefaultOutputDirectoryImpl()
{
    return SessionMgr::Instance().GetDefaultOutputDirectory();
}

void TambApplicationCoreServicesPellux::SetDefaultInputDirectoryImpl(
    const Nullable<std::wstring>& directory)
{
    SessionMgr::Instance().SetDefaultInputDirectory(directory.ValueOr(L"."));
}

void TambApplicationCoreServicesPellux::SetDefaultOutputDirectoryImpl(
    const Nullable<std::wstring>& directory)
{
    SessionMgr::Instance().SetDefaultOutputDirectory(directory.ValueOr(L"."));
}
