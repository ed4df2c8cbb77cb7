#include "GlContext.h"

#include "GlState.h"

#include <OrvikCore/Dbg.h>
#include <OrvikCore/IFrameWindow.h>
#include <OrvikOs/Library.h>
#include <TambVizCore/Utils.h>

#include <algorithm>
#include <array>

// EGL before GL: epoxy's EGL header brings the platform types.
#include <epoxy/egl.h>
#include <epoxy/gl.h>

namespace ViewOpenGl {

struct GlContext::Handles
{
    EGLDisplay display = EGL_NO_DISPLAY;
    EGLContext context = EGL_NO_CONTEXT;
};

namespace {

constexpr int kMaxDevices = 16;

EGLDisplay softwareDisplay()
{
    const char* const extensions = eglQueryString(EGL_NO_DISPLAY, EGL_EXTENSIONS);
    if (!HasWord(extensions, "EGL_MESA_platform_surfaceless"))
        return EGL_NO_DISPLAY;
    return eglGetPlatformDisplayEXT(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
}

EGLConfig chooseConfig(EGLDisplay display)
{
    const std::array<EGLint, 5> attributes = {EGL_SURFACE_TYPE, EGL_DONT_CARE, EGL_RENDERABLE_TYPE,
                                              EGL_OPENGL_BIT, EGL_NONE};
    EGLConfig config = nullptr;
    EGLint count = 0;
    if (eglChooseConfig(display, attributes.data(), &config, 1, &count) == EGL_FALSE || count == 0)
        return EGL_NO_CONFIG_KHR;
    return config;
}

/// @param tellsResets  whether the context shall say when the driver has taken it away.
EGLContext createContext(EGLDisplay display, bool tellsResets)
{
    EGLConfig const config = chooseConfig(display);
    for (const auto& [major, minor] : {std::pair{4, 5}, std::pair{3, 3}}) {
        const EGLint resets = tellsResets ? EGL_CONTEXT_OPENGL_RESET_NOTIFICATION_STRATEGY
                                          : static_cast<EGLint>(EGL_NONE);
        const std::array<EGLint, 9> attributes = {EGL_CONTEXT_MAJOR_VERSION,
                                                  major,
                                                  EGL_CONTEXT_MINOR_VERSION,
                                                  minor,
                                                  EGL_CONTEXT_OPENGL_PROFILE_MASK,
                                                  EGL_CONTEXT_OPENGL_CORE_PROFILE_BIT,
                                                  resets,
                                                  EGL_LOSE_CONTEXT_ON_RESET,
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

/// Lines wider than 1 are an error in a context that keeps nothing that is deprecated.
float widestLine()
{
    GLint flags = 0;
    GLfloat range[2] = {1.0f, 1.0f};
    glGetIntegerv(GL_CONTEXT_FLAGS, &flags);
    glGetFloatv(GL_ALIASED_LINE_WIDTH_RANGE, range);
    return (flags & GL_CONTEXT_FLAG_FORWARD_COMPATIBLE_BIT) != 0 ? 1.0f : std::max(range[1], 1.0f);
}

} // namespace

std::unique_ptr<GlContext> GlContext::Create(std::string& errorText)
{
    if (!hasLibrary(L"libEGL.so.1", errorText) || !hasLibrary(L"libGL.so.1", errorText))
        return nullptr;
    std::vector<std::string> notes;
    std::unique_ptr<GlContext> context;
    const auto open = [&context](const ContextDevice& device, std::string& reason) {
        context.reset(new GlContext);
        return context->openDevice(device, reason);
    };
    if (OpenHardwareDevice(listDevices(), open, notes))
        return context;
    for (const std::string& note : notes)
        OrvikCore::dbg << "-- view: " << note << std::endl;
    context.reset(new GlContext);
    return context->openSurfaceless(errorText) ? std::move(context) : nullptr;
}

std::unique_ptr<GlContext> GlContext::Borrow(OrvikCore::IFrameWindow& window,
                                             std::string& errorText)
{
    if (!hasLibrary(L"libGL.so.1", errorText))
        return nullptr;
    std::unique_ptr<GlContext> context(new GlContext);
    context->m_window = &window;
    const Current current(*context);
    if (!current.IsCurrent()) {
        errorText = "the window's OpenGL context cannot be made current";
        return nullptr;
    }
    return context->describe(errorText) ? std::move(context) : nullptr;
}

GlContext::GlContext() : m_handles(std::make_unique<Handles>()) {}

GlContext::~GlContext()
{
    // The display stays initialised: it is shared with whoever else in the process draws.
    if (m_handles->context != EGL_NO_CONTEXT)
        eglDestroyContext(m_handles->display, m_handles->context);
}

std::vector<ContextDevice> GlContext::listDevices()
{
    const char* const extensions = eglQueryString(EGL_NO_DISPLAY, EGL_EXTENSIONS);
    const bool isListable = HasWord(extensions, "EGL_EXT_device_base") ||
                            (HasWord(extensions, "EGL_EXT_device_enumeration") &&
                             HasWord(extensions, "EGL_EXT_device_query"));
    if (!isListable || !HasWord(extensions, "EGL_EXT_platform_device"))
        return {};
    std::array<EGLDeviceEXT, kMaxDevices> devices = {};
    EGLint count = 0;
    if (eglQueryDevicesEXT(kMaxDevices, devices.data(), &count) == EGL_FALSE)
        return {};
    std::vector<ContextDevice> list;
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
        const char* const text = eglQueryDeviceStringEXT(devices[i], EGL_EXTENSIONS);
        list.push_back({devices[i], text == nullptr ? "" : text});
    }
    return list;
}

bool GlContext::openDevice(const ContextDevice& device, std::string& errorText)
{
    m_handles->display = eglGetPlatformDisplayEXT(EGL_PLATFORM_DEVICE_EXT, device.handle, nullptr);
    if (!open(errorText))
        return false;
    if (m_isSoftware) {
        errorText = "it draws by software (" + m_description + ")";
        return false;
    }
    return true;
}

bool GlContext::openSurfaceless(std::string& errorText)
{
    m_handles->display = softwareDisplay();
    return open(errorText);
}

bool GlContext::open(std::string& errorText)
{
    if (m_handles->display == EGL_NO_DISPLAY) {
        errorText = "EGL offers no display without a window system";
        return false;
    }
    if (eglInitialize(m_handles->display, nullptr, nullptr) == EGL_FALSE) {
        errorText = "EGL cannot be initialised";
        return false;
    }
    const EGLenum previousApi = eglQueryAPI();
    if (!HasWord(eglQueryString(m_handles->display, EGL_EXTENSIONS),
                 "EGL_KHR_surfaceless_context") ||
        eglBindAPI(EGL_OPENGL_API) == EGL_FALSE) {
        errorText = "EGL offers no OpenGL without a surface";
        return false;
    }
    m_handles->context = createContext(m_handles->display, true);
    if (m_handles->context == EGL_NO_CONTEXT)
        m_handles->context = createContext(m_handles->display, false);
    eglBindAPI(previousApi);
    if (m_handles->context == EGL_NO_CONTEXT) {
        errorText = "OpenGL 3.3 is not available";
        return false;
    }
    const Current current(*this);
    if (!current.IsCurrent()) {
        errorText = "the OpenGL context cannot be made current";
        return false;
    }
    return describe(errorText);
}

bool GlContext::describe(std::string& errorText)
{
    const std::string renderer = glText(GL_RENDERER);
    m_description = glText(GL_VENDOR) + ", " + renderer + ", OpenGL " + glText(GL_VERSION);
    if (!epoxy_is_desktop_gl() || epoxy_gl_version() < 33) {
        errorText = "OpenGL 3.3 is not available (" + m_description + ")";
        return false;
    }
    m_isSoftware = renderer.find("llvmpipe") != std::string::npos ||
                   renderer.find("softpipe") != std::string::npos ||
                   renderer.find("SWR") != std::string::npos;
    // A software renderer is done with vertices before a draw call returns, so the memory may go
    // as soon as the buffer is deleted.
    m_readsOwnMemory = m_isSoftware && epoxy_has_gl_extension("GL_AMD_pinned_memory");
    m_tellsResets = epoxy_gl_version() >= 45 || epoxy_has_gl_extension("GL_KHR_robustness");
    m_limits = PictureLimits::Ask();
    m_maxLineWidth = widestLine();
    return true;
}

bool GlContext::IsLost()
{
    if (!m_isLost && m_tellsResets)
        m_isLost = glGetGraphicsResetStatus() != GL_NO_ERROR;
    return m_isLost;
}

GlContext::Current::Current(GlContext& context) : m_context(context)
{
    if (context.IsLent())
        beginLent();
    else
        beginOwn();
}

GlContext::Current::~Current()
{
    if (m_context.IsLent())
        endLent();
    else
        endOwn();
}

void GlContext::Current::beginOwn()
{
    m_glx.Leave();
    // What is current is kept for each API; ours is OpenGL.
    m_api = eglQueryAPI();
    m_display = eglGetCurrentDisplay();
    m_previous = eglGetCurrentContext();
    m_draw = eglGetCurrentSurface(EGL_DRAW);
    m_read = eglGetCurrentSurface(EGL_READ);
    const Handles& own = *m_context.m_handles;
    m_isCurrent =
        eglBindAPI(EGL_OPENGL_API) == EGL_TRUE &&
        eglMakeCurrent(own.display, EGL_NO_SURFACE, EGL_NO_SURFACE, own.context) == EGL_TRUE;
    if (!m_isCurrent && eglGetError() == EGL_CONTEXT_LOST)
        m_context.m_isLost = true;
}

void GlContext::Current::endOwn()
{
    EGLDisplay const own = eglGetCurrentDisplay();
    if (m_isCurrent && own != EGL_NO_DISPLAY)
        eglMakeCurrent(own, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
    eglBindAPI(m_api);
    if (m_previous != EGL_NO_CONTEXT)
        eglMakeCurrent(m_display, m_draw, m_read, m_previous);
    m_glx.Return();
}

void GlContext::Current::beginLent()
{
    m_isCurrent = m_context.m_window->MakeContextCurrent();
    if (!m_isCurrent)
        return;
    glGetIntegerv(GL_DRAW_FRAMEBUFFER_BINDING, &m_framebuffers[0]);
    glGetIntegerv(GL_READ_FRAMEBUFFER_BINDING, &m_framebuffers[1]);
    glGetIntegerv(GL_VIEWPORT, m_viewport);
    ResetGlState();
}

void GlContext::Current::endLent()
{
    if (!m_isCurrent)
        return;
    ResetGlState();
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, static_cast<GLuint>(m_framebuffers[0]));
    glBindFramebuffer(GL_READ_FRAMEBUFFER, static_cast<GLuint>(m_framebuffers[1]));
    glViewport(m_viewport[0], m_viewport[1], m_viewport[2], m_viewport[3]);
    m_context.m_window->DoneContextCurrent();
}

} // namespace ViewOpenGl
