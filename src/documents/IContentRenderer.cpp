#include "OrvikCore/IContentRenderer.h"

#include <algorithm>

namespace OrvikCore {

namespace {

// Keeps a corner, in an array made on first use.
void setCorner(double*& corner, double x, double y, double z)
{
    if (corner == nullptr) {
        corner = new double[3];
    }
    corner[0] = x;
    corner[1] = y;
    corner[2] = z;
}

// Keeps a tessellation value above 0; any other only asks for the default.
void setParameter(double value, double& kept, bool& useDefault)
{
    useDefault = !(value > 0.0);
    if (!useDefault) {
        kept = value;
    }
}

} // namespace

double IContentRenderer::_tessellationSag = 0.0;
double IContentRenderer::_tessellationStep = 0.0;
double IContentRenderer::_tessellationMaxAngle = 0.0;
// Deliberate: zero values with the defaults switched off, until a host sets them.
// Held by IContentRenderer.ParametersStartAtZeroWithDefaultsOff.
bool IContentRenderer::_useDefaultTessellationSag = false;
bool IContentRenderer::_useDefaultTessellationStep = false;
bool IContentRenderer::_useDefaultTessellationMaxAngle = false;

IContentRenderer::IContentRenderer(AContent* renderedContent) : content(renderedContent) {}

IContentRenderer::~IContentRenderer()
{
    useProgressCallback = false;
    SetBoxEmpty();
    content = nullptr;
}

bool IContentRenderer::Activate(TambVizCore::RenderId& /*id*/)
{
    return true;
}

void IContentRenderer::GetGeometryCenter(float* const center) const
{
    std::copy_n(geometryCenter, 3, center);
}

float IContentRenderer::GetGeometryRadius() const
{
    return geometryRadius;
}

std::wstring IContentRenderer::GetToolTip(const TambVizCore::RenderId& /*id*/)
{
    return {};
}

bool IContentRenderer::GetBodyList(std::vector<TambVizCore::EntityId>& /*bodies*/)
{
    return false;
}

void IContentRenderer::ClearAll()
{
    SetBoxEmpty();
    discard();
}

const double* IContentRenderer::GetBoxLo() const
{
    return boxLo;
}

const double* IContentRenderer::GetBoxHi() const
{
    return boxHi;
}

bool IContentRenderer::GetUseProgressCallback() const
{
    return useProgressCallback;
}

void IContentRenderer::SetUseProgressCallback(const bool& use)
{
    useProgressCallback = use;
}

void IContentRenderer::SetTesselationSag(double sag)
{
    setParameter(sag, _tessellationSag, _useDefaultTessellationSag);
}

void IContentRenderer::SetTesselationStep(double step)
{
    setParameter(step, _tessellationStep, _useDefaultTessellationStep);
}

void IContentRenderer::SetTesselationMaxAngle(double maxAngle)
{
    setParameter(maxAngle, _tessellationMaxAngle, _useDefaultTessellationMaxAngle);
}

void IContentRenderer::SetTesselationParamters(double sag, double step, double maxAngle)
{
    SetTesselationSag(sag);
    SetTesselationStep(step);
    SetTesselationMaxAngle(maxAngle);
}

double IContentRenderer::GetTesselationSag(bool& useDefault) const
{
    useDefault = _useDefaultTessellationSag;
    return _tessellationSag;
}

double IContentRenderer::GetTesselationStep(bool& useDefault) const
{
    useDefault = _useDefaultTessellationStep;
    return _tessellationStep;
}

double IContentRenderer::GetTesselationMaxAngle(bool& useDefault) const
{
    useDefault = _useDefaultTessellationMaxAngle;
    return _tessellationMaxAngle;
}

bool IContentRenderer::GetTessellationParameters(double& sag, double& step, double& maxAngle) const
{
    sag = _tessellationSag;
    step = _tessellationStep;
    maxAngle = _tessellationMaxAngle;
    return true;
}

void IContentRenderer::SetBoxLo(const double& x, const double& y, const double& z)
{
    setCorner(boxLo, x, y, z);
}

void IContentRenderer::SetBoxHi(const double& x, const double& y, const double& z)
{
    setCorner(boxHi, x, y, z);
}

void IContentRenderer::SetBoxEmpty()
{
    delete[] boxLo;
    boxLo = nullptr;
    delete[] boxHi;
    boxHi = nullptr;
}

} // namespace OrvikCore
