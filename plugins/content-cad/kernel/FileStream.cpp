#include "kernel/FileStream.h"

#include "kernel/KernelWatch.h"

#include <TambCommandsInfra/Progress.h>

#include <algorithm>
#include <locale>
#include <utility>

namespace OrvikCad {

namespace {

constexpr std::size_t kSliceBytes = 64 * 1024;

/// Refuses whole numbers that cannot be counts of anything in a file of a certain length: they
/// would be allocated before the file turns out to be shorter.
class CountChecker final : public std::num_get<char>
{
public:
    explicit CountChecker(std::size_t limit) : m_limit(static_cast<long>(limit)) {}

protected:
    iter_type do_get(iter_type from, iter_type to, std::ios_base& stream,
                     std::ios_base::iostate& state, long& value) const override
    {
        const iter_type end = std::num_get<char>::do_get(from, to, stream, state, value);
        if (value > m_limit || value < -m_limit) {
            value = 0;
            state |= std::ios_base::failbit;
        }
        return end;
    }

private:
    long m_limit;
};

} // namespace

FileBuffer::FileBuffer(std::string_view text, std::string tail)
    : m_text(text), m_tail(std::move(tail))
{
}

/// Makes readable what begins at a place in the text or the tail.
void FileBuffer::place(std::size_t from, std::size_t sliceBytes)
{
    const bool isTail = from >= m_text.size();
    const std::string_view whole = isTail ? std::string_view(m_tail) : m_text;
    const std::size_t offset = isTail ? std::min(from - m_text.size(), m_tail.size()) : from;
    m_sliceStart = isTail ? m_text.size() + offset : from;
    // The base class wants a place to write to; nothing is ever put back that was not read.
    char* first = const_cast<char*>(whole.data()) + offset;
    setg(first, first, first + std::min(sliceBytes, whole.size() - offset));
}

FileBuffer::int_type FileBuffer::underflow()
{
    PollJob();
    const std::size_t next = m_sliceStart + static_cast<std::size_t>(egptr() - eback());
    if (next >= m_text.size() + m_tail.size())
        return traits_type::eof();
    if (!m_text.empty())
        TambCommandsInfra::Progress::Instance().Report(static_cast<double>(next) /
                                                       static_cast<double>(m_text.size()));
    place(next, kSliceBytes);
    return traits_type::to_int_type(*gptr());
}

FileBuffer::pos_type FileBuffer::seekoff(off_type offset, std::ios_base::seekdir direction,
                                         std::ios_base::openmode which)
{
    const std::size_t size = m_text.size() + m_tail.size();
    off_type base = 0;
    if (direction == std::ios_base::cur)
        base = static_cast<off_type>(Position());
    else if (direction == std::ios_base::end)
        base = static_cast<off_type>(size);
    return seekpos(pos_type(base + offset), which);
}

FileBuffer::pos_type FileBuffer::seekpos(pos_type position, std::ios_base::openmode /*which*/)
{
    const off_type wanted = position;
    if (wanted < 0 || static_cast<std::size_t>(wanted) > m_text.size() + m_tail.size())
        return pos_type(off_type(-1));
    place(static_cast<std::size_t>(wanted), 0);
    return position;
}

FileStream::FileStream(std::string_view text, std::string tail, OnBadText onBadText)
    : std::istream(nullptr), m_buffer(text, std::move(tail))
{
    rdbuf(&m_buffer);
    imbue(std::locale(std::locale::classic(), new CountChecker(text.size())));
    exceptions(onBadText == OnBadText::Throw ? std::ios_base::badbit | std::ios_base::failbit
                                             : std::ios_base::badbit);
}

} // namespace OrvikCad
