#include "gltf/GltfAccessor.h"

#include "gltf/GltfTexts.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>
#include <type_traits>

namespace OrvikMesh {

namespace {

/// More elements cannot be numbered with 32 bits beside the value for "none".
constexpr std::uint64_t kMaxElements = 0xFFFFFFFEu;
/// The widest step from element to element that the format allows is 252; a matrix has 64 bytes.
constexpr std::uint64_t kMaxStride = 65536;

struct NamedType
{
    std::string_view name;
    std::size_t components;
};

constexpr NamedType kTypes[] = {{"SCALAR", 1}, {"VEC2", 2}, {"VEC3", 3}, {"VEC4", 4}};

std::wstring noSuch(const wchar_t* what, std::uint64_t index)
{
    return FillText(kGltfNoSuch, {what, std::to_wstring(index)});
}

std::wstring badValue(const wchar_t* what, std::uint64_t index, const wchar_t* member)
{
    return FillText(kGltfBadValue, {what, std::to_wstring(index), member});
}

bool toComponent(std::optional<std::uint64_t> number, GltfComponent& component)
{
    switch (number.value_or(0)) {
    case 5120:
    case 5121:
    case 5122:
    case 5123:
    case 5125:
    case 5126:
        component = static_cast<GltfComponent>(*number);
        return true;
    default:
        return false;
    }
}

/// The compression of a buffer view, whose own bytes then mean nothing.
const char* compressionOf(const JsonValue& view)
{
    const JsonValue* extensions = FindMember(view, "extensions");
    for (const char* name : {"EXT_meshopt_compression", "KHR_meshopt_compression"})
        if (extensions && FindMember(*extensions, name))
            return name;
    return nullptr;
}

/// Finds the bytes of a buffer view.
bool findView(GltfFile& file, std::uint64_t index, std::string_view& bytes, std::uint64_t& stride,
              std::wstring& reason)
{
    const JsonValue* view = file.Element(GltfList::BufferViews, index);
    if (!view) {
        reason = noSuch(L"buffer view", index);
        return false;
    }
    if (const char* compression = compressionOf(*view)) {
        const std::string name = compression;
        reason = FillText(kGltfCompressed, {std::wstring(name.begin(), name.end())});
        return false;
    }
    const auto buffer = WholeMember(*view, "buffer");
    const auto offset = WholeMember(*view, "byteOffset", 0);
    const auto length = WholeMember(*view, "byteLength");
    const auto step = WholeMember(*view, "byteStride", 0);
    if (!buffer || !offset || !length || !step || *step > kMaxStride) {
        reason = badValue(L"buffer view", index,
                          !buffer   ? L"buffer"
                          : !offset ? L"byteOffset"
                          : !length ? L"byteLength"
                                    : L"byteStride");
        return false;
    }
    const auto all = file.BufferBytes(*buffer, reason);
    if (!all)
        return false;
    // Both are at most 2^53: the sum cannot overflow.
    if (*offset + *length > all->size()) {
        reason = FillText(kGltfViewOutside, {std::to_wstring(index), std::to_wstring(all->size()),
                                             std::to_wstring(*buffer)});
        return false;
    }
    bytes = all->substr(*offset, *length);
    stride = *step;
    return true;
}

/// Finds a run of elements in the buffer view that an object names.
///
/// @param run  Its count and its type of component are set already.
bool findRun(GltfFile& file, const JsonValue& owner, std::uint64_t accessor, std::size_t components,
             GltfRun& run, std::wstring& reason)
{
    const auto viewIndex = WholeMember(owner, "bufferView");
    const auto offset = WholeMember(owner, "byteOffset", 0);
    if (!viewIndex || !offset) {
        reason = badValue(L"accessor", accessor, viewIndex ? L"byteOffset" : L"bufferView");
        return false;
    }
    std::string_view bytes;
    std::uint64_t stride = 0;
    if (!findView(file, *viewIndex, bytes, stride, reason))
        return false;
    const std::uint64_t elementSize = SizeOf(run.component) * components;
    if (stride == 0)
        stride = elementSize;
    // At most 2^53 + 2^32 * 2^16 + 64: no overflow.
    const std::uint64_t end = run.count == 0 ? 0 : *offset + (run.count - 1) * stride + elementSize;
    if (end > bytes.size()) {
        reason = FillText(kGltfAccessorOutside,
                          {std::to_wstring(accessor), std::to_wstring(bytes.size()),
                           std::to_wstring(*viewIndex)});
        return false;
    }
    if (run.count > 0)
        run.first = reinterpret_cast<const std::byte*>(bytes.data()) + *offset;
    run.stride = static_cast<std::size_t>(stride);
    return true;
}

bool areIndices(const GltfRun& run)
{
    return run.component == GltfComponent::UnsignedByte ||
           run.component == GltfComponent::UnsignedShort ||
           run.component == GltfComponent::UnsignedInt;
}

bool findSparse(GltfFile& file, const JsonValue& sparse, GltfAccessor& accessor,
                std::wstring& reason)
{
    const auto count = WholeMember(sparse, "count");
    const JsonValue* indices = FindMember(sparse, "indices");
    const JsonValue* values = FindMember(sparse, "values");
    if (!count || *count > kMaxElements || !indices || !values ||
        !toComponent(WholeMember(*indices, "componentType"), accessor.sparseIndices.component) ||
        !areIndices(accessor.sparseIndices)) {
        reason = badValue(L"accessor", accessor.index, L"sparse");
        return false;
    }
    accessor.sparseIndices.count = static_cast<std::size_t>(*count);
    accessor.sparseValues.count = static_cast<std::size_t>(*count);
    accessor.sparseValues.component = accessor.values.component;
    return findRun(file, *indices, accessor.index, 1, accessor.sparseIndices, reason) &&
           findRun(file, *values, accessor.index, accessor.components, accessor.sparseValues,
                   reason);
}

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

std::size_t SizeOf(GltfComponent component)
{
    std::size_t size = 0;
    withType(component, [&](auto zero) { size = sizeof zero; });
    return size;
}

bool FindAccessor(GltfFile& file, std::uint64_t index, GltfAccessor& accessor, std::wstring& reason)
{
    accessor = GltfAccessor();
    accessor.index = index;
    const JsonValue* element = file.Element(GltfList::Accessors, index);
    if (!element) {
        reason = noSuch(L"accessor", index);
        return false;
    }
    const auto count = WholeMember(*element, "count");
    const auto type = std::find_if(std::begin(kTypes), std::end(kTypes), [&](const NamedType& t) {
        return t.name == TextOf(FindMember(*element, "type"));
    });
    if (!count || type == std::end(kTypes) ||
        !toComponent(WholeMember(*element, "componentType"), accessor.values.component)) {
        reason = badValue(L"accessor", index,
                          !count                     ? L"count"
                          : type == std::end(kTypes) ? L"type"
                                                     : L"componentType");
        return false;
    }
    if (*count > kMaxElements) {
        reason = FillText(kGltfTooMany, {std::to_wstring(index)});
        return false;
    }
    accessor.values.count = static_cast<std::size_t>(*count);
    accessor.components = type->components;
    const JsonValue* normalized = FindMember(*element, "normalized");
    accessor.isNormalized = normalized && normalized->IsTrue();
    if (FindMember(*element, "bufferView") &&
        !findRun(file, *element, index, accessor.components, accessor.values, reason))
        return false;
    const JsonValue* sparse = FindMember(*element, "sparse");
    return !sparse || findSparse(file, *sparse, accessor, reason);
}

bool ReadWholeNumbers(GltfFile& file, const GltfAccessor& accessor,
                      MeshArray<std::uint32_t>& numbers, std::wstring& reason)
{
    if (accessor.components != 1 || !areIndices(accessor.values)) {
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
