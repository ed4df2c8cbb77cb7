#ifndef PELLUXBATCH_JSONTEXT_H
#define PELLUXBATCH_JSONTEXT_H

#include <string>

namespace PelluxBatch {

/// Writes a JSON string with its quotation marks, in UTF-8. Control characters are escaped; what is
/// no character, such as a byte of a file name that is no UTF-8, becomes U+FFFD.
std::string JsonQuoted(const std::wstring& text);

} // namespace PelluxBatch

#endif
