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

    /// @return how many bytes have been read.
    std::size_t Position() const
    {
        return m_sliceStart + static_cast<std::size_t>(gptr() - eback());
    }

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

/// What a stream does when something else is read than was expected, or nothing.
enum class OnBadText
{
    Fail,  ///< As streams do: the reader has to look.
    Throw, ///< Throws std::ios_base::failure, for readers that do not look.
};

/// A stream over a FileBuffer that hands exceptions of the buffer on, reads numbers alike in every
/// locale, and takes a whole number that is greater than the file is long for bad text.
class FileStream final : public std::istream
{
public:
    FileStream(std::string_view text, std::string tail, OnBadText onBadText);

    /// @return how many bytes have been read.
    std::size_t Position() const { return m_buffer.Position(); }

private:
    FileBuffer m_buffer;
};

} // namespace OrvikCad

#endif
