#include "readers/MeshReader.h"

#include "readers/ReaderTexts.h"

#include <OrvikOs/FaultsAsExceptions.h>
#include <OrvikOs/FpMasked.h>
#include <OrvikOs/MemoryMappedFile.h>
#include <OrvikOs/Utf8.h>

#include <new>
#include <stdexcept>

namespace OrvikMesh {

void PollCancel(const ReadOptions& options)
{
    if (options.isCancelled && options.isCancelled())
        throw ReadCancelled{};
}

void ReportProgress(const ReadOptions& options, double share)
{
    if (options.progress)
        options.progress(share);
}

SharedProgress::SharedProgress(const ReadOptions& options, std::size_t total, double share)
    : m_options(options), m_sharePerUnit(total == 0 ? 0.0 : share / static_cast<double>(total))
{
}

void SharedProgress::Add(std::size_t done)
{
    const std::size_t now = m_done.fetch_add(done, std::memory_order_relaxed) + done;
    ReportProgress(m_options, static_cast<double>(now) * m_sharePerUnit);
}

bool ReadGuarded(const std::function<bool()>& work, ReadMessages& messages)
{
    const OrvikOs::FpMasked masked;
    const OrvikOs::FaultsAsExceptions faults;
    try {
        return work();
    } catch (const ReadCancelled&) {
        messages.Fail(kCancelled);
    } catch (const std::bad_alloc&) {
        messages.Fail(kOutOfMemory);
    } catch (const std::length_error&) {
        messages.Fail(kTooLarge);
    } catch (const OrvikOs::MachineFault& fault) {
        messages.Fail(FillText(kFault, {OrvikOs::Utf8ToWide(fault.what())}));
    }
    return false;
}

bool ReadMappedFile(const std::wstring& path, const ContentReader& reader,
                    const ReadOptions& options, MeshData& mesh, ReadMessages& messages)
{
    OrvikOs::MemoryMappedFile file;
    if (!file.Open(path)) {
        messages.Fail(file.ErrorText());
        return false;
    }
    if (file.Size() == 0) {
        messages.Fail(kEmptyFile);
        return false;
    }
    file.ExpectSequentialReading();
    return ReadGuarded([&] { return reader(file.Text(), options, mesh, messages); }, messages);
}

} // namespace OrvikMesh
