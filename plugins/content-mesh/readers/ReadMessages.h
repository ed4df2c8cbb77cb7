#ifndef ORVIKMESH_READERS_READMESSAGES_H
#define ORVIKMESH_READERS_READMESSAGES_H

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace OrvikMesh {

/// Where in a file something was found; lines count from 1, bytes from 0.
struct ReadPlace
{
    enum class Unit
    {
        File, ///< The file as a whole.
        Byte,
        Line,
    };
    Unit unit = Unit::File;
    std::uint64_t number = 0;

    static ReadPlace Byte(std::uint64_t number) { return {Unit::Byte, number}; }
    static ReadPlace Line(std::uint64_t number) { return {Unit::Line, number}; }
};

/// What a reader has to say about one file: at most one error, and warnings in order.
///
/// Every text reads "<file>: <reason>", "<file>: byte 84: <reason>" or "<file>: line 7: <reason>".
/// One thread.
class ReadMessages
{
public:
    /// @param fileName  As it stands in the texts.
    explicit ReadMessages(std::wstring fileName);

    /// Sets the error; an error set before stays.
    void Fail(std::wstring_view reason, ReadPlace place = {});
    void Warn(std::wstring_view reason, ReadPlace place = {});

    bool HasError() const { return !m_error.empty(); }
    const std::wstring& Error() const { return m_error; }
    const std::vector<std::wstring>& Warnings() const { return m_warnings; }
    const std::wstring& FileName() const { return m_fileName; }

private:
    std::wstring compose(std::wstring_view reason, ReadPlace place) const;

    std::wstring m_fileName;
    std::wstring m_error;
    std::vector<std::wstring> m_warnings;
};

/// Puts values into a text: "%1" becomes the first, "%2" the second; at most nine.
std::wstring FillText(std::wstring_view text, std::initializer_list<std::wstring> values);

/// Something that occurs often and is told once: how often, and where first.
struct Occurrences
{
    std::uint64_t count = 0;
    std::uint64_t first = 0; ///< Byte offset of the first one; meaningless while count is 0.

    void Add(std::uint64_t offset)
    {
        if (count++ == 0)
            first = offset;
    }
};

/// @return the number, from 1, of the line that holds the byte at @p offset. Lines end with LF.
std::uint64_t LineAt(std::string_view content, std::uint64_t offset);

} // namespace OrvikMesh

#endif
