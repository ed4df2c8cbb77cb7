#include "FuzzReading.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

// Runs a fuzz target without a fuzzer: over each file of a folder, cut at every tenth, and with
// bytes changed by a seed. The target's own files are put into the folder first.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

/// Changes that hit counts and indices.
constexpr std::uint64_t kOddValues[] = {0,
                                        1,
                                        0x7F,
                                        0xFF,
                                        0xFFFF,
                                        0x7FFFFFFF,
                                        0x80000000,
                                        0xFFFFFFFF,
                                        0x100000000,
                                        0x7FFFFFFFFFFFFFFF,
                                        0xFFFFFFFFFFFFFFFF};
constexpr const char* kOddWords[] = {
    "4294967295", "18446744073709551615", "-1", "nan", "inf", "1e999", "0", " ", "\n"};

std::size_t inputs = 0;

void run(const std::string& bytes)
{
    // A copy of its own, so that a sanitizer sees each byte read past the end.
    const std::vector<std::uint8_t> exact(bytes.begin(), bytes.end());
    LLVMFuzzerTestOneInput(exact.data(), exact.size());
    ++inputs;
}

void writeSeeds(const std::filesystem::path& folder)
{
    std::filesystem::create_directories(folder);
    int number = 0;
    for (const std::string& bytes : FuzzSeeds()) {
        std::ofstream file(folder / ("seed-" + std::to_string(number++)), std::ios::binary);
        file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }
}

std::string changed(std::string bytes, std::mt19937& random)
{
    const std::size_t changes = 1 + random() % 8;
    for (std::size_t i = 0; i < changes && !bytes.empty(); ++i) {
        const std::size_t at = random() % bytes.size();
        switch (random() % 5) {
        case 0:
            bytes[at] = static_cast<char>(random());
            break;
        case 1: {
            const std::uint64_t value = kOddValues[random() % std::size(kOddValues)];
            const std::size_t size =
                std::min<std::size_t>(std::size_t{1} << random() % 4, bytes.size() - at);
            std::memcpy(&bytes[at], &value, size);
            break;
        }
        case 2:
            bytes.insert(at, kOddWords[random() % std::size(kOddWords)]);
            break;
        case 3:
            bytes.erase(at, 1 + random() % 16);
            break;
        default:
            bytes.insert(at, bytes.substr(random() % bytes.size(), random() % 64));
            break;
        }
    }
    return bytes;
}

void replay(const std::string& bytes, unsigned mutants)
{
    for (std::size_t tenth = 0; tenth <= 10; ++tenth)
        run(bytes.substr(0, bytes.size() * tenth / 10));
    for (unsigned seed = 0; seed < mutants; ++seed) {
        std::mt19937 random(seed);
        run(changed(bytes, random));
    }
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 2 || argc > 3) {
        std::fprintf(stderr, "usage: %s FOLDER [CHANGES PER FILE]\n", argv[0]);
        return 2;
    }
    const std::filesystem::path folder(argv[1]);
    const auto mutants = argc == 3 ? static_cast<unsigned>(std::atoi(argv[2])) : 50u;
    writeSeeds(folder);
    std::vector<std::filesystem::path> files(std::filesystem::directory_iterator(folder), {});
    std::sort(files.begin(), files.end());
    for (const std::filesystem::path& path : files) {
        std::ifstream file(path, std::ios::binary);
        replay({std::istreambuf_iterator<char>(file), {}}, mutants);
    }
    std::printf("%zu files, %zu inputs\n", files.size(), inputs);
    return 0;
}
