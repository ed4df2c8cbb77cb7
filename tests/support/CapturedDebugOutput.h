#ifndef TESTS_CAPTUREDDEBUGOUTPUT_H
#define TESTS_CAPTUREDDEBUGOUTPUT_H

#include <OrvikOs/DebugOutput.h>

#include <memory>
#include <mutex>
#include <sstream>
#include <string>
#include <vector>

/// Receives the debugger output of the process as long as the object lives. Any thread may write.
class CapturedDebugOutput
{
public:
    CapturedDebugOutput() : m_buffer(std::make_shared<Buffer>())
    {
        OrvikOs::SetDebugSink([buffer = m_buffer](const char* text) {
            const std::lock_guard<std::mutex> lock(buffer->mutex);
            buffer->text += text;
        });
    }
    ~CapturedDebugOutput() { OrvikOs::SetDebugSink({}); }
    CapturedDebugOutput(const CapturedDebugOutput&) = delete;
    CapturedDebugOutput& operator=(const CapturedDebugOutput&) = delete;

    std::string Text() const
    {
        const std::lock_guard<std::mutex> lock(m_buffer->mutex);
        return m_buffer->text;
    }

    /// @return the lines that begin with @p prefix, in order, without it.
    std::vector<std::string> LinesAfter(const std::string& prefix) const
    {
        std::vector<std::string> lines;
        std::istringstream text(Text());
        for (std::string line; std::getline(text, line);) {
            if (line.rfind(prefix, 0) == 0) {
                lines.push_back(line.substr(prefix.size()));
            }
        }
        return lines;
    }

    void Clear()
    {
        const std::lock_guard<std::mutex> lock(m_buffer->mutex);
        m_buffer->text.clear();
    }

private:
    struct Buffer
    {
        std::mutex mutex;
        std::string text;
    };
    std::shared_ptr<Buffer> m_buffer;
};

#endif
