#ifndef PELLUX_TESTS_WINDOWFIXTURE_H
#define PELLUX_TESTS_WINDOWFIXTURE_H

#include <ScopedTempDir.h>
#include <gtest/gtest.h>
#include <window/MainWindow.h>
#include <window/WindowRun.h>

#include <QString>
#include <QStringList>
#include <functional>
#include <memory>

/// The whole program in the test's process: host, plugins of the run folder, engine and window,
/// with folders of its own for configuration and state. Tests are processes of their own, so a test
/// may leave anything behind.
class WindowFixture : public ::testing::Test
{
protected:
    WindowFixture();
    ~WindowFixture() override;

    /// What Open() starts with: no start-up scripts, a journal, no file. Change it before.
    Pellux::WindowOptions options;

    /// Starts and shows the window; a failure fails the test.
    void Open();

    /// Ends the run as closing the window does; nothing when it is not open.
    /// @return the exit code.
    int Close();

    Pellux::WindowRun& Run() { return *m_run; }
    Pellux::CommandRunner& Runner() { return m_run->Runner(); }
    Pellux::MainWindow& Window() { return *m_run->Window(); }

    /// Runs a script as a menu does. @return true when it ran without an error.
    bool Do(const char* script);

    /// Finds a child of the window by its object name; a failure fails the test and gives null.
    template <typename Widget> Widget* Find(const char* name)
    {
        auto* const found = Window().findChild<Widget*>(QString::fromLatin1(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }

    /// Lets Qt work through its queue until something holds, at most ten seconds.
    /// @return whether it holds.
    bool Until(const std::function<bool()>& holds);

    /// A folder that goes with the test. Below it lie "config" and "state".
    const ScopedTempDir& Dir() const { return m_dir; }

    /// Writes an STL file of a cube from 0 to 10 on each axis. @return its path.
    QString WriteCube(const char* name = "cube.stl");

    /// What was echoed and printed since Open(), in order; errors apart.
    QStringList echoed;
    QStringList printed;
    QStringList errors;

private:
    ScopedTempDir m_dir;
    std::unique_ptr<Pellux::WindowRun> m_run;
};

#endif
