#ifndef ORVIKRAY_EMBREEDEVICE_H
#define ORVIKRAY_EMBREEDEVICE_H

#include "EmbreeApi.h"

#include <TambVizCore/Geometry.h>

#include <atomic>
#include <cstddef>
#include <mutex>
#include <vector>

namespace OrvikRay {

class EmbreeDevice;

/// One committed scene of one triangle mesh; released at the end.
///
/// @thread Any thread, any number at the same time; immutable once made.
class EmbreeScene
{
public:
    /// @throws std::bad_alloc, std::runtime_error  as MakeEmbreeFaces.
    EmbreeScene(const TambVizCore::Geometry& geometry, const EmbreeDevice& device);
    ~EmbreeScene();
    EmbreeScene(const EmbreeScene&) = delete;
    EmbreeScene& operator=(const EmbreeScene&) = delete;
    EmbreeScene(EmbreeScene&&) = delete;
    EmbreeScene& operator=(EmbreeScene&&) = delete;

    RTCScene Handle() const { return m_scene; }
    std::size_t MemoryBytes() const { return m_bytes + m_copy.capacity() * sizeof(float); }

private:
    const EmbreeDevice& m_device;
    RTCScene m_scene = nullptr; ///< Owned.
    std::vector<float> m_copy;  ///< The positions, where Embree must not read the geometry's own.
    std::size_t m_bytes = 0;    ///< What Embree holds for the scene.
};

/// Embree's device: its threads and the count of its memory.
///
/// Threads are those of ParallelWidth(), the calling one included, and compute only while a scene
/// is built; building takes place one scene after the other.
///
/// @thread Any thread.
class EmbreeDevice
{
public:
    /// The device of this library; made on the first call, which loads Embree, and never deleted.
    /// @return null where Embree is not installed or does not run on this processor; the reason
    ///         goes to the debug channel once.
    static const EmbreeDevice* Shared();

    /// @throws std::bad_alloc       when there is not enough memory.
    /// @throws std::runtime_error   "Embree failed with error N." for any other failure.
    explicit EmbreeDevice(const EmbreeApi& api);
    ~EmbreeDevice();
    EmbreeDevice(const EmbreeDevice&) = delete;
    EmbreeDevice& operator=(const EmbreeDevice&) = delete;
    EmbreeDevice(EmbreeDevice&&) = delete;
    EmbreeDevice& operator=(EmbreeDevice&&) = delete;

    const EmbreeApi& Api() const { return m_api; }

private:
    friend class EmbreeScene;

    static bool countMemory(void* device, ssize_t bytes, bool isDone);
    void check() const;

    EmbreeApi m_api;
    RTCDevice m_device = nullptr; ///< Owned.
    /// Held while a scene is made or released, so that the count can be told scene by scene.
    mutable std::mutex m_building;
    std::atomic<std::ptrdiff_t> m_bytes = 0; ///< Counted on Embree's threads as well.
};

} // namespace OrvikRay

#endif
