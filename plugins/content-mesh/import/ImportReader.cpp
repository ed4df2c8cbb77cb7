#include "import/ImportReader.h"

#include "import/ImportTexts.h"
#include "import/MeshImport.h"
#include "import/ModelSink.h"
#include "readers/ReaderTexts.h"

#include <OrvikOs/Library.h>
#include <OrvikOs/MemoryMappedFile.h>
#include <OrvikOs/Utf8.h>

#include <algorithm>
#include <vector>

namespace OrvikMesh {

using OrvikModel::Model;

namespace {

/// Formats whose files the library reads well. Those with readers of their own are not among them,
/// nor those of solids or of motion alone, nor those whose damaged files make it run for ever
/// (OGEX, SMD) or most of a minute (B3D), or fault often (ASE), nor those that it reads wrong
/// without a word (XGL: it passes over transforms and takes commas for points).
constexpr ImportFormat kFormats[] = {
    {L"3DS", L"3D Studio"},
    {L"3MF", L"3D Manufacturing Format"},
    {L"AC", L"AC3D"},
    {L"AMF", L"Additive Manufacturing File"},
    {L"DAE", L"COLLADA"},
    {L"DXF", L"Drawing Exchange"},
    {L"FBX", L"Autodesk FBX"},
    {L"LWO", L"LightWave"},
    {L"NFF", L"Neutral File Format"},
    {L"X", L"Direct3D X"},
    {L"X3D", L"Extensible 3D"},
};

constexpr std::size_t kErrorBytes = 1000;

std::string lowerExtension(const std::wstring& path)
{
    std::string extension = OrvikOs::WideToUtf8(path.substr(path.rfind(L'.') + 1));
    for (char& character : extension)
        if (character >= 'A' && character <= 'Z')
            character = static_cast<char>(character - 'A' + 'a');
    return extension;
}

/// @return the library's function; null with an error in the messages.
ReadMeshFileFn loadReader(const std::wstring& name, ReadMessages& messages)
{
    OrvikOs::Library library;
    if (!library.Load(name)) {
        messages.Fail(FillText(kImportNoLibrary, {name, library.ErrorText()}));
        return nullptr;
    }
    const auto read = reinterpret_cast<ReadMeshFileFn>(library.Symbol(kReadMeshFileSymbol));
    if (!read) {
        messages.Fail(FillText(kImportNoSymbol, {name}));
        return nullptr;
    }
    library.Detach(); // It stays for the life of the process.
    return read;
}

bool isReadable(const std::wstring& path, ReadMessages& messages)
{
    OrvikOs::MemoryMappedFile file;
    if (!file.Open(path))
        messages.Fail(file.ErrorText());
    else if (file.Size() == 0)
        messages.Fail(kEmptyFile);
    else if (file.Size() > kMaxImportBytes)
        messages.Fail(FillText(kImportTooLarge,
                               {std::to_wstring(file.Size()), std::to_wstring(kMaxImportBytes)}));
    return !messages.HasError();
}

bool readWith(ReadMeshFileFn read, const std::wstring& path, ModelSink& sink,
              ReadMessages& messages)
{
    const ImportSink functions = sink.Functions();
    std::vector<char> error(kErrorBytes, '\0');
    const bool isRead = read(OrvikOs::WideToUtf8(path).c_str(), lowerExtension(path).c_str(),
                             &functions, error.data(), error.size());
    sink.Rethrow();
    if (isRead)
        return sink.Finish();
    messages.Fail(FillText(kImportFailed, {OrvikOs::Utf8ToWide(error.data())}));
    return false;
}

} // namespace

std::span<const ImportFormat> ImportFormats()
{
    return kFormats;
}

bool IsImportFormat(std::wstring_view extension)
{
    return std::any_of(std::begin(kFormats), std::end(kFormats),
                       [&](const ImportFormat& format) { return format.extension == extension; });
}

bool ReadImported(const std::wstring& path, const ReadOptions& options, const ShapeMaker& make,
                  Model& model, ReadMessages& messages, const std::wstring& library)
{
    return isReadable(path, messages) &&
           ReadGuarded(
               [&] {
                   const ReadMeshFileFn read = loadReader(library, messages);
                   ModelSink sink(path, options, make, model, messages);
                   return read && readWith(read, path, sink, messages);
               },
               messages);
}

bool ReadImported(const std::wstring& path, const ReadOptions& options, const ShapeMaker& make,
                  Model& model, ReadMessages& messages)
{
    return ReadImported(path, options, make, model, messages, kImportLibrary);
}

} // namespace OrvikMesh
