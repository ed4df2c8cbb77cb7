#include "TambVizCore/Settings.h"

#include <algorithm>
#include <utility>

namespace TambVizCore {

namespace {

constexpr int kMaxAntialiasLevel = 16;

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
    m_antialiasLevel = std::clamp(level, 0, kMaxAntialiasLevel);
}

} // namespace TambVizCore
