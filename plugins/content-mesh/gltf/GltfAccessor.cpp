#include "gltf/GltfAccessor.h"

#include "gltf/GltfTexts.h"

#include <algorithm>

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

bool findSparse(GltfFile& file, const JsonValue& sparse, GltfAccessor& accessor,
                std::wstring& reason)
{
    const auto count = WholeMember(sparse, "count");
    const JsonValue* indices = FindMember(sparse, "indices");
    const JsonValue* values = FindMember(sparse, "values");
    if (!count || *count > kMaxElements || !indices || !values ||
        !toComponent(WholeMember(*indices, "componentType"), accessor.sparseIndices.component) ||
        !AreIndices(accessor.sparseIndices)) {
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

} // namespace

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

} // namespace OrvikMesh
