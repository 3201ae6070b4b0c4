// The memory a piece of work needs at its peak, measured in a child process.
#include "peak_memory.hpp"

#include <fstream>
#include <stdexcept>
#include <string>

#include <malloc.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zq::bench {

namespace {

// A field of /proc/self/status in kB, as bytes.
std::size_t status_bytes(std::string const& field)
{
    std::ifstream status("/proc/self/status");
    std::string name;
    for (std::size_t kilobytes = 0; status >> name;) {
        if (name == field + ":" && status >> kilobytes)
            return kilobytes * 1024;
        status.ignore(256, '\n');
    }
    throw std::runtime_error("No " + field + " in /proc/self/status");
}

} // namespace

std::size_t peak_growth(std::function<void()> const& work)
{
    int pipe_ends[2];
    if (pipe(pipe_ends) != 0)
        throw std::runtime_error("No pipe for the memory measurement");
    pid_t const child = fork();
    if (child < 0)
        throw std::runtime_error("No child for the memory measurement");
    if (child == 0) {
        close(pipe_ends[0]);
        std::size_t growth = 0;
        {
            // Free memory kept by the allocator would hide what the work needs, and mapped chunks are
            // given back as soon as they are freed: both make the work's own pages show.
            mallopt(M_MMAP_THRESHOLD, 128 * 1024);
            malloc_trim(0);
            // Writing 5 to clear_refs sets the peak back to the memory resident now.
            std::ofstream("/proc/self/clear_refs") << "5";
            std::size_t const before = status_bytes("VmRSS");
            work();
            growth = status_bytes("VmHWM") - before;
        }
        bool const sent = write(pipe_ends[1], &growth, sizeof growth) == static_cast<ssize_t>(sizeof growth);
        _exit(sent ? 0 : 1);
    }
    close(pipe_ends[1]);
    std::size_t growth = 0;
    bool const received = read(pipe_ends[0], &growth, sizeof growth) == static_cast<ssize_t>(sizeof growth);
    close(pipe_ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    if (!received || !WIFEXITED(status) || WEXITSTATUS(status) != 0)
        throw std::runtime_error("The memory measurement failed in the child");
    return growth;
}

} // namespace zq::bench
