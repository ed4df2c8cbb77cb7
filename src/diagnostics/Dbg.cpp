#include "OrvikCore/Dbg.h"

#include "OrvikCore/debugger_streambuf.h"

namespace OrvikCore {

namespace {

debugger_streambuf s_buffer; // Before the stream that writes into it.

} // namespace

std::ostream dbg(&s_buffer);

} // namespace OrvikCore
