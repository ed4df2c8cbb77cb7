#ifndef ORVIKCORE_TAMBAPPLICATIONCORESERVICESPELLUX_H
#define ORVIKCORE_TAMBAPPLICATIONCORESERVICESPELLUX_H

#include "OrvikCore/Export.h"

#include <TambCommandsInfra/ITambApplicationCoreServices.h>

#include <string>
#include <vector>

/// The application-core services of scripts: prints, completion texts, colours, folders.
///
/// Each operation finds the session manager, the current session or the current settings through
/// the core's singletons and forwards; without them it does nothing.
///
/// @thread Main thread; the public operations of the base bring calls there.
class ORVIKCORE_API TambApplicationCoreServicesPellux : public ITambApplicationCoreServices
{
public:
    TambApplicationCoreServicesPellux();
    ~TambApplicationCoreServicesPellux() override;

private:
    void PrintMessageImpl(const std::wstring& text) override;
    void PrintWarningMessageImpl(const std::wstring& text) override;
    void PrintErrorMessageImpl(const std::wstring& text) override;
    void SetTooltipImpl(const std::wstring& text) override;
    void AddExtensionInfoImpl(const std::vector<std::wstring>& names,
                              const std::vector<std::wstring>& arguments,
                              const std::wstring& help) override;
    void AddObjectInfoImpl(const std::vector<std::wstring>& names,
                           const std::wstring& help) override;

    /// Pauses the application unless it cannot be paused now (IApplication). Without an application
    /// the contract assertion is raised with "In TambApplicationCoreServicesPellux::PauseImpl: NULL
    /// application in the session.".
    void PauseImpl(bool pause) override;

    Nullable<Color24> GetDefaultFaceColorImpl() override;
    Nullable<Color24> GetDefaultEdgeColorImpl() override;
    Nullable<Color24> GetDefaultVertexColorImpl() override;
    Nullable<Color24> GetDefaultTessEdgeColorImpl() override;

    // The setters store in the current settings, or take red, green and blue (for an alpha: the
    // alpha) from the default settings when there is no value, and then hand the current settings'
    // colours to the options of the current session's view.
    void SetDefaultFaceColorImpl(const Nullable<Color24>& color) override;
    void SetDefaultEdgeColorImpl(const Nullable<Color24>& color) override;
    void SetDefaultVertexColorImpl(const Nullable<Color24>& color) override;
    void SetDefaultTessEdgeColorImpl(const Nullable<Color24>& color) override;
    Nullable<Int8> GetDefaultFaceAlphaImpl() override;
    Nullable<Int8> GetDefaultEdgeAlphaImpl() override;
    Nullable<Int8> GetDefaultVertexAlphaImpl() override;
    void SetDefaultFaceAlphaImpl(const Nullable<Int8>& alpha) override;
    void SetDefaultEdgeAlphaImpl(const Nullable<Int8>& alpha) override;
    void SetDefaultVertexAlphaImpl(const Nullable<Int8>& alpha) override;

    /// @throws std::invalid_argument "Invalid Background Number" unless @p number is 1 or 2.
    Nullable<Color24> GetBackgroundColorImpl(int number) override;

    /// Stores an opaque colour; no value changes nothing.
    /// @throws std::invalid_argument "Invalid Background Number" unless @p number is 1 or 2.
    void SetBackgroundColorImpl(const Nullable<Color24>& color, int number) override;

    Nullable<std::wstring> GetDefaultInputDirectoryImpl() override;
    Nullable<std::wstring> GetDefaultOutputDirectoryImpl() override;

    // No value sets ".".
    void SetDefaultInputDirectoryImpl(const Nullable<std::wstring>& directory) override;
    void SetDefaultOutputDirectoryImpl(const Nullable<std::wstring>& directory) override;
};

#endif
