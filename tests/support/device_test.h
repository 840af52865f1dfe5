#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "platform/virtual/virtual_device.h"
#include "shell/log.h"

namespace mygame::tests
{

/// A fresh virtual device in an empty folder of the host, which is the current folder and holds the device's
/// data files.
struct DeviceTest : testing::Test {
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

    /// Writes a data file. @return its full path on the device.
    static std::u16string written(const std::string &name, std::string_view bytes)
    {
        std::ofstream(name, std::ios::binary) << bytes;
        return u"\\device\\" + std::u16string(name.begin(), name.end());
    }

    static std::string logged()
    {
        closeLog();
        std::ifstream file("log.txt");
        return {std::istreambuf_iterator<char>(file), {}};
    }

    platform::VirtualDevice &device = platform::VirtualDevice::instance();
    std::filesystem::path folder;
};

} // namespace mygame::tests
