#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "platform/virtual/virtual_device.h"
#include "replay/picture_file.h"
#include "shell/log.h"
#include "tests/support/letters.h"

namespace mygame::tests
{

/// All bytes of a file, none when it is missing.
inline std::string readFile(const std::string &path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline void writeFile(const std::string &path, std::string_view bytes)
{
    std::ofstream(path, std::ios::binary) << bytes;
}

/// A fresh virtual device in an empty folder of the host, which is the current folder and holds the device's
/// data files.
struct DeviceTest : testing::Test {
    DeviceTest()
    {
        std::string name = testing::TempDir() + "mygame-XXXXXX";
        folder = mkdtemp(name.data());
        std::filesystem::current_path(folder);
        device.dataFolder = folder;
        platform::useDevice(device);
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
        writeFile(name, bytes);
        return u"\\device\\" + std::u16string(name.begin(), name.end());
    }

    /// The same for a picture, given by its letters.
    static std::u16string drawn(const std::string &name, std::string_view letters)
    {
        const Surface surface = surfaceOf(letters);
        replay::writePicture(name, {surface.pixels(), static_cast<std::size_t>(surface.pixelCount())},
                             static_cast<std::uint32_t>(surface.width()));
        return written(name, readFile(name));
    }

    static std::string logged()
    {
        closeLog();
        return readFile("log.txt");
    }

    platform::VirtualDevice device;
    std::filesystem::path folder;
};

} // namespace mygame::tests
