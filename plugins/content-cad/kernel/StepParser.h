#ifndef ORVIKCAD_KERNEL_STEPPARSER_H
#define ORVIKCAD_KERNEL_STEPPARSER_H

#include <Interface_ParamType.hxx>
#include <StepData_StepReaderData.hxx>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace OrvikCad {

/// Takes a STEP file apart into the records that the kernel makes entities of: one for each entity,
/// and before it one for each list inside of it, innermost first.
///
/// It reads what the kernel's own parser reads, several times faster, as long as the file's syntax
/// is plain: one data section, no scopes, no errors. For everything else that parser is there; it
/// recovers from errors.
class StepParser
{
public:
    /// @param text  Copied.
    explicit StepParser(std::string_view text);

    /// Takes the text apart, polling the running job's cancel.
    /// @return false where the kernel's own parser has to read the file.
    /// @throws TambCommandsInfra::JobCancelled
    bool Parse();

    /// Hands the records over, and forgets them. The result refers to the text that this object
    /// keeps.
    Handle(StepData_StepReaderData) Release(Resource_FormatType codePage);

private:
    struct Record
    {
        const char* ident;
        const char* type;
        std::uint32_t firstArgument;
        std::uint32_t argumentCount;
    };
    struct Argument
    {
        const char* value;
        Interface_ParamType type;
    };

    bool parseWord(std::string_view word);
    bool parseHeader();
    bool parseData();
    bool parseEntity(const char* ident);
    bool parseType(const char*& type);
    bool parseArguments();
    bool parseArgument();
    bool parseNumber();
    bool parseText();
    bool parseUntil(char end, Interface_ParamType type);
    void closeList(const char* ident, const char* type, std::size_t firstPending);
    const char* subListIdent(std::uint32_t number);
    void skipBlanks();
    bool take(char expected);
    void endToken();

    std::unique_ptr<char[]> m_text; ///< Tokens in it are ended by zeros as they are read.
    char* m_at;
    char* m_end;
    char* m_tokenEnd = nullptr; ///< To be set to zero when what follows has been looked at.
    std::vector<Record> m_records;
    std::vector<Argument> m_arguments;
    std::vector<Argument> m_pending; ///< Of the lists that are open.
    std::deque<std::string> m_subListIdents;
    std::uint32_t m_listCount = 0; ///< Lists that the present entity has so far.
    std::uint32_t m_depth = 0;
    std::size_t m_headerRecords = 0;
};

} // namespace OrvikCad

#endif
