#ifndef PELLUX_WINDOW_ENDREQUESTS_H
#define PELLUX_WINDOW_ENDREQUESTS_H

#include <OrvikOs/EndRequest.h>
#include <OrvikOs/MsgWait.h>

#include <functional>

namespace Pellux {

/// Does something when the system asks the program to end, whether it waits for a job or for Qt's
/// events. @thread Main thread.
class EndRequests final : public OrvikOs::IWakeSource
{
public:
    explicit EndRequests(std::function<void()> asked);
    ~EndRequests() override;

    EndRequests(const EndRequests&) = delete;
    EndRequests& operator=(const EndRequests&) = delete;

    OrvikOs::Event& WakeEvent() override;
    void Serve() override;

private:
    OrvikOs::EndRequestWatch m_watch;
    std::function<void()> m_asked;
};

} // namespace Pellux

#endif
