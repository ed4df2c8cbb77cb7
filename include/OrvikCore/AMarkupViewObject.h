#ifndef ORVIKCORE_AMARKUPVIEWOBJECT_H
#define ORVIKCORE_AMARKUPVIEWOBJECT_H

#include "OrvikCore/AViewObject.h"
#include "OrvikCore/Export.h"

#include <TambVizCore/RGBAColor.h>

#include <vector>

namespace OrvikCore {

/// A view object made of polylines in one colour.
///
/// The setters only store; the drawing class reads the values when it renders.
///
/// @thread Main thread.
class ORVIKCORE_API AMarkupViewObject : public AViewObject
{
public:
    AMarkupViewObject(bool closed, bool filled, TambVizCore::RGBAColor const& color);
    ~AMarkupViewObject() override;

    // Virtual operations in slot order, after the inherited ones; append only.

    /// Adds a polyline.
    /// @param polyline  x, y, z triples, world units.
    virtual void AddPolyline(std::vector<double> const& polyline) = 0;

    /// Removes every polyline.
    virtual void RemovePolylines() = 0;

    /// Returns how many polylines there are.
    virtual int CountPolylines() const = 0;

    bool GetClosed() const;
    void SetClosed(bool isClosed);
    bool GetFilled() const;
    void SetFilled(bool isFilled);
    TambVizCore::RGBAColor GetColor() const;
    void SetColor(TambVizCore::RGBAColor const& newColor);

private:
    bool filled;
    bool closed;
    TambVizCore::RGBAColor color;
};

} // namespace OrvikCore

#endif
