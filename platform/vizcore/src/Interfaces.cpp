#include "TambVizCore/AView3DAdapterFactory.h"
#include "TambVizCore/IGeometryIndex.h"
#include "TambVizCore/IHighlightStrategy.h"
#include "TambVizCore/IIdPictureProvider.h"
#include "TambVizCore/IPictureErrorProvider.h"
#include "TambVizCore/IRendererReportProvider.h"
#include "TambVizCore/IView3D.h"
#include "TambVizCore/IViewAttribute.h"
#include "TambVizCore/IViewDoUndoStrategy.h"

// The one home of the tables of the interfaces.
namespace TambVizCore {

AView3DAdapterFactory::AView3DAdapterFactory() = default;
AView3DAdapterFactory::~AView3DAdapterFactory() = default;
IGeometryIndex::~IGeometryIndex() = default;
IHighlightStrategy::~IHighlightStrategy() = default;
IIdPictureProvider::~IIdPictureProvider() = default;
IPictureErrorProvider::~IPictureErrorProvider() = default;
IRendererReportProvider::~IRendererReportProvider() = default;
IView3D::~IView3D() = default;
IViewAttribute::~IViewAttribute() = default;
IViewDoUndoStrategy::~IViewDoUndoStrategy() = default;

} // namespace TambVizCore
