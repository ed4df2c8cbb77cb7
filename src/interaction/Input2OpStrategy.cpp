#include "OrvikCore/Input2OpStrategy.h"

#include "OrvikCore/Controller.h"

namespace OrvikCore {

Input2OpStrategy::Input2OpStrategy(Controller* owner)
    : controller(owner), opStack(owner != nullptr ? owner->opStack : nullptr)
{
}

Input2OpStrategy::~Input2OpStrategy() = default;

InputStrategyState Input2OpStrategy::InputState()
{
    return inputState;
}

bool Input2OpStrategy::SelectionIsSticky()
{
    return sticky;
}

} // namespace OrvikCore
