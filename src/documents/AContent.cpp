#include "OrvikCore/AContent.h"

#include "OrvikCore/AContentFactory.h"

#include <type_traits>

namespace OrvikCore {

// Factories are deleted as what they are declared: without data and without a virtual destructor.
static_assert(!std::has_virtual_destructor_v<AContentFactory>);
static_assert(sizeof(AContentFactory) == sizeof(void*));

AContent::AContent(Document& owner) : document(owner) {}

AContent::~AContent() = default;

bool AContent::TryHighlight(const TambVizCore::RenderId& /*id*/)
{
    return false;
}

Document& AContent::GetDocument()
{
    return document;
}

} // namespace OrvikCore
