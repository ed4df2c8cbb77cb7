#include "TambVizCore/Settings.h"

#include <algorithm>
#include <utility>

namespace TambVizCore {

namespace {

constexpr float kMinLineWidth = 1.0f;
constexpr float kMaxLineWidth = 16.0f;
constexpr int kMinAnimationSteps = 2;
constexpr int kMaxAnimationSteps = 100;

std::unique_ptr<Settings>& currentSettings()
{
    static std::unique_ptr<Settings> settings = std::make_unique<Settings>();
    return settings;
}

} // namespace

Settings* Settings::Current()
{
    return currentSettings().get();
}

void Settings::SetCurrent(std::unique_ptr<Settings> settings)
{
    currentSettings() = std::move(settings);
}

const Settings& Settings::Default()
{
    static const Settings settings;
    return settings;
}

void Settings::SetAntialiasLevel(int level)
{
    m_antialiasLevel = std::clamp(level, kAutomaticAntialiasing, kMostAntialiasSamples);
}

void Settings::SetLineWidth(float pixels)
{
    m_lineWidth = pixels > kMinLineWidth ? std::min(pixels, kMaxLineWidth) : kMinLineWidth;
}

void Settings::SetAnimationSteps(int steps)
{
    m_animationSteps = std::clamp(steps, kMinAnimationSteps, kMaxAnimationSteps);
}

} // namespace TambVizCore
