// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "host/Files.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <iterator>
#include <random>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "host/InputError.h"

namespace velk_tools
{

namespace
{

[[noreturn]] void fail(const std::string& path, const char* verb)
{
    const char* reason = errno != 0 ? std::strerror(errno) : "unknown reason";
    throw InputError(path + ": can't be " + verb + ": " + reason);
}

#ifdef O_BINARY
constexpr int kBinary = O_BINARY;
#else
constexpr int kBinary = 0;
#endif

/// A file that is not finished. Its name is like no other, so it stays listed when the file has its place.
struct Part
{
    std::string name;
    const Part* older;
};

/// Never freed: a signal may come at any time.
std::atomic<const Part*> newestPart{nullptr};

/// Calls nothing but what a signal may interrupt.
extern "C" void removeParts(int signal)
{
    for (const Part* part = newestPart; part != nullptr; part = part->older) {
        unlink(part->name.c_str());
    }
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

void removeOnSignals(const std::string& part)
{
    if (newestPart == nullptr) {
        for (const int signal : {SIGINT, SIGTERM}) {
            if (std::signal(signal, removeParts) == SIG_IGN) {
                std::signal(signal, SIG_IGN); // as for a job in the background
            }
        }
    }
    newestPart = new Part{part, newestPart};
}

/// Also when it goes to a file: replaced by another, that would lose what is printed.
bool isStandardOutput(const std::string& path)
{
    using Status = struct stat;
    Status named{};
    Status standard{};
    return stat(path.c_str(), &named) == 0 && fstat(STDOUT_FILENO, &standard) == 0 && named.st_ino != 0 &&
           named.st_ino == standard.st_ino && named.st_dev == standard.st_dev;
}

} // namespace

std::ifstream openToRead(const std::string& path)
{
    std::error_code ignored; // What can't be looked at can't be opened either, which gives the reason.
    if (std::filesystem::is_directory(path, ignored)) {
        throw InputError(path + ": is a directory");
    }
    errno = 0;
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        fail(path, "read");
    }
    return file;
}

std::string readTextFile(const std::string& path)
{
    std::ifstream file = openToRead(path);
    std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    dropByteOrderMark(text);
    return text;
}

void dropByteOrderMark(std::string& text)
{
    if (text.starts_with("\xEF\xBB\xBF")) {
        text.erase(0, 3);
    }
}

bool isSameFile(const std::string& a, const std::string& b)
{
    std::error_code ignored;
    return std::filesystem::equivalent(a, b, ignored) ||
           std::filesystem::weakly_canonical(a, ignored) == std::filesystem::weakly_canonical(b, ignored);
}

bool isDevice(const std::string& path)
{
    std::error_code ignored;
    return std::filesystem::is_other(path, ignored);
}

OutputFile::OutputFile(std::string path)
    : path_(std::move(path))
{
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path_, error);
    if (status.type() == std::filesystem::file_type::none) { // as of a name that is too long
        throw InputError(path_ + ": can't be written: " + error.message());
    }
    if (isStandardOutput(path_)) {
        use(dup(STDOUT_FILENO)); // to go on where it stands
    } else if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
        use(open(path_.c_str(), O_WRONLY));
    } else {
        openPart(status);
    }
}

/// Makes the file that is written until it takes the place of the old one, if there is one.
void OutputFile::openPart(std::filesystem::file_status old)
{
    constexpr int kForAll = 0666; // less what the user's mask takes away
    constexpr int kForUser = 0600;
    const bool isOld = std::filesystem::exists(old);
    errno = 0;
    if (isOld && access(path_.c_str(), W_OK) != 0) {
        fail(path_, "written"); // though another could be put into its place
    }
    std::error_code ignored;
    place_ = std::filesystem::weakly_canonical(path_, ignored);
    std::random_device random;
    const std::string name = fmt::format(".velk-{:08x}{:08x}.part", random(), random());
    part_ = (place_.parent_path() / name).string();
    removeOnSignals(part_);
    use(open(part_.c_str(), O_WRONLY | O_CREAT | O_EXCL | kBinary, isOld ? kForUser : kForAll));
    if (isOld) {
        std::filesystem::permissions(part_, old.permissions(), ignored);
    }
}

void OutputFile::use(int descriptor)
{
    file_ = descriptor < 0 ? nullptr : fdopen(descriptor, "wb");
    if (file_ == nullptr) {
        fail(path_, "written");
    }
}

OutputFile::~OutputFile()
{
    if (file_ != nullptr) {
        std::fclose(file_);
    }
    if (!part_.empty()) {
        std::error_code ignored;
        std::filesystem::remove(part_, ignored);
    }
}

void OutputFile::write(std::string_view text)
{
    errno = 0;
    if (std::fwrite(text.data(), 1, text.size(), file_) != text.size()) {
        fail(path_, "written");
    }
}

void OutputFile::close()
{
    errno = 0;
    if (std::fclose(std::exchange(file_, nullptr)) != 0) {
        fail(path_, "written");
    }
}

void OutputFile::keep()
{
    std::error_code error;
    if (!part_.empty()) {
        std::filesystem::rename(part_, place_, error);
    }
    if (error) {
        throw InputError(path_ + ": can't be written: " + error.message());
    }
    part_.clear();
}

} // namespace velk_tools
