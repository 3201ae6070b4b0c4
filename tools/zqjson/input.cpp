// Reading the whole input of zqjson.
#include "input.hpp"

#include "failure.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstring>

namespace zqjson {

namespace {

// Closes the descriptor it opened, on every way out.
class OpenFile {
public:
    explicit OpenFile(std::string const& name) : descriptor_(::open(name.c_str(), O_RDONLY | O_CLOEXEC)) { }
    OpenFile(OpenFile const&) = delete;
    OpenFile& operator=(OpenFile const&) = delete;
    ~OpenFile()
    {
        if (descriptor_ >= 0)
            ::close(descriptor_);
    }
    int get() const noexcept { return descriptor_; }

private:
    int descriptor_;
};

[[noreturn]] void fail(std::string const& name, int error)
{
    throw Failure("cannot read " + input_name(name) + ": " + std::strerror(error));
}

// Reads until the end into bytes, which starts with room for expected bytes and one more: so a
// regular file is read in place, and the read that sees its end needs no more room.
void read_to_end(int descriptor, std::string const& name, std::string& bytes, std::size_t expected)
{
    constexpr std::size_t least_room = 64 * 1024;
    bytes.resize(expected > 0 ? expected + 1 : least_room);
    std::size_t filled = 0;
    for (;;) {
        if (filled == bytes.size())
            bytes.resize(2 * bytes.size());
        ssize_t const got = ::read(descriptor, bytes.data() + filled, bytes.size() - filled);
        if (got == 0)
            break;
        if (got > 0)
            filled += static_cast<std::size_t>(got);
        else if (errno != EINTR)
            fail(name, errno);
    }
    bytes.resize(filled);
}

} // namespace

std::string input_name(std::string const& name)
{
    return name == "-" ? "standard input" : name;
}

std::string read_input(std::string const& name)
{
    std::string bytes;
    if (name == "-") {
        read_to_end(STDIN_FILENO, name, bytes, 0);
        return bytes;
    }
    OpenFile const file(name);
    if (file.get() < 0)
        fail(name, errno);
    struct stat status { };
    if (::fstat(file.get(), &status) != 0)
        fail(name, errno);
    if (S_ISDIR(status.st_mode))
        fail(name, EISDIR);
    read_to_end(file.get(), name, bytes, S_ISREG(status.st_mode) ? static_cast<std::size_t>(status.st_size) : 0);
    return bytes;
}

} // namespace zqjson
