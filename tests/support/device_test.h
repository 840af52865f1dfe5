#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "platform/virtual/virtual_device.h"
#include "shell/log.h"

namespace mygame::tests
{

/// A fresh virtual device in an empty folder of the host, which is the current folder and holds the device's
/// data files.
class DeviceTest : public testing::Test
{
protected:
    DeviceTest()
    {
        std::string name = testing::TempDir() + "mygame-XXXXXX";
        folder = mkdtemp(name.data());
        std::filesystem::current_path(folder);
        platform::VirtualDevice::reset();
        device.dataFolder = folder;
    }

    ~DeviceTest() override
    {
        closeLog();
        std::filesystem::current_path("/");
        std::filesystem::remove_all(folder);
    }

    platform::VirtualDevice &device = platform::VirtualDevice::instance();
    std::filesystem::path folder;
};

} // namespace mygame::tests
