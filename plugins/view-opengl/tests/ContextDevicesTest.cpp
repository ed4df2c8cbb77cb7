#include "ContextDevices.h"

#include <gtest/gtest.h>

namespace ViewOpenGl {
namespace {

const char kSoftware[] = "EGL_MESA_device_software EGL_EXT_device_query_name";
const char kHardware[] = "EGL_EXT_device_drm EGL_EXT_device_drm_render_node";

/// Opens devices by their place in a list, and remembers which were tried.
class FakeDevices
{
public:
    /// @param good  for each device, whether it opens.
    FakeDevices(std::vector<ContextDevice> devices, std::vector<bool> good)
        : m_devices(std::move(devices)), m_good(std::move(good))
    {
        for (ContextDevice& device : m_devices)
            device.handle = &device;
    }

    bool Open()
    {
        const auto open = [this](const ContextDevice& device, std::string& reason) {
            const auto place = static_cast<const ContextDevice*>(device.handle) - m_devices.data();
            tried.push_back(static_cast<int>(place));
            reason = "no driver";
            return static_cast<bool>(m_good[static_cast<std::size_t>(place)]);
        };
        return OpenHardwareDevice(m_devices, open, notes);
    }

    std::vector<int> tried;
    std::vector<std::string> notes;

private:
    std::vector<ContextDevice> m_devices;
    std::vector<bool> m_good;
};

TEST(ContextDevices, HardwareIsPreferredToSoftware)
{
    FakeDevices devices({{nullptr, kSoftware}, {nullptr, kHardware}}, {true, true});

    EXPECT_TRUE(devices.Open());
    EXPECT_EQ(devices.tried, std::vector<int>{1});
    EXPECT_TRUE(devices.notes.empty());
}

TEST(ContextDevices, NextIsTriedWithANoteWhenOneDoesNotOpen)
{
    FakeDevices devices({{nullptr, kHardware}, {nullptr, kHardware}}, {false, true});

    EXPECT_TRUE(devices.Open());
    EXPECT_EQ(devices.tried, (std::vector<int>{0, 1}));
    ASSERT_EQ(devices.notes.size(), 1u);
    EXPECT_EQ(devices.notes[0], "graphics device 0 is not used: no driver");
}

TEST(ContextDevices, SoftwareDevicesAreNeverTried)
{
    FakeDevices devices({{nullptr, kSoftware}}, {true});

    EXPECT_FALSE(devices.Open());
    EXPECT_TRUE(devices.tried.empty());
}

TEST(ContextDevices, NoneOpensWhenAllFail)
{
    FakeDevices devices({{nullptr, kHardware}, {nullptr, kHardware}}, {false, false});

    EXPECT_FALSE(devices.Open());
    EXPECT_EQ(devices.notes.size(), 2u);
}

TEST(ContextDevices, WordsAreFoundWhole)
{
    EXPECT_TRUE(HasWord("EGL_A EGL_B", "EGL_B"));
    EXPECT_TRUE(HasWord("EGL_A EGL_B", "EGL_A"));
    EXPECT_FALSE(HasWord("EGL_AB EGL_BC", "EGL_B"));
    EXPECT_FALSE(HasWord(nullptr, "EGL_B"));
    EXPECT_FALSE(HasWord("", "EGL_B"));
}

} // namespace
} // namespace ViewOpenGl
