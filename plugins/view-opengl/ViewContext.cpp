// The context of the view: made when first needed, replaced when it is lost, lent by a window.
#include "View3dOpenGlSG.h"

#include <OrvikCore/ACamera.h>
#include <OrvikCore/Dbg.h>
#include <TambVizCore/RenderingOptions.h>

#include <string>
#include <utility>

namespace ViewOpenGl {

/// Makes a context where there is none, or none that lives.
bool View3dOpenGlSG::prepare()
{
    if (m_context != nullptr) {
        bool isLost = false;
        {
            const GlContext::Current current(*m_context);
            isLost = m_context->IsLost();
        }
        if (!isLost)
            return true;
        OrvikCore::dbg << "-- view: the OpenGL context was lost and is made anew" << std::endl;
        dropContext();
    }
    if (m_contextFailed)
        return false;
    std::string reason;
    auto made = GlContext::Create(reason);
    if (made == nullptr) {
        m_contextFailed = true;
        m_contextError = "no OpenGL: " + reason;
        OrvikCore::dbg << "-- view: no OpenGL: " << reason << std::endl;
        return false;
    }
    takeContext(std::move(made));
    return true;
}

void View3dOpenGlSG::takeContext(std::unique_ptr<GlContext> context)
{
    m_context = std::move(context);
    OrvikCore::dbg << "-- view: " << m_context->Description() << std::endl;
    const GlContext::Current current(*m_context);
    m_renderer.Gpu().SetReadsOwnMemory(m_context->ReadsOwnMemory());
    m_renderer.SetMaxLineWidth(m_context->MaxLineWidth());
    const TambVizCore::RenderingOptions& options = *GetRenderingOptions();
    if (current.IsCurrent() && m_target.Bind(1, 1, options.GetAntialiasLevel()))
        m_renderer.Prepare(options, GetCamera()->IsOrthographic());
    // The first coarse frame does not wait for the compiler of the driver either.
    if (current.IsCurrent() && m_window != nullptr && m_small.Bind(1, 1, 1) &&
        m_frame.Bind(2, 2, 1))
        m_small.Stretch(m_frame, true);
}

/// Lets go of the context and of all that was made with it.
void View3dOpenGlSG::dropContext()
{
    if (m_context == nullptr)
        return;
    {
        const GlContext::Current current(*m_context);
        // Names can only be given back while their context is current; else they went with it.
        std::optional<ForgottenNames> forgotten;
        if (!current.IsCurrent() || m_context->IsLost())
            forgotten.emplace();
        clearGraphics();
    }
    m_context.reset();
}

void View3dOpenGlSG::clearGraphics()
{
    m_renderer.Clear();
    textLabels().ClearGraphics();
    frontLabels().ClearGraphics();
    m_target.Clear();
    m_frame.Clear();
    m_present.Clear();
    m_small.Clear();
    m_next.Clear();
    m_smooth.Clear();
    forgetFrame();
}

} // namespace ViewOpenGl
