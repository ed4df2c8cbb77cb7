#include "GlContext.h"

#include <OrvikOs/Library.h>
#include <TambVizCore/Utils.h>

#include <algorithm>
#include <array>
#include <cstring>

// EGL before GL: epoxy's EGL header brings the platform types.
#include <epoxy/egl.h>
#include <epoxy/gl.h>

namespace ViewOpenGl {

struct GlContext::Handles
{
    EGLDisplay display = EGL_NO_DISPLAY;
    EGLContext context = EGL_NO_CONTEXT;
};

struct GlContext::Current::Previous
{
    EGLenum api = EGL_OPENGL_API;
    EGLDisplay display = EGL_NO_DISPLAY;
    EGLContext context = EGL_NO_CONTEXT;
    EGLSurface draw = EGL_NO_SURFACE;
    EGLSurface read = EGL_NO_SURFACE;
};

namespace {

constexpr int kMaxDevices = 16;

bool hasWord(const char* list, const char* word)
{
    return list != nullptr && std::strstr(list, word) != nullptr;
}

/// The first device with a real processor behind it, or no display.
EGLDisplay hardwareDisplay()
{
    const char* const extensions = eglQueryString(EGL_NO_DISPLAY, EGL_EXTENSIONS);
    if (!hasWord(extensions, "EGL_EXT_device_enumeration") ||
        !hasWord(extensions, "EGL_EXT_device_query") ||
        !hasWord(extensions, "EGL_EXT_platform_device"))
        return EGL_NO_DISPLAY;
    std::array<EGLDeviceEXT, kMaxDevices> devices = {};
    EGLint count = 0;
    if (eglQueryDevicesEXT(kMaxDevices, devices.data(), &count) == EGL_FALSE)
        return EGL_NO_DISPLAY;
    for (int i = 0; i < count; ++i) {
        const char* const kind =
            eglQueryDeviceStringEXT(devices[static_cast<std::size_t>(i)], EGL_EXTENSIONS);
        if (!hasWord(kind, "EGL_MESA_device_software"))
            return eglGetPlatformDisplayEXT(EGL_PLATFORM_DEVICE_EXT,
                                            devices[static_cast<std::size_t>(i)], nullptr);
    }
    return EGL_NO_DISPLAY;
}

EGLDisplay softwareDisplay()
{
    const char* const extensions = eglQueryString(EGL_NO_DISPLAY, EGL_EXTENSIONS);
    if (!hasWord(extensions, "EGL_MESA_platform_surfaceless"))
        return EGL_NO_DISPLAY;
    return eglGetPlatformDisplayEXT(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
}

EGLContext createContext(EGLDisplay display)
{
    const std::array<EGLint, 5> configAttributes = {EGL_SURFACE_TYPE, EGL_DONT_CARE,
                                                    EGL_RENDERABLE_TYPE, EGL_OPENGL_BIT, EGL_NONE};
    EGLConfig config = nullptr;
    EGLint count = 0;
    if (eglChooseConfig(display, configAttributes.data(), &config, 1, &count) == EGL_FALSE ||
        count == 0)
        config = EGL_NO_CONFIG_KHR;
    for (const auto& [major, minor] : {std::pair{4, 5}, std::pair{3, 3}}) {
        const std::array<EGLint, 7> attributes = {EGL_CONTEXT_MAJOR_VERSION,
                                                  major,
                                                  EGL_CONTEXT_MINOR_VERSION,
                                                  minor,
                                                  EGL_CONTEXT_OPENGL_PROFILE_MASK,
                                                  EGL_CONTEXT_OPENGL_CORE_PROFILE_BIT,
                                                  EGL_NONE};
        EGLContext context = eglCreateContext(display, config, EGL_NO_CONTEXT, attributes.data());
        if (context != EGL_NO_CONTEXT)
            return context;
    }
    return EGL_NO_CONTEXT;
}

/// epoxy ends the process when it misses a library, so it is looked for before its first call.
bool hasLibrary(const wchar_t* name, std::string& errorText)
{
    OrvikOs::Library library;
    if (!library.Load(name)) {
        errorText = TambVizCore::Utils::WstringToString(library.ErrorText());
        return false;
    }
    library.Detach(); // stays loaded for the life of the process
    return true;
}

std::string glText(GLenum name)
{
    const auto* const text = reinterpret_cast<const char*>(glGetString(name));
    return text == nullptr ? "unknown" : text;
}

} // namespace

std::unique_ptr<GlContext> GlContext::Create(std::string& errorText)
{
    if (!hasLibrary(L"libEGL.so.1", errorText) || !hasLibrary(L"libGL.so.1", errorText))
        return nullptr;
    for (const bool hardware : {true, false}) {
        std::unique_ptr<GlContext> context(new GlContext);
        if (context->open(hardware, errorText))
            return context;
    }
    return nullptr;
}

GlContext::GlContext() : m_handles(std::make_unique<Handles>()) {}

GlContext::~GlContext()
{
    // The display stays initialised: it is shared with whoever else in the process draws.
    if (m_handles->context != EGL_NO_CONTEXT)
        eglDestroyContext(m_handles->display, m_handles->context);
}

bool GlContext::open(bool hardware, std::string& errorText)
{
    m_handles->display = hardware ? hardwareDisplay() : softwareDisplay();
    if (m_handles->display == EGL_NO_DISPLAY) {
        errorText = "EGL offers no display without a window system";
        return false;
    }
    if (eglInitialize(m_handles->display, nullptr, nullptr) == EGL_FALSE) {
        errorText = "EGL cannot be initialised";
        return false;
    }
    if (!hasWord(eglQueryString(m_handles->display, EGL_EXTENSIONS),
                 "EGL_KHR_surfaceless_context") ||
        eglBindAPI(EGL_OPENGL_API) == EGL_FALSE) {
        errorText = "EGL offers no OpenGL without a surface";
        return false;
    }
    m_handles->context = createContext(m_handles->display);
    if (m_handles->context == EGL_NO_CONTEXT) {
        errorText = "OpenGL 3.3 is not available";
        return false;
    }
    const Current current(*this);
    if (!current.IsCurrent()) {
        errorText = "the OpenGL context cannot be made current";
        return false;
    }
    describe();
    return true;
}

void GlContext::describe()
{
    const std::string renderer = glText(GL_RENDERER);
    m_isSoftware = renderer.find("llvmpipe") != std::string::npos ||
                   renderer.find("softpipe") != std::string::npos ||
                   renderer.find("SWR") != std::string::npos;
    // A software renderer is done with vertices before a draw call returns, so the memory may go
    // as soon as the buffer is deleted.
    m_readsOwnMemory = m_isSoftware && epoxy_has_gl_extension("GL_AMD_pinned_memory");
    m_description = glText(GL_VENDOR) + ", " + renderer + ", OpenGL " + glText(GL_VERSION);
    GLint renderbuffer = 0;
    GLint viewport[2] = {};
    glGetIntegerv(GL_MAX_RENDERBUFFER_SIZE, &renderbuffer);
    glGetIntegerv(GL_MAX_VIEWPORT_DIMS, viewport);
    m_maxSide = std::min({renderbuffer, viewport[0], viewport[1]});
}

GlContext::Current::Current(GlContext& context) : m_previous(std::make_unique<Previous>())
{
    // What is current is kept for each API; ours is OpenGL.
    m_previous->api = eglQueryAPI();
    m_previous->display = eglGetCurrentDisplay();
    m_previous->context = eglGetCurrentContext();
    m_previous->draw = eglGetCurrentSurface(EGL_DRAW);
    m_previous->read = eglGetCurrentSurface(EGL_READ);
    const Handles& own = *context.m_handles;
    m_isCurrent =
        eglBindAPI(EGL_OPENGL_API) == EGL_TRUE &&
        eglMakeCurrent(own.display, EGL_NO_SURFACE, EGL_NO_SURFACE, own.context) == EGL_TRUE;
}

GlContext::Current::~Current()
{
    EGLDisplay own = eglGetCurrentDisplay();
    if (m_isCurrent && own != EGL_NO_DISPLAY)
        eglMakeCurrent(own, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
    eglBindAPI(m_previous->api);
    if (m_previous->context != EGL_NO_CONTEXT)
        eglMakeCurrent(m_previous->display, m_previous->draw, m_previous->read,
                       m_previous->context);
}

} // namespace ViewOpenGl
