#ifndef VIEWOPENGL_VIEW3DOPENGLSG_H
#define VIEWOPENGL_VIEW3DOPENGLSG_H

#include "FrameCost.h"
#include "FrameState.h"
#include "FrameTarget.h"
#include "GlContext.h"
#include "SceneRenderer.h"
#include "TimeSlice.h"
#include "ViewObjects.h"

#include <OrvikCore/AView3D.h>
#include <OrvikCore/IBoxPicker.h>
#include <OrvikCore/IFrameProvider.h>
#include <TambVizCore/IIdPictureProvider.h>
#include <TambVizCore/IPictureErrorProvider.h>
#include <TambVizCore/RGBAColor.h>
#include <TambVizCore/ScenePick.h>
#include <TambVizCore/ViewDoUndoStrategy.h>

#include <memory>
#include <optional>
#include <string>

namespace OrvikCore {
class ViewOpDrag;
class ViewOpZoom;
} // namespace OrvikCore

namespace ViewOpenGl {

/// The 3D view: draws the scene with OpenGL into a framebuffer of its own.
///
/// The context is made when something is to be drawn for the first time, so a run without pictures
/// never pays for it. Hover and surface points are rays through the spatial indexes of the scene.
/// A context that the driver takes away is replaced, and everything in it made anew from the scene.
/// @thread Main thread.
class View3dOpenGlSG : public OrvikCore::AView3D,
                       public ViewObjects,
                       public OrvikCore::IFrameProvider,
                       public OrvikCore::IBoxPicker,
                       public TambVizCore::IIdPictureProvider,
                       public TambVizCore::IPictureErrorProvider
{
public:
    View3dOpenGlSG();
    ~View3dOpenGlSG() override;

    View3dOpenGlSG(const View3dOpenGlSG&) = delete;
    View3dOpenGlSG& operator=(const View3dOpenGlSG&) = delete;

    void GetSceneGraphStructure(std::string& out, bool withParts) override;

    float GetGeometryRadius() const override;
    const float* GetGeometryCenter() const override;
    bool GetBoundingBox(const TambVizCore::RenderId& id, TambVizCore::VizBox& box) override;
    bool GetBoundingBox(const TambVizCore::EntityId& id, TambVizCore::VizBox& box) override;
    TambVizCore::Node& GetSceneRoot() override;

    /// Paints the window where something changed. Without a window nothing is shown; the context
    /// and the shaders are then made ready, so that a picture asked for later starts at once.
    void UpdateDisplay() override;
    void Rerender() override;
    bool ReadImage(int width, int height, TambVizCore::Image& image) override;
    bool ReadIdPicture(int width, int height, TambVizCore::IdPicture& picture) override;
    std::string GetPictureError() const override { return m_pictureError; }

    bool GetRenderIdAtPixel(int x, int y, TambVizCore::RenderId& id) override;
    bool GetSurfacePointAtPixel(int x, int y, float* point) override;
    TambVizCore::IHighlightStrategy* GetHighlightStrategy() override;
    void GetViewportSize(int& width, int& height) const override;
    void ResizeViewport(int width, int height) override;
    bool GetViewportBackground(int number, TambVizCore::RGBAColor& color) const override;

    /// The colour holds until the view ends; until the first call the current settings decide.
    bool SetViewportBackground(int number, const TambVizCore::RGBAColor& color) override;
    void ClearViewport() override;

    /// Without a window nothing is drawn before somebody asks for a picture.
    void DrawDimension(const OrvikCore::Dimension& dimension) override;
    void ClearDimensions() override;

    std::vector<TambVizCore::EntityId> FindInBox(const OrvikCore::PickBox& box) override;

    void SetFrameWindow(OrvikCore::IFrameWindow* window) override;
    bool UseWindowContext(std::string& errorText) override;
    void ReleaseWindowContext() override;
    bool NeedsFrame() override;
    bool DrawFrame() override;
    bool ReadFrame(const OrvikCore::FrameRows& rows) override;
    bool BlitFrame(unsigned int framebuffer, int width, int height) override;
    bool Refine(int milliseconds) override;
    std::uint64_t GetFrameCount() const override;
    void EndGesture() override;

protected:
    /// @return the context that is drawn with; null while there is none. Not owned.
    GlContext* context() { return m_context.get(); }

    /// Zooms to the pointer; follows drags with the rubber band and selects at their end, before
    /// the base does its work.
    void ControllerNotify(OrvikCore::IViewOp* op) override;

private:
    /// What a window shows.
    struct FrameShown
    {
        bool operator==(const FrameShown& other) const = default;

        FrameState frame;
        bool isTurning = false;    ///< With the mark of the rotation centre.
        std::uint64_t overlay = 0; ///< Stamp of what lies over the frame; 0 for nothing.
    };

    /// How well the window shows what it was asked for.
    enum class FrameStage
    {
        Coarse, ///< As something coarser, or as it was before.
        Full,   ///< In full, but not smooth.
        Smooth  ///< As it stays: in full, with the samples that it gets.
    };

    /// How far the next stage is.
    enum class StageProgress
    {
        None,
        Drawing,
        Drawn ///< Not in the frame yet.
    };

    /// What is drawn for: the mark at the rotation centre is in pictures only on request.
    enum class Purpose
    {
        Frame,
        Picture
    };

    bool prepare();
    void takeContext(std::unique_ptr<GlContext> context);
    void dropContext();
    void clearGraphics();
    bool bindTarget(FrameTarget& target, int width, int height, int samples);
    bool drawImage(int width, int height, TambVizCore::Image& image);
    bool drawIdPicture(int width, int height, TambVizCore::IdPicture& picture);
    bool refusePicture(std::string reason);
    bool preparePicture(int width, int height);
    void forgetFrame();
    int affordableSamples(int width, int height);
    FrameStage stageAtOnce() const;
    bool drawFrameNow();
    bool drawScene(const Coarseness& coarseness, bool isSmooth);
    bool bindSmooth();
    bool refineFrame(const TimeSlice& slice);
    bool beginStage(const TimeSlice& slice);
    bool drawStage(const TimeSlice& slice, FrameWork work, std::uint64_t beganUs);
    bool showStage();
    bool showFrame();
    void learnCost(CostModel& cost, const FrameWork& work, std::uint64_t beganUs);
    FrameWork workBeside() const;
    bool overlayShows();
    FrameTarget& shownTarget();
    FrameShown wantedFrame();
    void prepareScene(const PictureScale& scale, Purpose purpose);
    void drawFront(const PictureScale& scale, int width, int height);
    void beginPicture(int width, int height, Purpose purpose, const TimeSlice& upload);
    void endPicture(int width, int height);
    Projection projectionOf(int width, int height);
    PictureScale scaleOf(const Projection& projection, int height) const;
    double windowRatio() const;
    void drawAxes(const Projection& projection, int width, int height);
    void drawOverlay(int width, int height);
    void followDrag(const OrvikCore::ViewOpDrag& op);
    void selectInBand();
    void zoomToPointer(OrvikCore::ViewOpZoom& op);
    bool pickAtPixel(int x, int y, TambVizCore::PartKinds kinds, TambVizCore::PartKinds modelKinds,
                     TambVizCore::ScenePickResult& result);

    std::unique_ptr<TambVizCore::Node> m_root;
    std::unique_ptr<TambVizCore::ViewDoUndoStrategy> m_undoStrategy;
    std::unique_ptr<GlContext> m_context; ///< Null until something is drawn.
    bool m_contextFailed = false;         ///< Not tried again.
    std::string m_contextError;           ///< Why it failed.
    std::string m_pictureError;           ///< Why the last picture failed; empty if it did not.
    SceneRenderer m_renderer;
    FrameTarget m_target;                        ///< Of pictures.
    OrvikCore::IFrameWindow* m_window = nullptr; ///< Not owned; shows the frames.
    FrameTarget m_frame;                         ///< Of the window, without what lies over it.
    FrameTarget m_present;                       ///< The same with it; empty while nothing does.
    FrameTarget m_next;                          ///< The frame that is drawn in slices.
    FrameTarget m_small;                         ///< A coarse frame before it is stretched.
    FrameTarget m_smooth;                        ///< The same with more samples; empty without.
    std::optional<FrameShown> m_goal;            ///< What DrawFrame was asked for last.
    bool m_hasFrame = false;                     ///< There is something in m_frame.
    FrameStage m_stage = FrameStage::Coarse;     ///< How it shows the goal.
    StageProgress m_progress = StageProgress::None;
    int m_samples = 1;      ///< Of a pixel of the goal.
    CostModel m_cost;       ///< Of frames with one sample a pixel.
    CostModel m_smoothCost; ///< Of frames with more.
    std::uint64_t m_frameCount = 0;
    std::optional<TambVizCore::RGBAColor> m_background[2];
    /// Of the drag being followed: where it began, and its last point on the way.
    std::optional<PixelRectangle> m_band;
    bool m_isTurning = false; ///< The mouse turns the camera.
    int m_width = 0;
    int m_height = 0;
    double m_pixelRatio = 1.0; ///< Of what is being drawn; see IFrameWindow::GetPixelRatio.
    mutable float m_center[3] = {0.0f, 0.0f, 0.0f}; ///< Answer of GetGeometryCenter.
};

} // namespace ViewOpenGl

#endif
