#ifndef TAMBVIZCORE_FWD_H
#define TAMBVIZCORE_FWD_H

// Forward declarations of the exported classes; enumerations are defined with their classes.
namespace TambVizCore {

class AView3DAdapter;
class AView3DAdapterFactory;
class AttributeDisplacement;
class AttributeOpacity;
class AttributeVisibility;
class EntityId;
class GeoNode;
class Geometry;
class GeometryBuilder;
class IGeometryIndex;
class IHighlightStrategy;
class IIdPictureProvider;
class IRendererReportProvider;
class IView3D;
class IViewAttribute;
class IViewDoUndoStrategy;
class Node;
class Ray;
class RenderId;
class RenderingOptions;
class SceneBuilderFactory;
class SelectionHolder;
class Settings;
class Utils;
class ViewDoUndoStrategy;
class VizBox;
class VizFactories;
struct ClipPlane;
struct GeometryHit;
struct GeometryPart;
struct GeometryQuery;
struct IdPicture;
struct Image;
struct PartState;
struct RGBAColor;

} // namespace TambVizCore

#endif
