#include "XSession.h"

#include "CloseRequest.h"

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>

namespace {

/// How long something that has to come is looked for, in steps of kStepUs.
constexpr int kSteps = 600;
constexpr unsigned kStepUs = 50'000;

constexpr int kWidth = 1400;
constexpr int kHeight = 1000;

/// The socket of the compositor, in the session's folder.
constexpr char kWayland[] = "compositor";

bool isThere(const char* program)
{
    return std::system(("command -v " + std::string(program) + " >/dev/null 2>&1").c_str()) == 0;
}

int start(const std::string& command)
{
    const int process = fork();
    if (process == 0) {
        execl("/bin/sh", "sh", "-c", ("exec " + command).c_str(), nullptr);
        _exit(127);
    }
    return process;
}

void end(int process, int signal)
{
    if (process <= 0)
        return;
    kill(process, signal);
    waitpid(process, nullptr, 0);
}

} // namespace

XSession::XSession()
{
    for (const char* const program : {"Xvfb", "xdotool"})
        if (!isThere(program))
            m_whyNot = std::string(program) + " is not installed";
    if (!m_whyNot.empty())
        return;
    const std::string number = (m_dir.Path() / "display").string();
    // Without repetition: on a loaded machine a key would seem to be held down.
    m_displayProcess = start("Xvfb -r -displayfd 7 -screen 0 " + std::to_string(kWidth) + "x" +
                             std::to_string(kHeight) + "x24 -nolisten tcp -fbdir '" +
                             m_dir.Path().string() + "' 7>'" + number + "' >/dev/null 2>&1");
    if (!Until([&] { return !Read("display").empty(); })) {
        m_whyNot = "Xvfb does not start";
        return;
    }
    m_display = ":" + Read("display");
}

XSession::~XSession()
{
    end(m_hasEnded ? 0 : m_process, SIGKILL);
    end(m_compositor, SIGTERM);
    // The display is to take its lock away: displays that start at the same time would both take
    // over one that was left, and one of them loses.
    end(m_displayProcess, SIGTERM);
}

bool XSession::Until(const std::function<bool()>& holds)
{
    for (int step = 0; step < kSteps; ++step) {
        if (holds())
            return true;
        usleep(kStepUs);
    }
    return false;
}

bool XSession::UseWayland(int scale)
{
    if (!m_whyNot.empty())
        return false;
    if (!isThere("weston")) {
        m_whyNot = "weston is not installed";
        return false;
    }
    // It counts the pointer's way from where it first sees it.
    Do("mousemove 0 0");
    m_compositor =
        start("env DISPLAY=" + m_display + " XDG_RUNTIME_DIR='" + m_dir.Path().string() +
              "' weston --no-config --backend=x11-backend.so --use-pixman"
              " --shell=kiosk-shell.so --idle-time=0 --width=" +
              std::to_string(kWidth / scale) + " --height=" + std::to_string(kHeight / scale) +
              " --scale=" + std::to_string(scale) + " --socket=" + kWayland + " >'" +
              (m_dir.Path() / "compositor.log").string() + "' 2>&1");
    if (!Until([this] { return std::filesystem::exists(m_dir.Path() / kWayland); })) {
        m_whyNot = "weston does not start";
        return false;
    }
    return true;
}

bool XSession::Start(const std::vector<std::string>& arguments, const std::string& environment)
{
    const std::string folder = m_dir.Path().string();
    const std::string platform =
        m_compositor == 0
            ? "DISPLAY=" + m_display + " QT_QPA_PLATFORM=xcb"
            : "-u DISPLAY WAYLAND_DISPLAY=" + std::string(kWayland) + " QT_QPA_PLATFORM=wayland";
    std::string command = "env " + platform + " LC_ALL=C.UTF-8 " + "XDG_RUNTIME_DIR='" + folder +
                          "' XDG_CONFIG_HOME='" + folder + "/config' XDG_STATE_HOME='" + folder +
                          "/state' " + environment + " '" + (m_runFolder / "pellux").string() + "'";
    for (const std::string& argument : arguments)
        command += " '" + argument + "'";
    m_hasEnded = false;
    m_process = start(command + " >'" + folder + "/output' 2>'" + folder + "/errors' </dev/null");
    if (m_compositor != 0)
        return true;
    return Until([this] { return HasEnded() || HasWindow("Pellux"); }) && !m_hasEnded;
}

