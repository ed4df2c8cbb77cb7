#ifndef ORVIKCAD_TESTS_KERNELFIXTURE_H
#define ORVIKCAD_TESTS_KERNELFIXTURE_H

#include "interface/CadMessages.h"
#include "kernel/CadKernel.h"

#include <OrvikOs/Utf8.h>

#include <OrvikModel/Model.h>
#include <ScopedTempDir.h>
#include <gmock/gmock.h>

namespace OrvikCad {

/// Reads models of the tests, writes them and reads what was written.
class KernelFixture : public testing::Test
{
protected:
    OrvikModel::Model Read(const std::wstring& path, CadFormat format)
    {
        OrvikModel::Model model;
        CadMessages messages(path);
        EXPECT_TRUE(kernel.Read(path, format, {}, model, messages))
            << OrvikOs::WideToUtf8(messages.Error());
        warnings = messages.Warnings();
        return model;
    }

    static std::wstring PathOf(const std::string& name)
    {
        return OrvikOs::Utf8ToWide(std::string(ORVIK_TEST_MODELS) + "/" + name);
    }

    OrvikModel::Model ReadTestModel(const std::string& name, CadFormat format = CadFormat::Step)
    {
        return Read(PathOf(name), format);
    }

    /// Leaves the warnings of the writing in the fixture.
    OrvikModel::Model WriteAndRead(const OrvikModel::Model& model, CadFormat format)
    {
        const std::wstring path = folder.WidePath(L"written");
        CadMessages messages(path);
        EXPECT_TRUE(kernel.Write(path, format, model, messages))
            << OrvikOs::WideToUtf8(messages.Error());
        OrvikModel::Model read = Read(path, format);
        warnings = messages.Warnings();
        return read;
    }

    CadKernel kernel;
    ScopedTempDir folder;
    std::vector<std::wstring> warnings; ///< Of the last reading or writing.
};

} // namespace OrvikCad

#endif
