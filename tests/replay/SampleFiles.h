#ifndef TESTS_REPLAY_SAMPLEFILES_H
#define TESTS_REPLAY_SAMPLEFILES_H

#include <string>

/// @return an ASCII STL file of a closed box with a corner in the origin; lengths in world units.
std::string BoxStl(double x, double y, double z);

#endif
