#include "OutputPort.h"

#include <libguile.h>

namespace OrvikScheme {
namespace {

size_t writeToBuffer(SCM port, SCM source, size_t start, size_t count)
{
    auto* const buffer = reinterpret_cast<OutputBuffer*>(SCM_STREAM(port));
    const auto* const bytes = reinterpret_cast<const char*>(SCM_BYTEVECTOR_CONTENTS(source));
    try {
        buffer->Append({bytes + start, count});
    } catch (const std::exception&) {
        // Out of memory: the text is lost, as it would be past the buffer's limit.
        return count;
    }
    return count;
}

} // namespace

void RedirectOutput(OutputBuffer& buffer)
{
    char name[] = "pellux-output";
    static scm_t_port_type* const type = scm_make_port_type(name, nullptr, writeToBuffer);
    SCM port = scm_c_make_port(type, SCM_OPN | SCM_WRTNG | SCM_BUFLINE,
                               reinterpret_cast<scm_t_bits>(&buffer));
    scm_set_port_encoding_x(port, scm_from_utf8_string("UTF-8"));
    scm_set_port_conversion_strategy_x(port, scm_from_utf8_symbol("substitute"));
    scm_set_current_output_port(port);
    scm_set_current_error_port(port);
    scm_set_current_warning_port(port);
}

} // namespace OrvikScheme
