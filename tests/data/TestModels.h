#ifndef TESTS_DATA_TESTMODELS_H
#define TESTS_DATA_TESTMODELS_H

#include <filesystem>
#include <vector>

namespace TestData {

/// One model that the program can write.
struct TestModel
{
    const char* file;  ///< Its name, which is also what it is asked for by.
    const char* about; ///< What is in it, one line.
    void (*write)(const std::filesystem::path& file);
};

std::vector<TestModel> AssemblyModels();   ///< Structure, names, colours, layers, references.
std::vector<TestModel> PlainModels();      ///< Units, free shapes, validation, BREP, IGES.
std::vector<TestModel> AnnotationModels(); ///< PMI and saved views.
std::vector<TestModel> LargeModels();      ///< For measurements; seconds to write.

} // namespace TestData

#endif
