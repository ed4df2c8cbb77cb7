#ifndef APPSCOMMON_POSTEDOUTPUT_H
#define APPSCOMMON_POSTEDOUTPUT_H

#include <OrvikCore/IOutputListener.h>

#include <functional>
#include <string>

namespace Pellux {

/// A session's listener that carries every text to the main thread by the call gate, in order.
///
/// What it gets on either thread it posts; the host drains the gate before it shows its prompt. The
/// object outlives every post: it is destroyed after the gate was closed.
class PostedOutput : public OrvikCore::IOutputListener
{
public:
    using Show = std::function<void(const std::wstring& text, OrvikCore::MessageType type)>;

    /// @param show  Called on the main thread, once for each text.
    explicit PostedOutput(Show show);

    void PrintMessage(const std::wstring& text, const OrvikCore::MessageType& type) override;

    /// Nothing: what was printed stays printed.
    void ClearOutput() override;

private:
    Show m_show;
};

} // namespace Pellux

#endif
