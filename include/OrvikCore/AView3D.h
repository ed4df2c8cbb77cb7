#ifndef ORVIKCORE_AVIEW3D_H
#define ORVIKCORE_AVIEW3D_H

#include "OrvikCore/AView3DControllerAdapter.h"
#include "OrvikCore/Export.h"
#include "OrvikCore/ICameraProvider.h"
#include "OrvikCore/IControllerListener.h"
#include "OrvikCore/IControllerProvider.h"

#include <TambVizCore/AView3DAdapter.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/RenderingOptions.h>

#include <cstdint>
#include <memory>
#include <string>

namespace TambVizCore {
class SelectionHolder;
}

namespace OrvikCore {

class ACamera;
class Controller;
class Document;

/// Base of the 3D views: owns the camera, the controller, the selection holder and the display
/// options, and sends each view operation to the camera or to the controller adapter.
///
/// A view is its own adapter and its own controller adapter. A concrete view supplies the scene
/// (GetSceneRoot, geometry, boxes, which it gives to the selection holder too), the pixels
/// (GetRenderIdAtPixel, GetSurfacePointAtPixel, the viewport operations), the undo strategy and
/// drawing. Window size, background, Convert and Clear forward to the adapter's operations.
///
/// Neither constructor nor destructor touches the current session.
///
/// @thread  Main thread.
class ORVIKCORE_API AView3D : public TambVizCore::IView3D,
                              public TambVizCore::AView3DAdapter,
                              public AView3DControllerAdapter,
                              public ICameraProvider,
                              public IControllerProvider,
                              protected IControllerListener
{
public:
    /// Makes a CameraYUp, a controller that has the view as its first listener, a selection holder
    /// without scene, and display options with the colours of the current settings.
    AView3D();
    ~AView3D() override;

    /// @return "OrvikCoreView3D".
    std::string GetName() const override;

    /// Writes "No graph structure in AView3D by default".
    void GetSceneGraphStructure(std::string& out, bool withParts) override;

    void GetWindowSize(int& width, int& height) const override;
    void SetWindowSize(int width, int height) override;
    void* GetWindowHandle() const override;
    void SetWindowHandle(void* handle) override;
    bool Convert(const TambVizCore::RenderId& id, TambVizCore::EntityId& entity) override;
    TambVizCore::SelectionHolder* GetSelectionHolder() override;

    /// @return the view itself.
    TambVizCore::AView3DAdapter* GetView3DAdapter() override;

    /// @return false: no object of the view takes picks.
    bool NotifyPick(const TambVizCore::Ray& ray) override;
    bool GetBackgroundColor(int number, TambVizCore::RGBAColor& color) const override;
    bool SetBackgroundColor(int number, const TambVizCore::RGBAColor& color) override;
    void Clear() override;

    /// @return the display options; owned by the view.
    TambVizCore::RenderingOptions* GetRenderingOptions() override;

    /// @return the camera; owned by the view, valid until SetCamera() or destruction.
    ACamera* GetCamera() override;

    /// Keeps @p camera (transferred in; null is ignored) and deletes the one held before.
    void SetCamera(ACamera* camera);

    /// @return the controller; owned by the view.
    Controller* GetController() const override;

    /// Keeps @p document (not owned, may be null) as the one that the view shows.
    void SetDocument(Document* document);

    /// @return the document that the view shows; not owned, may be null.
    Document* GetDocument() const;

protected:
    /// Sends an operation to the camera or to the controller adapter; null is ignored.
    ///
    /// A ray pick that is no reset is followed by a targeting of the camera at the same pixel.
    /// @throws std::invalid_argument "Invalid argument in AView3D::Notify" for an unknown type.
    void ControllerNotify(IViewOp* op) override;

    /// Makes the id of a node of the scene, or of one of its parts.
    /// @param partId  0 for the node itself.
    TambVizCore::RenderId buildRenderId(const TambVizCore::Node& node, std::uint64_t partId) const;

private:
    std::unique_ptr<ACamera> m_camera;
    std::unique_ptr<Controller> m_controller;
    std::unique_ptr<TambVizCore::SelectionHolder> m_selectionHolder;
    TambVizCore::RenderingOptions m_options;
    Document* m_document = nullptr; ///< Not owned.
    void* m_windowHandle = nullptr; ///< Not owned; the host's.
};

} // namespace OrvikCore

#endif
