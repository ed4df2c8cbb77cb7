#ifndef VIEWOPENGL_GLXCURRENT_H
#define VIEWOPENGL_GLXCURRENT_H

namespace ViewOpenGl {

/// What GLX has current in the thread, so that a host that draws through it can be left and
/// returned to: EGL refuses to make a context current while one of GLX is.
/// @thread Main thread.
class GlxCurrent
{
public:
    /// Remembers what is current and lets go of it; does nothing where nothing is, or where there
    /// is no GLX.
    void Leave();

    /// Makes current what Leave() found.
    void Return();

private:
    void* m_display = nullptr; ///< Not owned.
    void* m_context = nullptr; ///< Not owned; null when there is nothing to return to.
    unsigned long m_draw = 0;
    unsigned long m_read = 0;
};

} // namespace ViewOpenGl

#endif
