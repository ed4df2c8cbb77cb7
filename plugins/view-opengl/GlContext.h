#ifndef VIEWOPENGL_GLCONTEXT_H
#define VIEWOPENGL_GLCONTEXT_H

#include <memory>
#include <string>

namespace ViewOpenGl {

/// An OpenGL context of the view's own that needs no window: on a hardware device where there is
/// one, else on the software renderer. OpenGL 4.5 core where present, 3.3 core at least.
///
/// @thread Main thread.
class GlContext
{
public:
    /// @param errorText  Receives the reason when the result is null.
    static std::unique_ptr<GlContext> Create(std::string& errorText);
    ~GlContext();

    GlContext(const GlContext&) = delete;
    GlContext& operator=(const GlContext&) = delete;

    /// Makes the context current for its life, then the one that was current before.
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
        struct Previous;
        std::unique_ptr<Previous> m_previous;
        bool m_isCurrent = false;
    };

    /// @return true on a software renderer, where antialiasing and triangles cost processor time.
    bool IsSoftware() const { return m_isSoftware; }

    /// @return true when the renderer can read vertices and indices where the process has them.
    bool ReadsOwnMemory() const { return m_readsOwnMemory; }

    /// @return vendor, renderer and version in one line, UTF-8.
    const std::string& Description() const { return m_description; }

    /// @return the largest side of a framebuffer, pixels.
    int MaxSide() const { return m_maxSide; }

private:
    struct Handles;

    GlContext();
    bool open(bool hardware, std::string& errorText);
    void describe();

    std::unique_ptr<Handles> m_handles;
    bool m_isSoftware = true;
    bool m_readsOwnMemory = false;
    int m_maxSide = 0;
    std::string m_description;
};

} // namespace ViewOpenGl

#endif
