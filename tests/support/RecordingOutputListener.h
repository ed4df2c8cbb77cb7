#ifndef TESTS_RECORDINGOUTPUTLISTENER_H
#define TESTS_RECORDINGOUTPUTLISTENER_H

#include "OrvikCore/IOutputListener.h"

#include <OrvikOs/Thread.h>

#include <cstdint>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

/// Remembers what a session prints, and on which thread.
class RecordingOutputListener : public OrvikCore::IOutputListener
{
public:
    /// A text and the number of its kind.
    using Message = std::pair<std::wstring, int>;

    void PrintMessage(const std::wstring& text, const OrvikCore::MessageType& type) override
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_messages.emplace_back(text, static_cast<int>(type));
        m_threads.push_back(OrvikOs::CurrentThreadId());
    }
    void ClearOutput() override { ++m_clears; }
    void ShowToolTip(const std::wstring& text) override { m_toolTips.push_back(text); }

    std::vector<Message> Messages() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_messages;
    }
    std::vector<std::uint32_t> Threads() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_threads;
    }

    int m_clears = 0;
    std::vector<std::wstring> m_toolTips;

private:
    mutable std::mutex m_mutex; ///< Guards what follows.
    std::vector<Message> m_messages;
    std::vector<std::uint32_t> m_threads;
};

#endif
