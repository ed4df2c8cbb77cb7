#ifndef ORVIKCAD_INTERFACE_CADMESSAGES_H
#define ORVIKCAD_INTERFACE_CADMESSAGES_H

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace OrvikCad {

/// What reading or writing one file has to say: at most one error, and warnings in order.
///
/// Every text reads "<file>: <reason>", "<file>: line 7: <reason>" or "<file>: #12: <reason>" for
/// an entity of a STEP or IGES file. The same warning is told once. After kMaxWarnings of them one
/// more says how many were left out.
///
/// @thread  One thread.
class CadMessages
{
public:
    /// Warnings that are told one by one.
    static constexpr std::size_t kMaxWarnings = 50;

    /// @param fileName  As it stands in the texts.
    explicit CadMessages(std::wstring fileName);

    /// Sets the error; an error set before stays.
    void Fail(std::wstring_view reason);
    void FailAtLine(std::uint64_t line, std::wstring_view reason);

    void Warn(std::wstring_view reason);
    void WarnAtLine(std::uint64_t line, std::wstring_view reason);
    void WarnAtEntity(std::uint64_t entity, std::wstring_view reason);

    bool HasError() const { return !m_error.empty(); }
    const std::wstring& Error() const { return m_error; }
    /// @return the warnings, at most kMaxWarnings and the one that counts the others.
    std::vector<std::wstring> Warnings() const;
    const std::wstring& FileName() const { return m_fileName; }

private:
    void addWarning(std::wstring text);

    std::wstring m_fileName;
    std::wstring m_error;
    std::vector<std::wstring> m_warnings;
    std::size_t m_leftOut = 0; ///< Warnings after the first kMaxWarnings.
};

/// Puts values into a text: "%1" becomes the first, "%2" the second; at most nine.
std::wstring FillText(std::wstring_view text, std::initializer_list<std::wstring> values);

} // namespace OrvikCad

#endif
