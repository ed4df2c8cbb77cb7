#include "writers/FileSink.h"

#include "writers/WriterTexts.h"

#include <OrvikOs/FpMasked.h>

#include <charconv>
#include <new>

namespace OrvikMesh {

namespace {

/// Bytes that are written at a time: some milliseconds.
constexpr std::size_t kBufferBytes = 1u << 20;
/// The longest text of a number.
constexpr std::size_t kNumberBytes = 32;

} // namespace

FileSink::FileSink(const std::wstring& path, const WriteOptions& options)
    : m_options(options), m_buffer(std::make_unique<char[]>(kBufferBytes))
{
    if (!m_file.Open(path))
        throw WriteFailed{m_file.ErrorText()};
}

void FileSink::SetProgress(std::size_t done, std::size_t total)
{
    m_share = static_cast<double>(done) / static_cast<double>(total);
}

/// @return the room in the buffer, never 0.
std::size_t FileSink::room()
{
    if (m_size == kBufferBytes)
        flush();
    return kBufferBytes - m_size;
}

void FileSink::flush()
{
    if (m_options.isCancelled && m_options.isCancelled())
        throw WriteCancelled{};
    if (!m_file.Write(m_buffer.get(), m_size))
        throw WriteFailed{m_file.ErrorText()};
    m_size = 0;
    if (m_options.progress)
        m_options.progress(m_share);
}

void FileSink::Number(float value)
{
    if (kBufferBytes - m_size < kNumberBytes)
        flush();
    char* begin = m_buffer.get() + m_size;
    m_size +=
        static_cast<std::size_t>(std::to_chars(begin, begin + kNumberBytes, value).ptr - begin);
}

void FileSink::Number(std::uint64_t value)
{
    if (kBufferBytes - m_size < kNumberBytes)
        flush();
    char* begin = m_buffer.get() + m_size;
    m_size +=
        static_cast<std::size_t>(std::to_chars(begin, begin + kNumberBytes, value).ptr - begin);
}

void FileSink::Commit()
{
    flush();
    if (!m_file.Commit())
        throw WriteFailed{m_file.ErrorText()};
}

bool WriteGuarded(const std::function<void()>& work, ReadMessages& messages)
{
    const OrvikOs::FpMasked masked;
    try {
        work();
        return true;
    } catch (const WriteCancelled&) {
        messages.Fail(kWriteCancelled);
    } catch (const WriteFailed& failure) {
        messages.Fail(failure.reason);
    } catch (const std::bad_alloc&) {
        messages.Fail(kWriteOutOfMemory);
    }
    return false;
}

} // namespace OrvikMesh
