#ifndef ORVIKCAD_KERNEL_STEPTEXTWRITER_H
#define ORVIKCAD_KERNEL_STEPTEXTWRITER_H

#include <string>
#include <string_view>

namespace OrvikCad {

/// Makes every reader understand the text of a STEP file: strings that the kernel has broken into
/// lines become whole again, and what is not ASCII in them becomes the format's own escapes,
/// "\X2\...\X0\" for characters of four hexadecimal digits and "\X4\...\X0\" for others.
std::string EscapeStepText(std::string_view text);

} // namespace OrvikCad

#endif
