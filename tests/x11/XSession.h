#ifndef PELLUX_TESTS_XSESSION_H
#define PELLUX_TESTS_XSESSION_H

#include <ScopedTempDir.h>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

/// A virtual display of its own and the program in it, with folders of its own for configuration
/// and state. What the program prints goes to files of the folder.
class XSession
{
public:
    /// Starts the display.
    XSession();

    /// Ends the program and the display.
    ~XSession();

    XSession(const XSession&) = delete;
    XSession& operator=(const XSession&) = delete;

    /// @return why there can be no display; empty when there is one.
    const std::string& WhyNot() const { return m_whyNot; }

    /// @return what DISPLAY is for the display.
    const std::string& Display() const { return m_display; }

    /// Starts the program and waits until its window is there, at most half a minute.
    /// @param environment  Words such as "A=b" before the command.
    bool Start(const std::vector<std::string>& arguments, const std::string& environment = {});

    /// Lets a compositor of Wayland fill the display; the program is started in it from now on, and
    /// fills it too. What is sent and what pixels show goes through the compositor. Its windows
    /// cannot be looked for.
    /// @param scale  Pixels of the display for one of the user interface.
    /// @return false when there is none; WhyNot() says why.
    bool UseWayland(int scale);

    /// Starts programs of another folder from now on.
    void UseRunFolder(const std::filesystem::path& folder) { m_runFolder = folder; }

    /// @return whether the program has a window whose title begins so.
    bool HasWindow(const std::string& title) const;

    /// Sends input, as xdotool takes it, to the window.
    bool Do(const std::string& xdotool) const;

    /// Asks the program's main window to close, as a window manager does.
    bool Close() const;

    /// Runs another program on the display while something is done to it.
    /// @param command  For a shell; must end by itself then.
    /// @return whether what was done says so and the program has ended with 0.
    bool RunBeside(const std::string& command, const std::function<bool()>& does) const;

    /// Sends a signal to the program.
    void Signal(int number) const;

    /// Waits until something holds, at most half a minute.
    static bool Until(const std::function<bool()>& holds);

    /// @return true once the program has ended.
    bool HasEnded();

    /// Waits for the end. @return its exit code, 128 and more for a signal; -1 when it goes on.
    int WaitForEnd();

    /// @return the first line of what a file below the folder holds; empty without one.
    std::string Read(const std::string& file) const;

    /// @return an expression that writes a file below the folder.
    std::string Writing(const std::string& file, const std::string& what) const;

    /// @return the colours in a rectangle of the display, 0xAARRGGBB, row by row; what lies outside
    ///         is left out.
    std::vector<std::uint32_t> Pixels(int left, int top, int width, int height) const;

    /// @return the paths of the journals so far, one a line.
    std::string Journals() const;
    /// @return the text of the first journal so far.
    std::string Journal() const;
    /// Waits until the first journal holds a text.
    bool JournalGets(const std::string& text) const;

    const ScopedTempDir& Dir() const { return m_dir; }

private:
    std::string run(const std::string& command) const;

    ScopedTempDir m_dir;
    std::filesystem::path m_runFolder = ORVIK_RUN_FOLDER;
    std::string m_whyNot;
    std::string m_display;
    int m_displayProcess = 0;
    int m_compositor = 0; ///< Of Wayland; 0 without one.
    int m_process = 0;
    int m_status = -1;
    bool m_hasEnded = false;
};

#endif
