#ifndef ORVIKMESH_TESTS_MESHSAMPLES_H
#define ORVIKMESH_TESTS_MESHSAMPLES_H

#include <string>

// Small sound files of each format that use much of what it has: what tests damage, and what
// fuzzing begins with.

std::string ObjSample();
std::string PlyTextSample();
std::string PlyBinarySample(bool isBigEndian);
std::string OffTextSample();
std::string OffBinarySample();
/// XYZ or PTS.
std::string PointTextSample();
std::string PcdTextSample();
std::string PcdBinarySample();
std::string PcdCompressedSample();

#endif
