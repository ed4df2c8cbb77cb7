#include "gltf/GltfAccessor.h"
#include "gltf/GltfTexts.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>
#include <type_traits>

namespace OrvikMesh {

static_assert(std::endian::native == std::endian::little, "numbers are read as they lie");

namespace {

template <class T> T load(const std::byte* from)
{
    T value;
    std::memcpy(&value, from, sizeof value);
    return value;
}

/// A number as it is meant: whole ones that are normalised stand for a share.
template <class T> float meaning(T value, bool isNormalized)
{
    const auto number = static_cast<float>(value);
    if constexpr (std::is_integral_v<T>) {
        if (isNormalized)
            return std::max(number / static_cast<float>(std::numeric_limits<T>::max()), -1.0f);
    }
    return number;
}

/// Calls @p work with a value of the type that the component stands for.
template <class Work> void withType(GltfComponent component, const Work& work)
{
    switch (component) {
    case GltfComponent::Byte:
        work(std::int8_t{});
        return;
    case GltfComponent::UnsignedByte:
        work(std::uint8_t{});
        return;
    case GltfComponent::Short:
        work(std::int16_t{});
        return;
    case GltfComponent::UnsignedShort:
        work(std::uint16_t{});
        return;
    case GltfComponent::UnsignedInt:
        work(std::uint32_t{});
        return;
    case GltfComponent::Float:
        work(float{});
        return;
    }
}

/// Reads the elements of a run whose numbers @p elementOf gives for 0, 1, and so on.
template <class ElementOf>
void readRun(const GltfRun& run, std::size_t components, bool isNormalized, std::size_t count,
             const ElementOf& elementOf, float* out)
{
    if (!run.first) {
        std::fill_n(out, count * components, 0.0f);
        return;
    }
    withType(run.component, [&](auto zero) {
        using T = decltype(zero);
        for (std::size_t i = 0; i < count; ++i) {
            const std::byte* element = run.first + elementOf(i) * run.stride;
            for (std::size_t k = 0; k < components; ++k)
                *out++ = meaning(load<T>(element + k * sizeof(T)), isNormalized);
        }
    });
}

void readAll(const GltfRun& run, std::size_t components, bool isNormalized, float* out)
{
    const bool isPlain = run.first && run.component == GltfComponent::Float &&
                         run.stride == components * sizeof(float);
    if (isPlain)
        std::memcpy(out, run.first, run.count * run.stride);
    else
        readRun(
            run, components, isNormalized, run.count, [](std::size_t i) { return i; }, out);
}

void readWhole(const GltfRun& run, MeshArray<std::uint32_t>& numbers)
{
    numbers.Resize(run.count);
    if (!run.first) {
        std::fill(numbers.begin(), numbers.end(), 0u);
        return;
    }
    withType(run.component, [&](auto zero) {
        using T = decltype(zero);
        if (std::is_same_v<T, std::uint32_t> && run.stride == sizeof(T)) {
            std::memcpy(numbers.Data(), run.first, run.count * sizeof(T));
            return;
        }
        const std::byte* from = run.first;
        for (std::uint32_t& number : numbers) {
            number = static_cast<std::uint32_t>(load<T>(from));
            from += run.stride;
        }
    });
}

/// Calls @p replace with the place and the number of each sparse value.
template <class Replace>
void forEachSparse(GltfFile& file, const GltfAccessor& accessor, const Replace& replace)
{
    MeshArray<std::uint32_t> places;
    readWhole(accessor.sparseIndices, places);
    std::uint64_t outside = 0;
    for (std::size_t i = 0; i < places.Size(); ++i) {
        if (places[i] < accessor.values.count)
            replace(places[i], i);
        else
            ++outside;
    }
    if (outside > 0)
        file.Messages().Warn(FillText(kGltfSparseIndex,
                                      {std::to_wstring(accessor.index), std::to_wstring(outside)}));
}

} // namespace

bool AreIndices(const GltfRun& run)
{
    return run.component == GltfComponent::UnsignedByte ||
           run.component == GltfComponent::UnsignedShort ||
           run.component == GltfComponent::UnsignedInt;
}

std::size_t SizeOf(GltfComponent component)
{
    std::size_t size = 0;
    withType(component, [&](auto zero) { size = sizeof zero; });
    return size;
}

bool ReadWholeNumbers(GltfFile& file, const GltfAccessor& accessor,
                      MeshArray<std::uint32_t>& numbers, std::wstring& reason)
{
    if (accessor.components != 1 || !AreIndices(accessor.values)) {
        reason = FillText(kGltfBadIndices, {std::to_wstring(accessor.index)});
        return false;
    }
    readWhole(accessor.values, numbers);
    if (accessor.sparseIndices.count > 0) {
        MeshArray<std::uint32_t> values;
        readWhole(accessor.sparseValues, values);
        forEachSparse(file, accessor,
                      [&](std::size_t place, std::size_t i) { numbers[place] = values[i]; });
    }
    return true;
}

void ReadElements(GltfFile& file, const GltfAccessor& accessor, MeshArray<float>& numbers)
{
    const std::size_t components = accessor.components;
    numbers.Resize(accessor.values.count * components);
    readAll(accessor.values, components, accessor.isNormalized, numbers.Data());
    if (accessor.sparseIndices.count == 0)
        return;
    MeshArray<float> values;
    values.Resize(accessor.sparseValues.count * components);
    readAll(accessor.sparseValues, components, accessor.isNormalized, values.Data());
    forEachSparse(file, accessor, [&](std::size_t place, std::size_t i) {
        std::copy_n(values.Data() + i * components, components,
                    numbers.Data() + place * components);
    });
}

void ReadElements(GltfFile& file, const GltfAccessor& accessor,
                  const MeshArray<std::uint32_t>& indices, MeshArray<float>& numbers)
{
    const std::size_t components = accessor.components;
    numbers.Resize(indices.Size() * components);
    if (accessor.sparseIndices.count == 0) {
        readRun(
            accessor.values, components, accessor.isNormalized, indices.Size(),
            [&](std::size_t i) { return indices[i]; }, numbers.Data());
        return;
    }
    MeshArray<float> all;
    ReadElements(file, accessor, all);
    for (std::size_t i = 0; i < indices.Size(); ++i)
        std::copy_n(all.Data() + indices[i] * components, components,
                    numbers.Data() + i * components);
}

} // namespace OrvikMesh
