#ifndef ORVIKCAD_KERNEL_PMIRECORDS_H
#define ORVIKCAD_KERNEL_PMIRECORDS_H

#include <cstddef>
#include <string_view>
#include <vector>

namespace OrvikCad {

/// The records of a STEP file as text, by their numbers: for what the kernel has no entity for.
///
/// @thread  One thread.
class StepRecords
{
public:
    /// @param text  The file; outlives the object and everything that it hands out.
    explicit StepRecords(std::string_view text);

    struct Record
    {
        int number = 0;
        std::string_view text; ///< Behind "=", without ";".
    };

    /// @return the text of a record; empty when there is none with that number.
    std::string_view Find(int number) const;

    /// In ascending order of the numbers.
    const std::vector<Record>& All() const { return m_records; }

private:
    std::vector<Record> m_records;
};

/// Finds the arguments of a type in a record, which may be of several types at a time.
///
/// @param type  Such as "GEOMETRIC_TOLERANCE"; found as a whole word outside strings.
/// @return      the arguments without blanks around them; empty where the record is not of it.
std::vector<std::string_view> ArgumentsOf(std::string_view record, std::string_view type);

/// @param list  "(a,b,(c,d))".
/// @return      its items without blanks around them; empty where it is no list.
std::vector<std::string_view> ItemsOf(std::string_view list);

/// @return 12 for "#12", 0 for what is no reference.
int ReferenceOf(std::string_view argument);

/// @return the number; 0 for what is none.
double NumberOf(std::string_view argument);

/// @return what stands between the apostrophes; empty for what is no string.
std::string_view StringOf(std::string_view argument);

} // namespace OrvikCad

#endif