bool XSession::HasWindow(const std::string& title) const
{
    return !run("xdotool search --onlyvisible --name '^" + title + "'").empty();
}

std::string XSession::run(const std::string& command) const
{
    const std::string line = "DISPLAY=" + m_display + " " + command + " 2>/dev/null";
    std::string output;
    if (FILE* const pipe = popen(line.c_str(), "r")) {
        char buffer[256];
        while (fgets(buffer, sizeof buffer, pipe) != nullptr)
            output += buffer;
        pclose(pipe);
    }
    return output;
}

bool XSession::Do(const std::string& xdotool) const
{
    return std::system(("DISPLAY=" + m_display + " xdotool " + xdotool + " >/dev/null").c_str()) ==
           0;
}

bool XSession::Close() const
{
    const std::string window = run("xdotool search --onlyvisible --name '^Pellux'");
    return !window.empty() &&
           AskToClose(m_display.substr(1), static_cast<std::uint32_t>(std::stoul(window)));
}

bool XSession::RunBeside(const std::string& command, const std::function<bool()>& does) const
{
    const int process =
        start("env DISPLAY=" + m_display + " QT_QPA_PLATFORM=xcb XDG_RUNTIME_DIR='" +
              m_dir.Path().string() + "' " + command + " >/dev/null 2>&1 </dev/null");
    int status = -1;
    const bool isDone = does() && Until([&] { return waitpid(process, &status, WNOHANG) != 0; });
    if (!isDone)
        end(process, SIGKILL);
    return isDone && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

void XSession::Signal(int number) const
{
    kill(m_process, number);
}

bool XSession::HasEnded()
{
    if (m_hasEnded || m_process <= 0)
        return true;
    int status = 0;
    if (waitpid(m_process, &status, WNOHANG) != m_process)
        return false;
    m_hasEnded = true;
    m_status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    return true;
}

int XSession::WaitForEnd()
{
    return Until([this] { return HasEnded(); }) ? m_status : -1;
}

std::string XSession::Read(const std::string& file) const
{
    std::ifstream stream(m_dir.Path() / file);
    std::string line;
    std::getline(stream, line);
    return line;
}

std::string XSession::Writing(const std::string& file, const std::string& what) const
{
    return "(call-with-output-file \"" + (m_dir.Path() / file).string() +
           "\" (lambda (port) (display " + what + " port) (newline port)))";
}

std::vector<std::uint32_t> XSession::Pixels(int left, int top, int width, int height) const
{
    // The display's memory as a picture of the X window dump format: words with the highest byte
    // first, then the colour table, then the rows.
    std::ifstream stream(m_dir.Path() / "Xvfb_screen0", std::ios::binary);
    std::string dump(std::filesystem::file_size(m_dir.Path() / "Xvfb_screen0"), '\0');
    stream.read(dump.data(), static_cast<std::streamsize>(dump.size()));
    const auto word = [&dump](std::size_t index) {
        std::uint32_t value = 0;
        for (std::size_t i = 0; i < 4 && index * 4 + i < dump.size(); ++i)
            value = value << 8 | static_cast<unsigned char>(dump[index * 4 + i]);
        return static_cast<std::size_t>(value);
    };
    const std::size_t rows = word(0) + word(19) * 12;
    const std::size_t stride = word(12);
    std::vector<std::uint32_t> pixels;
    for (int y = top; y < top + height; ++y)
        for (int x = left; x < left + width; ++x) {
            const std::size_t at =
                rows + static_cast<std::size_t>(y) * stride + static_cast<std::size_t>(x) * 4;
            std::uint32_t pixel = 0;
            if (at + sizeof pixel > dump.size())
                continue;
            std::memcpy(&pixel, dump.data() + at, sizeof pixel);
            pixels.push_back(pixel);
        }
    return pixels;
}

std::string XSession::Journals() const
{
    return run("ls -1 '" + (m_dir.Path() / "state/pellux/journals").string() + "'/*.journal.scm");
}

std::string XSession::Journal() const
{
    const std::string paths = Journals();
    std::ifstream file(paths.substr(0, paths.find('\n')));
    return {std::istreambuf_iterator<char>(file), {}};
}

bool XSession::JournalGets(const std::string& text) const
{
    return Until([&] { return Journal().find(text) != std::string::npos; });
}
