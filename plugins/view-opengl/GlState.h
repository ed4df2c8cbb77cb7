#ifndef VIEWOPENGL_GLSTATE_H
#define VIEWOPENGL_GLSTATE_H

namespace ViewOpenGl {

/// Brings the state that this view or a host's toolkit touches to what a context starts with;
/// framebuffers and viewport stay. The context is current.
void ResetGlState();

} // namespace ViewOpenGl

#endif
