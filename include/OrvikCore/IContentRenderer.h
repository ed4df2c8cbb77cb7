#ifndef ORVIKCORE_ICONTENTRENDERER_H
#define ORVIKCORE_ICONTENTRENDERER_H

#include "OrvikCore/Export.h"

#include <string>
#include <vector>

namespace TambVizCore {
class EntityId;
class RenderId;
} // namespace TambVizCore

namespace OrvikCore {

class AContent;

/// Draws one content into one view: the 3D view, or the model tree (ARendererTree).
///
/// The session keeps the renderers and converts ids between its views through them. The base keeps
/// the box and the sphere around what was drawn, and the tessellation parameters, which all
/// renderers of the process share.
///
/// @thread Main thread, inside a commit where the scene or the tree changes.
class ORVIKCORE_API IContentRenderer
{
public:
    IContentRenderer(const IContentRenderer&) = delete;
    IContentRenderer& operator=(const IContentRenderer&) = delete;

    // Virtual operations in slot order; append only.

    /// Builds what shows the content in the view: scene nodes or tree rows. What is built already
    /// is left alone.
    /// @return false when there is nothing to show or it could not be built.
    virtual bool Render() = 0;

    virtual ~IContentRenderer();

    /// Brings what was built up to date with the content and with the present tessellation
    /// parameters; without anything built it is Render().
    /// @return as Render().
    virtual bool Rerender() = 0;

    /// Tells whether this renderer draws @p content (not owned).
    virtual bool IsRendererFor(AContent* content) = 0;

    /// Finds the entity that an id of this renderer's view draws.
    /// @return false when the id is not one of this renderer; @p entity is then not valid.
    virtual bool ConvertToEntityId(const TambVizCore::RenderId& id,
                                   TambVizCore::EntityId& entity) = 0;

    /// Finds the id that draws an entity in this renderer's view.
    /// @return false when this renderer does not draw the entity; @p id is then not valid.
    virtual bool ConvertToRenderId(const TambVizCore::EntityId& entity,
                                   TambVizCore::RenderId& id) = 0;

    /// Reacts to the activation (double click) of an id of this renderer's view.
    /// @return true by default.
    virtual bool Activate(TambVizCore::RenderId& id);

    /// Finds every id of this renderer's view that draws the same entity as @p id.
    /// @return false when @p id is not one of this renderer.
    virtual bool ExpandRenderId(const TambVizCore::RenderId& id,
                                std::vector<TambVizCore::RenderId>& ids) = 0;

    /// Writes the center of the sphere around what is drawn, world units.
    /// @param center  float[3].
    virtual void GetGeometryCenter(float* const center) const;

    /// Returns the radius of the sphere around what is drawn, world units; 0 while nothing is.
    virtual float GetGeometryRadius() const;

    /// Returns the tool tip of an id of this renderer's view; empty by default.
    virtual std::wstring GetToolTip(const TambVizCore::RenderId& id);

    /// Lists the bodies of the content.
    /// @return false by default, and @p bodies left alone.
    virtual bool GetBodyList(std::vector<TambVizCore::EntityId>& bodies);

    /// Forgets the box and discards what was rendered.
    void ClearAll();

    /// Returns the lowest corner of the box, double[3], world units; null while unset. Valid until
    /// the box is emptied.
    const double* GetBoxLo() const;

    /// Returns the highest corner of the box, double[3], world units; null while unset. Valid until
    /// the box is emptied.
    const double* GetBoxHi() const;

    bool GetUseProgressCallback() const;
    void SetUseProgressCallback(const bool& use);

    /// Sets the sag, the greatest distance of a chord from its curve, world units. A value of 0 or
    /// less keeps the value and asks for the default instead.
    void SetTesselationSag(double sag);

    /// Sets the step, the greatest length of a chord, world units. A value of 0 or less keeps the
    /// value and asks for the default instead.
    void SetTesselationStep(double step);

    /// Sets the greatest angle between neighbouring chords, degrees. A value of 0 or less keeps the
    /// value and asks for the default instead.
    void SetTesselationMaxAngle(double maxAngle);

    /// Sets sag, step and angle, in this order. The spelling of the name is fixed.
    void SetTesselationParamters(double sag, double step, double maxAngle);

    /// Returns the sag last set, and whether the default is to be used in its place.
    double GetTesselationSag(bool& useDefault) const;

    /// Returns the step last set, and whether the default is to be used in its place.
    double GetTesselationStep(bool& useDefault) const;

    /// Returns the angle last set, and whether the default is to be used in its place.
    double GetTesselationMaxAngle(bool& useDefault) const;

    /// Writes the three values last set. Deliberate: the result is true also while the defaults are
    /// in use. Held by IContentRenderer.TessellationParametersAreReadEvenWhenDefaultsAreInUse.
    bool GetTessellationParameters(double& sag, double& step, double& maxAngle) const;

protected:
    // The last slot: discards what was rendered; without anything rendered nothing happens.
    virtual void discard() = 0;

    /// @param content  the content to draw; not owned, may be null.
    explicit IContentRenderer(AContent* content);

    void SetBoxLo(const double& x, const double& y, const double& z);
    void SetBoxHi(const double& x, const double& y, const double& z);

    /// Forgets both corners.
    void SetBoxEmpty();

    double* boxLo = nullptr; ///< Owned double[3], kept by SetBoxLo(); null until first set.
    double* boxHi = nullptr; ///< Owned double[3], kept by SetBoxHi(); null until first set.
    float geometryCenter[3] = {0.0f, 0.0f, 0.0f}; ///< World units; set by the derived class.
    float geometryRadius = 0.0f;                  ///< World units; set by the derived class.
    bool useProgressCallback = false;
    AContent* content; ///< Not owned.

    // Shared by all renderers; zero and false until a host or plugin sets them. Written on the main
    // thread while no job runs, read on either.
    static double _tessellationSag;
    static double _tessellationStep;
    static double _tessellationMaxAngle;
    static bool _useDefaultTessellationSag;
    static bool _useDefaultTessellationStep;
    static bool _useDefaultTessellationMaxAngle;
};

} // namespace OrvikCore

#endif
