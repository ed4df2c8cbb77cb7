#ifndef TESTS_SHEETFILE_H
#define TESTS_SHEETFILE_H

#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

/// Writes a binary STL file of a waved sheet with 2 * side * side triangles, whose corners lie a
/// unit apart.
/// @throws std::runtime_error when the file cannot be written.
inline void WriteSheet(const std::filesystem::path& path, int side)
{
    std::ofstream file(path, std::ios::binary);
    const std::string head(80, ' ');
    file.write(head.data(), 80);
    const auto count = static_cast<std::uint32_t>(2 * side * side);
    file.write(reinterpret_cast<const char*>(&count), 4);
    const auto height = [](int x, int y) {
        return std::sin(static_cast<float>(x) * 0.05F) * std::cos(static_cast<float>(y) * 0.05F);
    };
    // A record: the normal, left at zero, three corners, and two bytes without meaning.
    constexpr std::size_t kRecord = 50;
    std::vector<char> row(kRecord * 2 * static_cast<std::size_t>(side), '\0');
    for (int y = 0; y < side; ++y) {
        char* record = row.data();
        for (int x = 0; x < side; ++x)
            for (const auto& corners :
                 {std::array{0, 0, 1, 0, 1, 1}, std::array{0, 0, 1, 1, 0, 1}}) {
                std::array<float, 9> numbers{};
                for (std::size_t i = 0; i < 3; ++i) {
                    const int cornerX = x + corners[2 * i];
                    const int cornerY = y + corners[2 * i + 1];
                    numbers[3 * i] = static_cast<float>(cornerX);
                    numbers[3 * i + 1] = static_cast<float>(cornerY);
                    numbers[3 * i + 2] = height(cornerX, cornerY);
                }
                std::memcpy(record + 12, numbers.data(), sizeof numbers);
                record += kRecord;
            }
        file.write(row.data(), static_cast<std::streamsize>(row.size()));
    }
    if (!file.flush())
        throw std::runtime_error("cannot write " + path.string());
}

#endif
