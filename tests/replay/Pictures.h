#ifndef TESTS_REPLAY_PICTURES_H
#define TESTS_REPLAY_PICTURES_H

#include <filesystem>

/// How two PNG files differ.
struct PictureDifference
{
    int pixels = 0; ///< Of each; 0 when one cannot be read or the sizes differ.
    int off = 0;    ///< Pixels whose colours differ.
    int colors = 0; ///< Different colours in the first picture, at most 1000 are counted.
};

PictureDifference ComparePictures(const std::filesystem::path& a, const std::filesystem::path& b);

#endif
