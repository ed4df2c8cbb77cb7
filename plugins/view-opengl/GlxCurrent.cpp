#include "GlxCurrent.h"

#include <OrvikOs/Library.h>

namespace ViewOpenGl {
namespace {

/// The five operations of GLX 1.3 that are needed; pointers stand for displays and contexts,
/// numbers for drawables, so that no header of a window system is.
struct Glx
{
    void* (*context)() = nullptr;
    void* (*display)() = nullptr;
    unsigned long (*draw)() = nullptr;
    unsigned long (*read)() = nullptr;
    int (*makeCurrent)(void*, unsigned long, unsigned long, void*) = nullptr;
};

template <class Function>
void find(const OrvikOs::Library& library, const char* name, Function*& function)
{
    function = reinterpret_cast<Function*>(library.Symbol(name));
}

/// @return the operations; all null where there is no GLX.
const Glx& glx()
{
    static const Glx found = [] {
        Glx wanted;
        OrvikOs::Library library;
        if (!library.Load(L"libGL.so.1"))
            return wanted;
        find(library, "glXGetCurrentContext", wanted.context);
        find(library, "glXGetCurrentDisplay", wanted.display);
        find(library, "glXGetCurrentDrawable", wanted.draw);
        find(library, "glXGetCurrentReadDrawable", wanted.read);
        find(library, "glXMakeContextCurrent", wanted.makeCurrent);
        library.Detach(); // stays loaded for the life of the process
        const bool isWhole = wanted.context != nullptr && wanted.display != nullptr &&
                             wanted.draw != nullptr && wanted.read != nullptr &&
                             wanted.makeCurrent != nullptr;
        return isWhole ? wanted : Glx();
    }();
    return found;
}

} // namespace

void GlxCurrent::Leave()
{
    if (glx().context == nullptr)
        return;
    m_context = glx().context();
    if (m_context == nullptr)
        return;
    m_display = glx().display();
    m_draw = glx().draw();
    m_read = glx().read();
    glx().makeCurrent(m_display, 0, 0, nullptr);
}

void GlxCurrent::Return()
{
    if (m_context != nullptr)
        glx().makeCurrent(m_display, m_draw, m_read, m_context);
}

} // namespace ViewOpenGl
