#ifndef ORVIKRAY_EMBREEAPI_H
#define ORVIKRAY_EMBREEAPI_H

#include <embree3/rtcore.h>

#include <string>

namespace OrvikRay {

/// The functions of Embree 3 that are used here, found at run time: its library (40 MB) is loaded
/// when the first large geometry asks for an index, never at start.
struct EmbreeApi
{
    decltype(&rtcNewDevice) newDevice = nullptr;
    decltype(&rtcReleaseDevice) releaseDevice = nullptr;
    decltype(&rtcGetDeviceError) getDeviceError = nullptr;
    decltype(&rtcSetDeviceMemoryMonitorFunction) setDeviceMemoryMonitorFunction = nullptr;
    decltype(&rtcNewScene) newScene = nullptr;
    decltype(&rtcReleaseScene) releaseScene = nullptr;
    decltype(&rtcSetSceneFlags) setSceneFlags = nullptr;
    decltype(&rtcSetSceneBuildQuality) setSceneBuildQuality = nullptr;
    decltype(&rtcAttachGeometry) attachGeometry = nullptr;
    decltype(&rtcJoinCommitScene) joinCommitScene = nullptr;
    decltype(&rtcNewGeometry) newGeometry = nullptr;
    decltype(&rtcReleaseGeometry) releaseGeometry = nullptr;
    decltype(&rtcSetSharedGeometryBuffer) setSharedGeometryBuffer = nullptr;
    decltype(&rtcCommitGeometry) commitGeometry = nullptr;
    decltype(&rtcIntersect1) intersect1 = nullptr;
    decltype(&rtcPointQuery) pointQuery = nullptr;
};

/// Loads Embree's library, which then stays for the life of the process, and finds its functions.
///
/// @param fileName  A path, or a bare name for the system to look up.
/// @param error     Receives the reason on failure.
/// @return false, with @p api incomplete, when the library cannot be loaded or lacks a function.
bool LoadEmbree(const std::wstring& fileName, EmbreeApi& api, std::string& error);

} // namespace OrvikRay

#endif
