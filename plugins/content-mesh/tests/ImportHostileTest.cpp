#include "ImportFiles.h"
#include "MeshFiles.h"

#include <gtest/gtest.h>

#include <random>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

namespace {

void expectSound(const GltfResult& result, const std::wstring& path)
{
    if (result.ok)
        EXPECT_GT(result.shapesMade, 0u);
    else
        EXPECT_GT(result.error.size(), path.size() + 2);
}

class HostileImport : public testing::TestWithParam<ImportSample>
{
protected:
    void read(std::string_view bytes)
    {
        const std::wstring path = m_folder.Write("hostile." + GetParam().extension, bytes);
#ifdef __SANITIZE_ADDRESS__
        // Assimp forgets parts of a damaged file when it gives up; the reader tests show that
        // nothing is lost of a good one.
        const __lsan::ScopedDisabler notOurs;
#endif
        expectSound(ReadImportedFile(path), path);
    }

private:
    TempFolder m_folder;
};

} // namespace

TEST_P(HostileImport, CutAtEveryTenthIsReadOrRefused)
{
    const std::string& bytes = GetParam().bytes;
    for (std::size_t tenth = 0; tenth < 10; ++tenth)
        read(std::string_view(bytes).substr(0, bytes.size() * tenth / 10));
}

TEST_P(HostileImport, WithFlippedBytesIsReadOrRefused)
{
    for (unsigned seed = 0; seed < 50; ++seed) {
        std::mt19937 random(seed);
        std::string bytes = GetParam().bytes;
        for (int i = 0; i < 4; ++i)
            bytes[random() % bytes.size()] = static_cast<char>(random());
        SCOPED_TRACE(seed);
        read(bytes);
    }
}

TEST_P(HostileImport, WithTheContentOfAnotherFormatIsReadOrRefused)
{
    read("solid x\nfacet normal 0 0 1\nouter loop\n");
    read(std::string(1000, '\0'));
    read(std::string(200000, '['));
    read("<?xml version=\"1.0\"?>" + std::string(2000, '<'));
}

INSTANTIATE_TEST_SUITE_P(Formats, HostileImport, testing::ValuesIn(ImportSamples()),
                         [](const testing::TestParamInfo<ImportSample>& sample) {
                             return "Of" + sample.param.extension;
                         });
