#include "OrvikCore/AMarkupViewObject.h"

namespace OrvikCore {

AMarkupViewObject::AMarkupViewObject(bool isClosed, bool isFilled,
                                     TambVizCore::RGBAColor const& lineColor)
    : filled(isFilled), closed(isClosed), color(lineColor)
{
}

AMarkupViewObject::~AMarkupViewObject() = default;

bool AMarkupViewObject::GetClosed() const
{
    return closed;
}

void AMarkupViewObject::SetClosed(bool isClosed)
{
    closed = isClosed;
}

bool AMarkupViewObject::GetFilled() const
{
    return filled;
}

void AMarkupViewObject::SetFilled(bool isFilled)
{
    filled = isFilled;
}

TambVizCore::RGBAColor AMarkupViewObject::GetColor() const
{
    return color;
}

void AMarkupViewObject::SetColor(TambVizCore::RGBAColor const& newColor)
{
    color = newColor;
}

} // namespace OrvikCore
