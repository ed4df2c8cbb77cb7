#ifndef ORVIKCAD_KERNEL_FILESTREAM_H
#define ORVIKCAD_KERNEL_FILESTREAM_H

#include <istream>
#include <streambuf>
#include <string>
#include <string_view>

namespace OrvikCad {

/// Hands bytes in memory to the kernel's readers as a stream, in slices: between two slices the
/// running job's cancel is looked at and progress is reported.
///
/// A cancel leaves the reader as the exception JobCancelled.
class FileBuffer final : public std::streambuf
{
public:
    /// @param text  Read first; outlives the buffer.
    /// @param tail  Read after it.
    FileBuffer(std::string_view text, std::string tail);

protected:
    int_type underflow() override;
    pos_type seekoff(off_type offset, std::ios_base::seekdir direction,
                     std::ios_base::openmode which) override;
    pos_type seekpos(pos_type position, std::ios_base::openmode which) override;

private:
    void place(std::size_t from, std::size_t sliceBytes);

    std::string_view m_text;
    std::string m_tail;
    std::size_t m_sliceStart = 0; ///< Of the slice that is read now, within text and tail.
};

/// A stream over a FileBuffer that hands exceptions of the buffer on, reads numbers alike in every
/// locale, and believes no count that is greater than the file is long.
class FileStream final : public std::istream
{
public:
    explicit FileStream(std::string_view text, std::string tail = {});

private:
    FileBuffer m_buffer;
};

} // namespace OrvikCad

#endif
