#ifndef TAMBVIZCORE_VIZFACTORIES_H
#define TAMBVIZCORE_VIZFACTORIES_H

#include "TambVizCore/Export.h"

#include <memory>

namespace TambVizCore {

class AView3DAdapter;
class AView3DAdapterFactory;
class SceneBuilderFactory;

/// The factories of what a view is made of, one of each kind for the process.
///
/// Filled when the core sets up its view factory, emptied by Terminate or at the end of the
/// process.
///
/// @thread Main thread.
class TAMBVIZCORE_API VizFactories
{
public:
    /// @return the one instance, made on first use.
    static VizFactories& Instance();

    VizFactories(const VizFactories&) = delete;
    VizFactories& operator=(const VizFactories&) = delete;

    /// Keeps @p factory (transferred in, may be null) and deletes the one held before, unless it is
    /// the same.
    void SetSceneBuilderFactory(SceneBuilderFactory* factory);
    /// @return the factory, not owned, valid until the next set; null when none is set.
    SceneBuilderFactory* GetSceneBuilderFactory() const;

    /// Keeps @p factory (transferred in, may be null) and deletes the one held before, unless it is
    /// the same.
    void SetView3DAdapterFactory(AView3DAdapterFactory* factory);
    /// @return the factory, not owned, valid until the next set; null when none is set.
    AView3DAdapterFactory* GetView3DAdapterFactory() const;
    /// @return what the adapter factory makes (transferred out); null without a factory: then a
    ///         view is its own adapter.
    AView3DAdapter* CreateView3DAdapter() const;

    /// Deletes both factories.
    void Terminate();

private:
    VizFactories();
    ~VizFactories();

    std::unique_ptr<SceneBuilderFactory> m_sceneBuilderFactory;
    std::unique_ptr<AView3DAdapterFactory> m_view3DAdapterFactory;
};

} // namespace TambVizCore

#endif
