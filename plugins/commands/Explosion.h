#ifndef PLUGINCOMMANDS_EXPLOSION_H
#define PLUGINCOMMANDS_EXPLOSION_H

#include <TambVizCore/AttributeDisplacement.h>
#include <TambVizCore/RenderId.h>

#include <cstddef>
#include <vector>

namespace TambVizCore {
class Node;
}

namespace OrvikCommands {

/// Where the nodes of a scene go when its assemblies are taken apart.
///
/// An assembly is a node that draws nothing itself and has at least two children that take up room.
/// Each such child moves straight away from the middle of the assembly's box, by the distance
/// between that middle and the middle of its own box times an amount; what is below moves along,
/// and apart again where it is an assembly itself. Boxes are those of what lies where it belongs,
/// hidden or not, without PMI: neither an earlier explosion nor what is hidden changes the result.
/// Files do not move away from each other.
struct Explosion
{
    std::vector<TambVizCore::RenderId> moved; ///< Whose displacement differs from the present one.
    TambVizCore::AttributeDisplacement::Displacements displacements;
};

/// Assemblies of every level are taken apart.
inline constexpr std::size_t kEveryLevel = static_cast<std::size_t>(-1);

/// @param root    Of the scene; what is drawn beside the model stays.
/// @param amount  0 leaves everything where it belongs.
/// @param levels  How many levels of assemblies are taken apart, from the outermost.
/// @thread  Main thread.
Explosion Explode(const TambVizCore::Node& root, double amount, std::size_t levels);

} // namespace OrvikCommands

#endif
