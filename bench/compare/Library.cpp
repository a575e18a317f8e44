// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "Library.h"

#include <dlfcn.h>
#include <unistd.h>

#include <filesystem>
#include <stdexcept>

namespace velk::compare
{

namespace
{

void* load(const std::string& path)
{
    static int count = 0;
    const auto copy = std::filesystem::temp_directory_path() /
                      ("velk-compare-" + std::to_string(getpid()) + "-" + std::to_string(count++) + ".so");
    std::filesystem::copy_file(path, copy, std::filesystem::copy_options::overwrite_existing);
    void* image = dlopen(copy.c_str(), RTLD_NOW | RTLD_LOCAL);
    std::filesystem::remove(copy);
    if (image == nullptr) {
        throw std::runtime_error("can't load " + path + ": " + dlerror());
    }
    return image;
}

} // namespace

Library::Library(const std::string& path)
    : image_(load(path))
{
}

Library::Symbol Library::find(const char* name) const
{
    void* address = dlsym(image_, name);
    if (address == nullptr) {
        throw std::runtime_error(std::string("the library has no ") + name);
    }
    return {address};
}

} // namespace velk::compare
