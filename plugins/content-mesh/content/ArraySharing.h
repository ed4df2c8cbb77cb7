#ifndef ORVIKMESH_CONTENT_ARRAYSHARING_H
#define ORVIKMESH_CONTENT_ARRAYSHARING_H

#include "readers/MeshArray.h"

#include <TambVizCore/SharedArray.h>

#include <cstddef>
#include <memory>
#include <utility>

namespace OrvikMesh {

/// Hands an array over without a copy.
template <class T> TambVizCore::SharedArray<T> Share(MeshArray<T>&& array)
{
    const std::size_t size = array.Size();
    const auto owner = std::make_shared<MeshArray<T>>(std::move(array));
    return TambVizCore::SharedArray<T>(std::shared_ptr<const T>(owner, owner->Data()), size);
}

} // namespace OrvikMesh

#endif
