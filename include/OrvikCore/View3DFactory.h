#ifndef ORVIKCORE_VIEW3DFACTORY_H
#define ORVIKCORE_VIEW3DFACTORY_H

#include "OrvikCore/ACameraFactory.h"
#include "OrvikCore/Export.h"

#include <string>

namespace TambVizCore {
class AView3DAdapter;
class IView3D;
} // namespace TambVizCore

namespace OrvikCore {

class ACamera;

class AView3DControllerAdapter;

/// Makes the 3D views of sessions from the view plugin named in the configuration.
///
/// Reads the sections "View3D" ("File", "Name", "Controller"), "SceneBuilder" and "View3DAdapter"
/// ("File", "Name") of Config. One per process, made on first use, gone after Terminate(); a later
/// use makes a fresh one. @thread  Main thread.
class ORVIKCORE_API View3DFactory
{
public:
    /// @return the factory; not owned, valid until Terminate().
    static View3DFactory& Instance();

    View3DFactory(const View3DFactory&) = delete;
    View3DFactory& operator=(const View3DFactory&) = delete;

    /// Registers the factories of scene builders, view adapters and cameras.
    ///
    /// @return false, with nothing changed, when that was done before.
    bool Init();

    /// Destroys the factory with its camera prototypes. @return true.
    static bool Terminate();

    /// Makes a view, with an adapter and its display options; calls Init() first where needed.
    ///
    /// The plugin is "File" of "View3D", else "OrvikView3dOpenGlSG.Plugin.dll"; the object is
    /// "Name", else "View3dOpenGlSG".
    ///
    /// @return a new view (transferred out), or null when the plugin does not give one.
    TambVizCore::IView3D* CreateView();

    /// Makes the controller adapter named by "File" and "Controller" of "View3D".
    ///
    /// @return a new adapter (transferred out); null before Init(), without one of the two entries,
    ///         or when the plugin does not give one.
    AView3DControllerAdapter* CreateView3DControllerAdapter();

    /// Adds a camera of a plugin (transferred in; null is ignored) to the factory of cameras. A
    /// name that is there already is never found again.
    void AddCameraPrototype(ACamera* prototype);

    /// @return the factory of cameras; valid until Terminate(), without the core's own before
    /// Init().
    const ACameraFactory& GetCameraFactory() const;

private:
    View3DFactory();
    ~View3DFactory();

    void registerSceneBuilderFactory();
    void registerViewAdapterFactory();
    void registerCameraFactory();
    void setDisplayOptions(TambVizCore::AView3DAdapter* adapter);
    bool getConfigValue(const std::wstring& section, const std::wstring& key, std::wstring& out);
    void* createObject(const std::wstring& file, const std::wstring& name,
                       const std::wstring& section);

    bool m_initialized = false;
    ACameraFactory m_cameraFactory;
};

} // namespace OrvikCore

#endif
