#include "EmbreeDevice.h"

#include <OrvikOs/DebugOutput.h>
#include <OrvikOs/FpMasked.h>
#include <OrvikOs/ParallelFor.h>

#include <algorithm>
#include <cstdint>
#include <exception>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>

namespace OrvikRay {

using TambVizCore::Geometry;

namespace {

/// Names of the library on the systems that it exists for.
constexpr const wchar_t* kLibraryNames[] = {L"libembree3.so.3", L"embree3.dll"};

/// The smallest page of any system.
constexpr std::uintptr_t kPageSize = 4096;

/// Embree loads 16 bytes per vertex and drops the last four. Behind the last vertex that is
/// harmless as long as the page goes on there.
bool mayReadBeyond(const TambVizCore::SharedArray<float>& positions)
{
    const auto end = reinterpret_cast<std::uintptr_t>(positions.Data() + positions.Size());
    return end % kPageSize != 0;
}

[[noreturn]] void fail(RTCError error)
{
    if (error == RTC_ERROR_OUT_OF_MEMORY)
        throw std::bad_alloc();
    throw std::runtime_error("Embree failed with error " + std::to_string(error) + ".");
}

std::unique_ptr<EmbreeDevice> makeShared()
{
    std::string error;
    for (const wchar_t* const name : kLibraryNames) {
        EmbreeApi api;
        if (!LoadEmbree(name, api, error))
            continue;
        try {
            return std::make_unique<EmbreeDevice>(api);
        } catch (const std::runtime_error& failure) {
            error = failure.what();
        }
    }
    OrvikOs::WriteDebug(("Embree is not used: " + error + "\n").c_str());
    return nullptr;
}

} // namespace

const EmbreeDevice* EmbreeDevice::Shared()
{
    static const EmbreeDevice* const device = [] {
        // Embree's threads inherit the setting of the thread that makes them.
        const OrvikOs::FpMasked masked;
        return makeShared().release();
    }();
    return device;
}

EmbreeDevice::EmbreeDevice(const EmbreeApi& api) : m_api(api)
{
    // As many as join, so that Embree makes no threads of its own.
    const std::string threads = std::to_string(OrvikOs::ParallelWidth());
    const std::string configuration =
        "set_affinity=0,threads=" + threads + ",user_threads=" + threads;
    m_device = m_api.newDevice(configuration.c_str());
    if (m_device == nullptr)
        fail(m_api.getDeviceError(nullptr));
    m_api.setDeviceMemoryMonitorFunction(m_device, &EmbreeDevice::countMemory, this);
}

EmbreeDevice::~EmbreeDevice()
{
    m_api.releaseDevice(m_device);
}

bool EmbreeDevice::countMemory(void* device, ssize_t bytes, bool /*isDone*/)
{
    static_cast<EmbreeDevice*>(device)->m_bytes.fetch_add(bytes, std::memory_order_relaxed);
    return true;
}

void EmbreeDevice::check() const
{
    const RTCError error = m_api.getDeviceError(m_device);
    if (error != RTC_ERROR_NONE)
        fail(error);
}

EmbreeScene::EmbreeScene(const Geometry& geometry, const EmbreeDevice& device) : m_device(device)
{
    const EmbreeApi& api = device.Api();
    const float* positions = geometry.Positions().Data();
    if (!mayReadBeyond(geometry.Positions())) {
        m_copy.reserve(geometry.Positions().Size() + 1);
        m_copy.assign(positions, positions + geometry.Positions().Size());
        positions = m_copy.data();
    }
    // Embree's tasks run with the setting of the thread that commits.
    const OrvikOs::FpMasked masked;
    const std::lock_guard<std::mutex> lock(device.m_building);
    const std::ptrdiff_t before = device.m_bytes.load(std::memory_order_relaxed);
    std::unique_ptr<RTCSceneTy, decltype(&rtcReleaseScene)> scene(api.newScene(device.m_device),
                                                                  api.releaseScene);
    device.check();
    const std::unique_ptr<RTCGeometryTy, decltype(&rtcReleaseGeometry)> mesh(
        api.newGeometry(device.m_device, RTC_GEOMETRY_TYPE_TRIANGLE), api.releaseGeometry);
    device.check();
    api.setSharedGeometryBuffer(mesh.get(), RTC_BUFFER_TYPE_VERTEX, 0, RTC_FORMAT_FLOAT3, positions,
                                0, 3 * sizeof(float), geometry.VertexCount());
    api.setSharedGeometryBuffer(mesh.get(), RTC_BUFFER_TYPE_INDEX, 0, RTC_FORMAT_UINT3,
                                geometry.Triangles().Data(), 0, 3 * sizeof(std::uint32_t),
                                geometry.TriangleCount());
    api.commitGeometry(mesh.get());
    api.attachGeometry(scene.get(), mesh.get());
    api.setSceneFlags(scene.get(), RTC_SCENE_FLAG_COMPACT | RTC_SCENE_FLAG_ROBUST |
                                       RTC_SCENE_FLAG_CONTEXT_FILTER_FUNCTION);
    api.setSceneBuildQuality(scene.get(), RTC_BUILD_QUALITY_MEDIUM);
    device.check();
    OrvikOs::ParallelFor(OrvikOs::ParallelWidth(), 1, [&](std::size_t, std::size_t) {
        api.joinCommitScene(scene.get());
        device.check();
    });
    m_bytes = static_cast<std::size_t>(
        std::max<std::ptrdiff_t>(device.m_bytes.load(std::memory_order_relaxed) - before, 0));
    m_scene = scene.release();
}

EmbreeScene::~EmbreeScene()
{
    const std::lock_guard<std::mutex> lock(m_device.m_building);
    m_device.Api().releaseScene(m_scene);
}

} // namespace OrvikRay
