#ifndef ORVIKOS_COMMON_EXCEPTIONTABLE_H
#define ORVIKOS_COMMON_EXCEPTIONTABLE_H

#include <cstdint>
#include <typeinfo>

namespace OrvikOs {

/// Reads the variable-length values of unwind and exception tables.
class TableReader
{
public:
    explicit TableReader(const unsigned char* position) : m_position(position) {}

    const unsigned char* Position() const { return m_position; }
    unsigned char Byte() { return *m_position++; }
    std::uint64_t Unsigned();
    std::int64_t Signed();

    /// Reads a value in one of the encodings that gcc and clang use on 64-bit processors.
    std::uint64_t Encoded(unsigned char encoding);

private:
    /// Reads seven bits per byte. @param bits  Receives how many were read.
    std::uint64_t sevenBitGroups(unsigned& bits, unsigned char& last);
    template <typename T> T fixed();

    const unsigned char* m_position;
};

/// What a frame does when an exception arrives.
enum class FrameAnswer
{
    Passes,     ///< Lets it pass, perhaps after its destructors.
    Catches,    ///< Has a handler for it.
    Terminates, ///< Would end the program.
};

/// The exception table of one C++ function, as the C++ personality routine reads it.
class ExceptionTable
{
public:
    /// @param table          The function's language-specific data; not owned.
    /// @param functionStart  Address of the function.
    ExceptionTable(const unsigned char* table, std::uint64_t functionStart);

    /// Gives the answer for an exception that arrives at @p address.
    ///
    /// @param type    What is thrown; null when not known, any handler then counts as catching.
    /// @param object  The thrown object; null when not known, handlers then catch their exact type
    /// only.
    FrameAnswer AnswerAt(std::uint64_t address, const std::type_info* type, void* object) const;

private:
    FrameAnswer answerOfAction(std::uint64_t action, const std::type_info* type,
                               void* object) const;

    /// Gives the type of a handler, null for one that catches everything.
    const std::type_info* typeAt(std::uint64_t filter) const;

    std::uint64_t m_functionStart;
    const unsigned char* m_types = nullptr; ///< End of the list of types, which is read backwards.
    const unsigned char* m_sites = nullptr;
    const unsigned char* m_actions = nullptr; ///< Also the end of the sites.
    unsigned char m_typeEncoding = 0;
    unsigned char m_siteEncoding = 0;
};

} // namespace OrvikOs

#endif
