#include "TambCommandsInfra/ITambServiceSet.h"

ITambServiceSet::ITambServiceSet(TambServiceKind kind) : m_kind(kind) {}

ITambServiceSet::~ITambServiceSet() = default;

TambServiceKind ITambServiceSet::GetServiceKind() const
{
    return m_kind;
}
