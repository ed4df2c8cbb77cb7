#include "readers/ObjMaterials.h"

#include "readers/LineScan.h"
#include "readers/MeshReader.h"
#include "readers/ReaderTexts.h"
#include "readers/SideFiles.h"
#include "readers/TextEncoding.h"

#include <OrvikOs/MemoryMappedFile.h>
#include <OrvikOs/Utf8.h>

#include <algorithm>
#include <optional>
#include <set>

namespace OrvikMesh {

namespace {

/// Undefined materials that are named one by one.
constexpr std::size_t kMaxNamedMaterials = 8;

/// Reads up to three numbers. @return how many there were.
std::size_t readNumbers(std::string_view text, float* values)
{
    const char* at = text.data();
    const char* end = at + text.size();
    std::size_t count = 0;
    for (; count < 3; ++count) {
        at = SkipBlanks(at, end);
        const char* next = ScanFloat(at, end, values[count]);
        if (!next)
            break;
        at = next;
    }
    return count;
}

float toUnit(float value)
{
    return value >= 0.0f ? std::min(value, 1.0f) : 0.0f;
}

/// Applies one line after "newmtl" to the colour of its material.
void applyLine(std::string_view keyword, std::string_view rest, MeshColor& color)
{
    float values[3];
    const std::size_t count = readNumbers(rest, values);
    if (keyword == "Kd" && count > 0) {
        color.red = toUnit(values[0]);
        color.green = toUnit(values[count == 3 ? 1 : 0]);
        color.blue = toUnit(values[count == 3 ? 2 : 0]);
    } else if (keyword == "d" && count > 0) {
        color.alpha = toUnit(values[0]);
    } else if (keyword == "Tr" && count > 0) {
        color.alpha = toUnit(1.0f - values[0]);
    }
}

/// @return the system's text when the file cannot be opened.
std::optional<std::wstring> readLibrary(const std::wstring& path, MaterialColors& colors)
{
    OrvikOs::MemoryMappedFile file;
    if (!file.Open(path))
        return file.ErrorText();
    std::string storage;
    ReadMaterialText(ToUtf8Text(file.Text(), storage), colors);
    return std::nullopt;
}

/// The file names of a "mtllib" line: its whole rest when there is such a file, for names with
/// blanks; else each word.
std::vector<std::string> libraryNames(const std::wstring& path, const std::string& rest)
{
    if (rest.find_first_of(" \t") == std::string::npos)
        return {rest};
    OrvikOs::MemoryMappedFile whole;
    if (StaysInFolder(rest) && whole.Open(PathBeside(path, rest)))
        return {rest};
    std::vector<std::string> names;
    for (std::string_view left = rest; !left.empty();) {
        const std::size_t end = std::min(left.find_first_of(" \t"), left.size());
        names.emplace_back(left.substr(0, end));
        left = Trimmed(left.substr(end));
    }
    return names;
}

void readLibraries(const std::wstring& path, const std::vector<std::string>& libraries,
                   MaterialColors& colors, ReadMessages& messages)
{
    std::set<std::string> known;
    for (const std::string& rest : libraries) {
        for (const std::string& name : libraryNames(path, rest)) {
            if (!known.insert(name).second)
                continue;
            if (known.size() > kMaxLibraries) {
                messages.Warn(FillText(kObjManyLibraries, {std::to_wstring(kMaxLibraries)}));
                return;
            }
            const std::wstring wideName = OrvikOs::Utf8ToWide(name);
            if (!StaysInFolder(name)) {
                messages.Warn(FillText(kObjForeignLibrary, {wideName}));
                continue;
            }
            if (const auto error = readLibrary(PathBeside(path, name), colors))
                messages.Warn(FillText(kObjNoLibrary, {wideName, *error}));
        }
    }
}

} // namespace

void ReadMaterialText(std::string_view text, MaterialColors& colors)
{
    MeshColor ignored;
    MeshColor* current = &ignored;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string_view line = Trimmed(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        const std::size_t keywordEnd = std::min(line.find_first_of(" \t"), line.size());
        const std::string_view keyword = line.substr(0, keywordEnd);
        const std::string_view rest = Trimmed(line.substr(keywordEnd));
        if (keyword == "newmtl") {
            const auto [entry, isNew] = colors.emplace(std::string(rest), MeshColor{});
            current = isNew ? &entry->second : &ignored;
        } else {
            applyLine(keyword, rest, *current);
        }
    }
}

void LoadMaterials(const std::wstring& path, const std::vector<std::string>& libraries,
                   const std::vector<std::string>& names, std::vector<MeshMaterial>& materials,
                   ReadMessages& messages)
{
    MaterialColors colors;
    readLibraries(path, libraries, colors, messages);
    std::size_t undefined = 0;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const auto found = colors.find(names[i]);
        if (found != colors.end()) {
            materials[i].color = found->second;
            materials[i].hasColor = true;
        } else if (!libraries.empty() && !colors.empty() && ++undefined <= kMaxNamedMaterials) {
            messages.Warn(FillText(kObjNoMaterial, {materials[i].name}));
        }
    }
    if (undefined > kMaxNamedMaterials)
        messages.Warn(
            FillText(kObjMoreMaterials, {std::to_wstring(undefined - kMaxNamedMaterials)}));
}

} // namespace OrvikMesh
