#include "PickCommand.h"

#include <TambVizCore/EntityId.h>
#include <TambVizCore/Ray.h>
#include <TambVizCore/Utils.h>

#include <cstddef>

namespace OrvikCore {

namespace {

constexpr std::size_t kMaxLength = 4096;
constexpr int kDecimals = 4;
constexpr int kMinWidth = 4;

const char* kindWord(const TambVizCore::EntityId& entity)
{
    if (entity.IsFace()) {
        return "face";
    }
    if (entity.IsEdge()) {
        return "edge";
    }
    return entity.IsVertex() ? "vertex" : "entity";
}

std::string number(double value)
{
    return " " + TambVizCore::Utils::FormatFixed(value, kDecimals, kMinWidth);
}

} // namespace

std::wstring PickCommand(const TambVizCore::EntityId& entity, const TambVizCore::Ray& ray)
{
    std::string text = std::string("(define ent (app:pick-") + kindWord(entity);
    for (int i = 0; i < 3; ++i) {
        text += number(ray.Origin()[i]);
    }
    for (int i = 0; i < 3; ++i) {
        text += number(ray.Direction()[i]);
    }
    text += number(ray.Radius()) + "))";
    return TambVizCore::Utils::StringToWstring(text).substr(0, kMaxLength);
}

} // namespace OrvikCore
