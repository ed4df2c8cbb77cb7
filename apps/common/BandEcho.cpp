#include "BandEcho.h"

#include <OrvikCore/ViewOpDrag.h>

#include <cstdlib>
#include <utility>

namespace Pellux {
namespace {

using OrvikCore::IViewOpState;

/// A band that is smaller both ways, pixels, is the click of a shaking hand, as for views.
constexpr int kLeastBand = 3;

} // namespace

std::wstring BandEcho::Follow(const OrvikCore::ViewOpDrag& op, bool isAdding)
{
    const bool isUnderWay =
        op.State() == IViewOpState::Start || op.State() == IViewOpState::Processing;
    if (isUnderWay) {
        if (op.State() == IViewOpState::Start || !m_band)
            m_band = Band{op.MouseX(), op.MouseY(), op.MouseX(), op.MouseY()};
        m_band->x2 = op.MouseX();
        m_band->y2 = op.MouseY();
        return {};
    }
    const std::optional<Band> band = std::exchange(m_band, std::nullopt);
    if (op.State() != IViewOpState::End || !band ||
        (std::abs(band->x2 - band->x1) < kLeastBand && std::abs(band->y2 - band->y1) < kLeastBand))
        return {};
    std::wstring text = L"(sel:box";
    for (const int number : {band->x1, band->y1, band->x2, band->y2})
        text += L" " + std::to_wstring(number);
    text += band->x2 < band->x1 ? L" 'touching" : L" 'enclosed";
    return text + (isAdding ? L" #t)" : L")");
}

} // namespace Pellux
