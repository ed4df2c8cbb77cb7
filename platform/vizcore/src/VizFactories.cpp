#include "TambVizCore/VizFactories.h"

#include "TambVizCore/AView3DAdapter.h"
#include "TambVizCore/AView3DAdapterFactory.h"
#include "TambVizCore/SceneBuilderFactory.h"

namespace TambVizCore {

VizFactories::VizFactories() = default;

VizFactories::~VizFactories() = default;

VizFactories& VizFactories::Instance()
{
    static VizFactories instance;
    return instance;
}

void VizFactories::SetSceneBuilderFactory(SceneBuilderFactory* factory)
{
    if (factory != m_sceneBuilderFactory.get()) {
        m_sceneBuilderFactory.reset(factory);
    }
}

SceneBuilderFactory* VizFactories::GetSceneBuilderFactory() const
{
    return m_sceneBuilderFactory.get();
}

void VizFactories::SetView3DAdapterFactory(AView3DAdapterFactory* factory)
{
    if (factory != m_view3DAdapterFactory.get()) {
        m_view3DAdapterFactory.reset(factory);
    }
}

AView3DAdapterFactory* VizFactories::GetView3DAdapterFactory() const
{
    return m_view3DAdapterFactory.get();
}

AView3DAdapter* VizFactories::CreateView3DAdapter() const
{
    return m_view3DAdapterFactory != nullptr ? m_view3DAdapterFactory->CreateView3DAdapter()
                                             : nullptr;
}

void VizFactories::Terminate()
{
    m_view3DAdapterFactory.reset();
    m_sceneBuilderFactory.reset();
}

} // namespace TambVizCore
