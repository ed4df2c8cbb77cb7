#include <OrvikOs/RunApart.h>

namespace OrvikOs {

// A process cannot be copied here.
ApartEnd RunApart(const std::function<void(const ApartWriter& write)>&, const ApartLimits&,
                  const std::function<bool(const void* bytes, std::size_t count)>&)
{
    return ApartEnd::Unavailable;
}

} // namespace OrvikOs
