// Where zqjson puts its result: standard output, or a file that is replaced only when all is written.
#include "destination.hpp"

#include "failure.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <utility>
#include <vector>

namespace zqjson {

namespace {

[[noreturn]] void fail(std::string const& path, int error)
{
    throw Failure("cannot write " + path + ": " + std::strerror(error));
}

void write_all(int descriptor, std::string_view bytes, std::string const& path)
{
    while (!bytes.empty()) {
        ssize_t const written = ::write(descriptor, bytes.data(), bytes.size());
        if (written >= 0)
            bytes.remove_prefix(static_cast<std::size_t>(written));
        else if (errno != EINTR)
            fail(path, errno);
    }
}

// The mode a file created by open(path, O_CREAT, 0666) would get, which umask alone tells; umask
// cannot be read without being set, and zqjson has no other thread that could see the change.
mode_t mode_for_new_file()
{
    mode_t const mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

// The temporary file beside the target, removed unless it was renamed into place.
class TemporaryFile {
public:
    explicit TemporaryFile(std::string const& path)
    {
        std::filesystem::path const target(path);
        std::string const name = (target.parent_path() / ("." + target.filename().string() + ".XXXXXX")).string();
        name_.assign(name.begin(), name.end());
        name_.push_back('\0');
        descriptor_ = ::mkstemp(name_.data());
        if (descriptor_ < 0)
            fail(path, errno);
    }
    TemporaryFile(TemporaryFile const&) = delete;
    TemporaryFile& operator=(TemporaryFile const&) = delete;
    ~TemporaryFile()
    {
        if (descriptor_ >= 0)
            ::close(descriptor_);
        if (!renamed_)
            ::unlink(name_.data());
    }

    int descriptor() const noexcept { return descriptor_; }

    // Closes the file, checking the close, which may report a failed write, and renames it to path.
    void replace(std::string const& path)
    {
        int const descriptor = std::exchange(descriptor_, -1);
        if (::close(descriptor) != 0)
            fail(path, errno);
        if (::rename(name_.data(), path.c_str()) != 0)
            fail(path, errno);
        renamed_ = true;
    }

private:
    std::vector<char> name_;
    int descriptor_ = -1;
    bool renamed_ = false;
};

} // namespace

void deliver(std::string const& path, std::string_view text)
{
    if (path == "-") {
        std::cout << text << '\n' << std::flush;
        if (!std::cout)
            throw Failure("cannot write standard output");
        return;
    }
    TemporaryFile file(path);
    struct stat existing { };
    mode_t const mode = ::stat(path.c_str(), &existing) == 0 ? existing.st_mode & 07777 : mode_for_new_file();
    if (::fchmod(file.descriptor(), mode) != 0)
        fail(path, errno);
    write_all(file.descriptor(), text, path);
    write_all(file.descriptor(), "\n", path);
    file.replace(path);
}

} // namespace zqjson
