#ifndef ORVIKCAD_TESTS_DAMAGEDFILE_H
#define ORVIKCAD_TESTS_DAMAGEDFILE_H

#include <cstdint>
#include <random>
#include <string>

namespace OrvikCad {

/// Flips one to twenty bits of a file; the same seed flips the same ones.
inline std::string DamagedFile(std::string text, std::uint32_t seed)
{
    std::mt19937 random(seed);
    const std::uint32_t flips = 1 + static_cast<std::uint32_t>(random()) % 20;
    for (std::uint32_t i = 0; i < flips; ++i) {
        char& byte = text[random() % text.size()];
        byte = static_cast<char>(byte ^ (1 << random() % 8));
    }
    return text;
}

} // namespace OrvikCad

#endif
