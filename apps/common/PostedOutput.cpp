#include "PostedOutput.h"

#include <TambCommandsInfra/CallGate.h>

#include <utility>

namespace Pellux {

PostedOutput::PostedOutput(Show show) : m_show(std::move(show)) {}

void PostedOutput::PrintMessage(const std::wstring& text, const OrvikCore::MessageType& type)
{
    TambCommandsInfra::CallGate::Post([this, text, type] { m_show(text, type); },
                                      text.size() * sizeof(wchar_t));
}

void PostedOutput::ClearOutput() {}

} // namespace Pellux
