#ifndef TESTS_DATA_STEPTEXT_H
#define TESTS_DATA_STEPTEXT_H

#include <filesystem>
#include <string>
#include <string_view>

namespace TestData {

std::string ReadText(const std::filesystem::path& file);
void WriteText(const std::filesystem::path& file, std::string_view text);

/// How names stand in a STEP file.
enum class NameCoding
{
    Escaped, ///< What is not ASCII as the format's own escapes, "\X2\...\X0\".
    Utf8,    ///< As the kernel writes them.
};

/// Takes out of a STEP file what differs from run to run: the time, and the numbers of placements,
/// which the kernel counts through a whole process.
void SettleStepFile(const std::filesystem::path& file, NameCoding coding);

/// Replaces the first @p from at or behind a position by @p to.
/// @throws std::runtime_error when it is not there.
void ReplaceInText(std::string& text, std::string_view from, std::string_view to,
                   std::size_t position = 0);

/// Adds entities to the data section of a STEP file.
///
/// @param entities  Text in which "@1" to "@99" stand for new entities and "#7" for those that are
///                  there.
void AppendEntities(std::string& stepText, std::string_view entities);

/// Finds the number of the first entity whose text begins so, such as "DRAUGHTING_CALLOUT(".
/// @throws std::runtime_error when there is none.
int FindEntity(const std::string& stepText, std::string_view beginning);

} // namespace TestData

#endif
