#ifndef VIEWOPENGL_GLCONTEXT_H
#define VIEWOPENGL_GLCONTEXT_H

#include "ContextDevices.h"
#include "GlxCurrent.h"
#include "PictureLimits.h"

#include <memory>
#include <string>
#include <vector>

namespace OrvikCore {
class IFrameWindow;
}

namespace ViewOpenGl {

/// The OpenGL context that the view draws with. Usually its own, which needs no window: on a
/// hardware device where there is one, else on the software renderer. Or one that a host lends.
/// OpenGL 4.5 core where present, 3.3 core at least.
///
/// @thread Main thread.
class GlContext
{
public:
    /// Makes a context of the view's own.
    ///
    /// @param errorText  Receives the reason when the result is null.
    static std::unique_ptr<GlContext> Create(std::string& errorText);

    /// Uses the context of a window (not owned; it outlives the result).
    ///
    /// @param errorText  Receives the reason when the result is null.
    static std::unique_ptr<GlContext> Borrow(OrvikCore::IFrameWindow& window,
                                             std::string& errorText);
    ~GlContext();

    GlContext(const GlContext&) = delete;
    GlContext& operator=(const GlContext&) = delete;

    /// Makes the context current for its life, then the one that was current before, with the
    /// surfaces that it had. In a lent context, state is as OpenGL starts meanwhile and afterwards,
    /// but for framebuffer and viewport, which are the host's again.
    class Current
    {
    public:
        explicit Current(GlContext& context);
        ~Current();

        Current(const Current&) = delete;
        Current& operator=(const Current&) = delete;

        /// @return false when the system refused: nothing may be drawn then.
        bool IsCurrent() const { return m_isCurrent; }

    private:
        void beginOwn();
        void endOwn();
        void beginLent();
        void endLent();

        GlContext& m_context;
        bool m_isCurrent = false;
        GlxCurrent m_glx; ///< Of a host that draws through GLX.
        // What was current before, as EGL has it. Not owned.
        unsigned int m_api = 0;
        void* m_display = nullptr;
        void* m_previous = nullptr;
        void* m_draw = nullptr;
        void* m_read = nullptr;
        // What the host had bound in a lent context.
        int m_framebuffers[2] = {};
        int m_viewport[4] = {};
    };

    /// @return true when the driver has taken the context away (a reset, a device unplugged): all
    ///         that was made with it is gone. The context is current.
    bool IsLost();

    /// Behaves from now on as if the driver had taken the context away.
    void Lose() { m_isLost = true; }

    bool IsLent() const { return m_window != nullptr; }

    /// @return true on a software renderer, where antialiasing and triangles cost processor time.
    bool IsSoftware() const { return m_isSoftware; }

    /// @return true when the renderer can read vertices and indices where the process has them.
    bool ReadsOwnMemory() const { return m_readsOwnMemory; }

    /// @return vendor, renderer and version in one line, UTF-8.
    const std::string& Description() const { return m_description; }

    /// @return how large a framebuffer may be.
    const PictureLimits& Limits() const { return m_limits; }

    /// @return the widest line, pixels.
    float MaxLineWidth() const { return m_maxLineWidth; }

private:
    struct Handles;

    GlContext();
    static std::vector<ContextDevice> listDevices();
    bool openDevice(const ContextDevice& device, std::string& errorText);
    bool openSurfaceless(std::string& errorText);
    bool open(std::string& errorText);
    bool describe(std::string& errorText);

    std::unique_ptr<Handles> m_handles;
    OrvikCore::IFrameWindow* m_window = nullptr; ///< Not owned; null for a context of our own.
    bool m_isLost = false;
    bool m_tellsResets = false;
    bool m_isSoftware = true;
    bool m_readsOwnMemory = false;
    PictureLimits m_limits;
    float m_maxLineWidth = 1.0f;
    std::string m_description;
};

} // namespace ViewOpenGl

#endif
