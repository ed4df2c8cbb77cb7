#include "EmbreeApi.h"

#include <OrvikOs/Library.h>
#include <OrvikOs/Utf8.h>

namespace OrvikRay {

namespace {

/// Finds the functions of a library and remembers the first that is not there.
class Binder
{
public:
    explicit Binder(const OrvikOs::Library& library) : m_library(library) {}

    template <typename Function> Binder& Bind(const char* name, Function& function)
    {
        function = reinterpret_cast<Function>(m_library.Symbol(name));
        if (function == nullptr && m_missing.empty())
            m_missing = name;
        return *this;
    }

    const std::string& Missing() const { return m_missing; }

private:
    const OrvikOs::Library& m_library;
    std::string m_missing;
};

} // namespace

bool LoadEmbree(const std::wstring& fileName, EmbreeApi& api, std::string& error)
{
    OrvikOs::Library library;
    if (!library.Load(fileName)) {
        error = OrvikOs::WideToUtf8(library.ErrorText());
        return false;
    }
    Binder binder(library);
    binder.Bind("rtcNewDevice", api.newDevice)
        .Bind("rtcReleaseDevice", api.releaseDevice)
        .Bind("rtcGetDeviceError", api.getDeviceError)
        .Bind("rtcSetDeviceMemoryMonitorFunction", api.setDeviceMemoryMonitorFunction)
        .Bind("rtcNewScene", api.newScene)
        .Bind("rtcReleaseScene", api.releaseScene)
        .Bind("rtcSetSceneFlags", api.setSceneFlags)
        .Bind("rtcSetSceneBuildQuality", api.setSceneBuildQuality)
        .Bind("rtcAttachGeometry", api.attachGeometry)
        .Bind("rtcJoinCommitScene", api.joinCommitScene)
        .Bind("rtcNewGeometry", api.newGeometry)
        .Bind("rtcReleaseGeometry", api.releaseGeometry)
        .Bind("rtcSetSharedGeometryBuffer", api.setSharedGeometryBuffer)
        .Bind("rtcCommitGeometry", api.commitGeometry)
        .Bind("rtcIntersect1", api.intersect1)
        .Bind("rtcPointQuery", api.pointQuery);
    if (!binder.Missing().empty()) {
        error = "no function " + binder.Missing();
        return false;
    }
    library.Detach();
    return true;
}

} // namespace OrvikRay
