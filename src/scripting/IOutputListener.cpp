#include "OrvikCore/IOutputListener.h"

namespace OrvikCore {

IOutputListener::~IOutputListener() = default;

void IOutputListener::ShowToolTip(const std::wstring&) {}

} // namespace OrvikCore
