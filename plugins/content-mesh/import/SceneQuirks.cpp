#include "import/SceneQuirks.h"

#include <assimp/scene.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <string>

namespace OrvikMesh {

namespace {

/// One direction of a FBX file: a unit vector along an axis.
bool readAxis(const aiMetadata& data, const std::string& name, std::array<float, 3>& direction)
{
    std::int32_t axis = 0;
    std::int32_t sign = 0;
    if (!data.Get(name + "Axis", axis) || !data.Get(name + "AxisSign", sign) || axis < 0 ||
        axis > 2 || (sign != 1 && sign != -1))
        return false;
    direction = {};
    direction[static_cast<std::size_t>(axis)] = static_cast<float>(sign);
    return true;
}

} // namespace

bool IsMadeUpColor(const aiColor4D& color)
{
    const auto areAll = [&](float share) {
        return color.r == share && color.g == share && color.b == share && color.a == share;
    };
    return areAll(0.0f) || areAll(0.6f);
}

bool IsMadeUpMaterial(const aiMaterial& material, const aiColor4D& diffuse)
{
    aiString name;
    if (material.Get(AI_MATKEY_NAME, name) != aiReturn_SUCCESS)
        name.Clear();
    const bool isNameless = name.length == 0 ||
                            std::strcmp(name.C_Str(), AI_DEFAULT_MATERIAL_NAME) == 0 ||
                            std::strcmp(name.C_Str(), "%%%DEFAULT") == 0;
    constexpr float kGreys[] = {0.3f, 0.5f, 0.6f, 0.8f, 0.9f};
    return isNameless && diffuse.r == diffuse.g && diffuse.g == diffuse.b &&
           std::find(std::begin(kGreys), std::end(kGreys), diffuse.r) != std::end(kGreys);
}

aiMatrix4x4 TurnOfFbx(const aiScene& scene)
{
    std::array<float, 3> right{};
    std::array<float, 3> up{};
    std::array<float, 3> front{};
    if (!scene.mMetaData || !readAxis(*scene.mMetaData, "Coord", right) ||
        !readAxis(*scene.mMetaData, "Up", up) || !readAxis(*scene.mMetaData, "Front", front))
        return {};
    const aiMatrix4x4 turn(right[0], right[1], right[2], 0.0f, //
                           up[0], up[1], up[2], 0.0f,          //
                           front[0], front[1], front[2], 0.0f, //
                           0.0f, 0.0f, 0.0f, 1.0f);
    return turn.Determinant() == 1.0f ? turn : aiMatrix4x4();
}

std::set<std::string_view> NamesOfCamerasAndLights(const aiScene& scene)
{
    std::set<std::string_view> names;
    for (unsigned i = 0; i < scene.mNumCameras; ++i)
        names.insert(scene.mCameras[i]->mName.C_Str());
    for (unsigned i = 0; i < scene.mNumLights; ++i)
        names.insert(scene.mLights[i]->mName.C_Str());
    return names;
}

} // namespace OrvikMesh
