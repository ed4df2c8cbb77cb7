#include "gltf/GltfFile.h"

#include "gltf/DataUri.h"
#include "gltf/GltfTexts.h"
#include "readers/SideFiles.h"

#include <OrvikOs/Utf8.h>

#include <algorithm>
#include <utility>

namespace OrvikMesh {

namespace {

constexpr const char* kListNames[] = {"accessors", "bufferViews", "buffers", "materials",
                                      "meshes",    "nodes",       "scenes"};

/// Extensions that a file may require: those that change numbers, which are read, and those that
/// say what surfaces and light look like, which change no shape.
constexpr std::string_view kKnownExtensions[] = {
    "EXT_lights_image_based",
    "EXT_texture_avif",
    "EXT_texture_webp",
    "KHR_lights_punctual",
    "KHR_materials_anisotropy",
    "KHR_materials_clearcoat",
    "KHR_materials_dispersion",
    "KHR_materials_emissive_strength",
    "KHR_materials_ior",
    "KHR_materials_iridescence",
    "KHR_materials_pbrSpecularGlossiness",
    "KHR_materials_sheen",
    "KHR_materials_specular",
    "KHR_materials_transmission",
    "KHR_materials_unlit",
    "KHR_materials_variants",
    "KHR_materials_volume",
    "KHR_mesh_quantization",
    "KHR_texture_basisu",
    "KHR_texture_transform",
    "KHR_xmp",
    "KHR_xmp_json_ld",
    "MSFT_texture_dds",
};

bool isKnown(std::string_view extension)
{
    return std::find(std::begin(kKnownExtensions), std::end(kKnownExtensions), extension) !=
           std::end(kKnownExtensions);
}

bool startsWith(std::string_view text, std::string_view beginning)
{
    return text.substr(0, beginning.size()) == beginning;
}

} // namespace

bool MemoryBudget::Take(std::uint64_t bytes)
{
    if (bytes > m_left)
        return false;
    m_left -= bytes;
    return true;
}

GltfFile::GltfFile(const std::wstring& path, std::string_view content, const ReadOptions& options,
                   ReadMessages& messages)
    : m_path(path), m_content(content), m_options(options), m_messages(messages)
{
    m_budget.Allow(content.size());
}

GltfFile::~GltfFile() = default;

bool GltfFile::Open()
{
    if (!SplitGltf(m_content, m_container, m_messages))
        return false;
    if (!m_json.Parse(m_container.json, m_container.jsonOffset, m_options, m_messages))
        return false;
    if (!checkVersion() || !checkExtensions())
        return false;
    for (std::size_t i = 0; i < m_lists.size(); ++i) {
        m_lists[i] = FindList(Root(), kListNames[i]);
        if (!m_lists[i] && FindMember(Root(), kListNames[i])) {
            m_messages.Fail(FillText(kGltfNotList, {OrvikOs::Utf8ToWide(kListNames[i])}));
            return false;
        }
    }
    return true;
}

bool GltfFile::checkVersion()
{
    const JsonValue* asset = FindMember(Root(), "asset");
    const std::wstring version = asset ? WideTextOf(FindMember(*asset, "version")) : L"";
    const std::wstring least = asset ? WideTextOf(FindMember(*asset, "minVersion")) : L"";
    if (version.empty()) {
        m_messages.Fail(kGltfNoVersion);
        return false;
    }
    for (const std::wstring& wanted : {least.empty() ? version : least, version}) {
        if (wanted.substr(0, 2) != L"2.") {
            m_messages.Fail(FillText(kGltfVersion, {wanted}));
            return false;
        }
    }
    return true;
}

bool GltfFile::checkExtensions()
{
    const JsonValue* required = FindList(Root(), "extensionsRequired");
    if (!required)
        return true;
    for (const JsonValue& extension : required->GetArray()) {
        if (isKnown(TextOf(&extension)))
            continue;
        m_messages.Fail(FillText(kGltfExtension, {WideTextOf(&extension)}));
        return false;
    }
    return true;
}

std::uint64_t GltfFile::Count(GltfList list) const
{
    const JsonValue* found = m_lists[static_cast<std::size_t>(list)];
    return found ? found->Size() : 0;
}

const JsonValue* GltfFile::Element(GltfList list, std::uint64_t index) const
{
    if (index >= Count(list))
        return nullptr;
    const JsonValue& element =
        (*m_lists[static_cast<std::size_t>(list)])[static_cast<rapidjson::SizeType>(index)];
    return element.IsObject() ? &element : nullptr;
}

std::optional<std::string_view> GltfFile::BufferBytes(std::uint64_t index, std::wstring& reason)
{
    const auto [entry, isNew] = m_buffers.try_emplace(index);
    Buffer& buffer = entry->second;
    if (isNew)
        loadBuffer(index, buffer);
    if (buffer.reason.empty())
        return buffer.bytes;
    reason = buffer.reason;
    return std::nullopt;
}

void GltfFile::loadBuffer(std::uint64_t index, Buffer& buffer)
{
    const JsonValue* element = Element(GltfList::Buffers, index);
    if (!element) {
        buffer.reason = FillText(kGltfNoSuch, {L"buffer", std::to_wstring(index)});
        return;
    }
    const JsonValue* uri = FindMember(*element, "uri");
    if (uri)
        loadUri(index, TextOf(uri), buffer);
    else if (index == 0 && m_container.binary)
        buffer.bytes = *m_container.binary;
    else
        buffer.reason = FillText(kGltfNoData, {std::to_wstring(index)});
    if (!buffer.reason.empty())
        return;
    const std::uint64_t announced = WholeMember(*element, "byteLength").value_or(0);
    // Bytes after the announced ones only fill up; without a good number all bytes count.
    if (announced > buffer.bytes.size())
        m_messages.Warn(FillText(kGltfShortBuffer,
                                 {std::to_wstring(index), std::to_wstring(buffer.bytes.size()),
                                  std::to_wstring(announced)}));
    else if (announced > 0)
        buffer.bytes = buffer.bytes.substr(0, announced);
}

void GltfFile::loadUri(std::uint64_t index, std::string_view uri, Buffer& buffer)
{
    if (startsWith(uri, "data:"))
        loadDataUri(index, uri, buffer);
    else
        loadSideFile(uri, buffer);
}

void GltfFile::loadDataUri(std::uint64_t index, std::string_view uri, Buffer& buffer)
{
    constexpr std::string_view kBase64 = ";base64";
    const std::size_t comma = uri.find(',');
    if (comma == std::string_view::npos) {
        buffer.reason = FillText(kGltfBadDataUri, {std::to_wstring(index)});
        return;
    }
    const std::string_view kind = uri.substr(0, comma);
    const std::string_view data = uri.substr(comma + 1);
    const bool isBase64 =
        kind.size() >= kBase64.size() && kind.substr(kind.size() - kBase64.size()) == kBase64;
    std::size_t badCharacter = 0;
    if (!isBase64)
        buffer.decoded = DecodePercents(data);
    else if (!DecodeBase64(data, m_options, buffer.decoded, badCharacter))
        buffer.reason =
            FillText(kGltfBadBase64, {std::to_wstring(index), std::to_wstring(badCharacter)});
    buffer.bytes = buffer.decoded;
}

void GltfFile::loadSideFile(std::string_view uri, Buffer& buffer)
{
    const std::string name = DecodePercents(uri);
    if (m_path.empty() || !StaysInFolder(name)) {
        buffer.reason = FillText(kGltfForeignFile, {OrvikOs::Utf8ToWide(name)});
        return;
    }
    const auto [entry, isNew] = m_sideFiles.try_emplace(name);
    OrvikOs::MemoryMappedFile& file = entry->second;
    if (!file.IsOpen() && !file.Open(PathBeside(m_path, name))) {
        buffer.reason = FillText(kGltfNoFile, {OrvikOs::Utf8ToWide(name), file.ErrorText()});
        return;
    }
    if (isNew)
        m_budget.Allow(file.Size());
    buffer.bytes = file.Text();
}

} // namespace OrvikMesh
