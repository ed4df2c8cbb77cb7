#include "import/ImportReader.h"

#include "import/ImportTexts.h"
#include "import/ImportWire.h"
#include "import/MeshImport.h"
#include "import/ModelSink.h"
#include "readers/ReaderTexts.h"

#include <OrvikOs/Library.h>
#include <OrvikOs/MemoryMappedFile.h>
#include <OrvikOs/Utf8.h>

#include <algorithm>
#include <cctype>
#include <optional>
#include <string_view>
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

constexpr std::uint64_t kMegabyte = 1000000;
constexpr std::uint64_t kBaseMemory = 64 * kMegabyte;
constexpr std::uint64_t kMemoryPerByte = 40;
constexpr std::uint32_t kBaseSeconds = 30;
constexpr std::uint64_t kBytesPerSecond = 500000; ///< Less than any reader of the library manages.

std::string lowerExtension(const std::wstring& path)
{
    std::string extension = OrvikOs::WideToUtf8(path.substr(path.rfind(L'.') + 1));
    for (char& character : extension)
        if (character >= 'A' && character <= 'Z')
            character = static_cast<char>(character - 'A' + 'a');
    return extension;
}

/// Tells whether a reason of the library says where in the file it was found.
bool namesPlace(const std::string& reason)
{
    constexpr std::string_view kWords[] = {"line ", "Line ", "offset "};
    return std::any_of(std::begin(kWords), std::end(kWords), [&](std::string_view word) {
        const std::size_t number = reason.find(word);
        return number != std::string::npos && number + word.size() < reason.size() &&
               std::isdigit(static_cast<unsigned char>(reason[number + word.size()])) != 0;
    });
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

/// @return the size of the file; nothing with an error in the messages.
std::optional<std::uint64_t> readableSize(const std::wstring& path, ReadMessages& messages)
{
    OrvikOs::MemoryMappedFile file;
    if (!file.Open(path))
        messages.Fail(file.ErrorText());
    else if (file.Size() == 0)
        messages.Fail(kEmptyFile);
    else if (file.Size() > kMaxImportBytes)
        messages.Fail(FillText(kImportTooLarge,
                               {std::to_wstring(file.Size()), std::to_wstring(kMaxImportBytes)}));
    return messages.HasError() ? std::nullopt : std::optional<std::uint64_t>(file.Size());
}

/// A call of the library's function.
class ImportCall
{
public:
    ImportCall(ReadMeshFileFn read, const std::wstring& path, std::uint64_t fileBytes)
        : m_read(read),
          m_path(OrvikOs::WideToUtf8(path)),
          m_extension(lowerExtension(path)),
          m_fileBytes(fileBytes)
    {
    }

    /// @return false with an error in the messages, or without one when the sink wants no more or
    ///         the library failed.
    bool Run(const ImportSink& sink, ReadMessages& messages) const
    {
        const OrvikOs::ApartLimits limits = ImportLimits(m_fileBytes);
        WireReader reader(sink, limits.memoryBytes);
        const OrvikOs::ApartEnd end = OrvikOs::RunApart(
            [this](const OrvikOs::ApartWriter& write) {
                WireWriter writer(write);
                std::string reason;
                const bool isRead = call(writer.Functions(), reason);
                writer.End(isRead, reason);
            },
            limits,
            [&](const void* bytes, std::size_t count) {
                return sink.isWanted(sink.context) && reader.Take(bytes, count);
            });
        if (end == OrvikOs::ApartEnd::Unavailable)
            return runHere(sink, messages);
        if (end == OrvikOs::ApartEnd::TimeUp)
            messages.Fail(FillText(kImportTime, {std::to_wstring(limits.processorSeconds),
                                                 std::to_wstring(m_fileBytes)}));
        else if (reader.IsEnded() && !reader.IsRead())
            fail(reader.Reason(), messages);
        return reader.IsEnded() && reader.IsRead();
    }

private:
    bool call(const ImportSink& sink, std::string& reason) const
    {
        std::vector<char> error(kErrorBytes, '\0');
        const bool isRead =
            m_read(m_path.c_str(), m_extension.c_str(), &sink, error.data(), error.size());
        reason = error.data();
        return isRead;
    }

    bool runHere(const ImportSink& sink, ReadMessages& messages) const
    {
        std::string reason;
        const bool isRead = call(sink, reason);
        if (!isRead)
            fail(reason, messages);
        return isRead;
    }

    void fail(const std::string& reason, ReadMessages& messages) const
    {
        const std::uint64_t megabytes = ImportLimits(m_fileBytes).memoryBytes / kMegabyte;
        if (reason.find("std::bad_alloc") != std::string::npos)
            messages.Fail(FillText(kImportMemory,
                                   {std::to_wstring(megabytes), std::to_wstring(m_fileBytes)}));
        else if (reason.find("mNumMeshes is 0") != std::string::npos)
            messages.Fail(kImportNoGeometry);
        else
            messages.Fail(FillText(namesPlace(reason) ? kImportFailed : kImportFailedSomewhere,
                                   {OrvikOs::Utf8ToWide(reason)}));
    }

    ReadMeshFileFn m_read;
    const std::string m_path;
    const std::string m_extension;
    const std::uint64_t m_fileBytes;
};

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

OrvikOs::ApartLimits ImportLimits(std::uint64_t fileBytes)
{
    OrvikOs::ApartLimits limits;
    limits.memoryBytes = kBaseMemory + kMemoryPerByte * fileBytes;
    limits.processorSeconds =
        kBaseSeconds + static_cast<std::uint32_t>(fileBytes / kBytesPerSecond);
    return limits;
}

bool ReadImported(const std::wstring& path, const ReadOptions& options, const ShapeMaker& make,
                  Model& model, ReadMessages& messages, const std::wstring& library)
{
    const std::optional<std::uint64_t> fileBytes = readableSize(path, messages);
    return fileBytes &&
           ReadGuarded(
               [&] {
                   const ReadMeshFileFn read = loadReader(library, messages);
                   if (!read)
                       return false;
                   ModelSink sink(path, options, make, model, messages);
                   const bool isRead =
                       ImportCall(read, path, *fileBytes).Run(sink.Functions(), messages);
                   sink.Rethrow();
                   if (!isRead && !messages.HasError())
                       messages.Fail(kImportFault);
                   return isRead && sink.Finish();
               },
               messages);
}

bool ReadImported(const std::wstring& path, const ReadOptions& options, const ShapeMaker& make,
                  Model& model, ReadMessages& messages)
{
    return ReadImported(path, options, make, model, messages, kImportLibrary);
}

} // namespace OrvikMesh
