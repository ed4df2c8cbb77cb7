#include "TambCommandsInfra/ITambApplicationCoreServices.h"

#include "ServiceTexts.h"
#include "TambCommandsInfra/CallGate.h"

#include <stdexcept>

using TambCommandsInfra::CallGate;

namespace {

/// Hands a text to the main thread and does not wait for it.
template <typename Show> void post(const std::wstring& text, Show show)
{
    const std::size_t bytes = text.size() * sizeof(wchar_t);
    if (!CallGate::Post([text, show] { show(text); }, bytes)) {
        throw std::runtime_error(TambCommandsInfra::kApplicationClosing);
    }
}

} // namespace

ITambApplicationCoreServices::ITambApplicationCoreServices()
    : ITambServiceSet(TambServiceKind::ApplicationCore)
{
}

ITambApplicationCoreServices::~ITambApplicationCoreServices() = default;

void ITambApplicationCoreServices::PrintMessage(const std::wstring& text)
{
    post(text, [this](const std::wstring& shown) { PrintMessageImpl(shown); });
}

void ITambApplicationCoreServices::PrintWarningMessage(const std::wstring& text)
{
    post(text, [this](const std::wstring& shown) { PrintWarningMessageImpl(shown); });
}

void ITambApplicationCoreServices::PrintErrorMessage(const std::wstring& text)
{
    post(text, [this](const std::wstring& shown) { PrintErrorMessageImpl(shown); });
}

void ITambApplicationCoreServices::SetTooltip(const std::wstring& text)
{
    post(text, [this](const std::wstring& shown) { SetTooltipImpl(shown); });
}

void ITambApplicationCoreServices::AddExtensionInfo(const std::vector<std::wstring>& names,
                                                    const std::vector<std::wstring>& arguments,
                                                    const std::wstring& help)
{
    CallGate::Call([&] { AddExtensionInfoImpl(names, arguments, help); });
}

void ITambApplicationCoreServices::AddObjectInfo(const std::vector<std::wstring>& names,
                                                 const std::wstring& help)
{
    CallGate::Call([&] { AddObjectInfoImpl(names, help); });
}

void ITambApplicationCoreServices::Pause(bool pause)
{
    CallGate::Call([&] { PauseImpl(pause); });
}

auto ITambApplicationCoreServices::GetDefaultFaceColor() -> Nullable<Color24>
{
    return CallGate::Call([&] { return GetDefaultFaceColorImpl(); });
}

auto ITambApplicationCoreServices::GetDefaultEdgeColor() -> Nullable<Color24>
{
    return CallGate::Call([&] { return GetDefaultEdgeColorImpl(); });
}

auto ITambApplicationCoreServices::GetDefaultVertexColor() -> Nullable<Color24>
{
    return CallGate::Call([&] { return GetDefaultVertexColorImpl(); });
}

auto ITambApplicationCoreServices::GetDefaultTessEdgeColor() -> Nullable<Color24>
{
    return CallGate::Call([&] { return GetDefaultTessEdgeColorImpl(); });
}

void ITambApplicationCoreServices::SetDefaultFaceColor(const Nullable<Color24>& color)
{
    CallGate::Call([&] { SetDefaultFaceColorImpl(color); });
}

void ITambApplicationCoreServices::SetDefaultEdgeColor(const Nullable<Color24>& color)
{
    CallGate::Call([&] { SetDefaultEdgeColorImpl(color); });
}

void ITambApplicationCoreServices::SetDefaultVertexColor(const Nullable<Color24>& color)
{
    CallGate::Call([&] { SetDefaultVertexColorImpl(color); });
}

void ITambApplicationCoreServices::SetDefaultTessEdgeColor(const Nullable<Color24>& color)
{
    CallGate::Call([&] { SetDefaultTessEdgeColorImpl(color); });
}

auto ITambApplicationCoreServices::GetDefaultFaceAlpha() -> Nullable<Int8>
{
    return CallGate::Call([&] { return GetDefaultFaceAlphaImpl(); });
}

auto ITambApplicationCoreServices::GetDefaultEdgeAlpha() -> Nullable<Int8>
{
    return CallGate::Call([&] { return GetDefaultEdgeAlphaImpl(); });
}

auto ITambApplicationCoreServices::GetDefaultVertexAlpha() -> Nullable<Int8>
{
    return CallGate::Call([&] { return GetDefaultVertexAlphaImpl(); });
}

void ITambApplicationCoreServices::SetDefaultFaceAlpha(const Nullable<Int8>& alpha)
{
    CallGate::Call([&] { SetDefaultFaceAlphaImpl(alpha); });
}

void ITambApplicationCoreServices::SetDefaultEdgeAlpha(const Nullable<Int8>& alpha)
{
    CallGate::Call([&] { SetDefaultEdgeAlphaImpl(alpha); });
}

void ITambApplicationCoreServices::SetDefaultVertexAlpha(const Nullable<Int8>& alpha)
{
    CallGate::Call([&] { SetDefaultVertexAlphaImpl(alpha); });
}

auto ITambApplicationCoreServices::GetBackgroundColor(int number) -> Nullable<Color24>
{
    return CallGate::Call([&] { return GetBackgroundColorImpl(number); });
}

void ITambApplicationCoreServices::SetBackgroundColor(const Nullable<Color24>& color, int number)
{
    CallGate::Call([&] { SetBackgroundColorImpl(color, number); });
}

auto ITambApplicationCoreServices::GetDefaultInputDirectory() -> Nullable<std::wstring>
{
    return CallGate::Call([&] { return GetDefaultInputDirectoryImpl(); });
}

auto ITambApplicationCoreServices::GetDefaultOutputDirectory() -> Nullable<std::wstring>
{
    return CallGate::Call([&] { return GetDefaultOutputDirectoryImpl(); });
}

void ITambApplicationCoreServices::SetDefaultInputDirectory(const Nullable<std::wstring>& directory)
{
    CallGate::Call([&] { SetDefaultInputDirectoryImpl(directory); });
}

void ITambApplicationCoreServices::SetDefaultOutputDirectory(
    const Nullable<std::wstring>& directory)
{
    CallGate::Call([&] { SetDefaultOutputDirectoryImpl(directory); });
}
