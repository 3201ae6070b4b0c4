// The one entry of the suite: every group registers itself from its own file.
//
// The C library's allocator gives freed memory back to the system once enough of it lies at the top of
// the heap, and maps large blocks afresh each time. Whether a reader then pays for touching new pages
// depends on what the benchmark before it freed, not on the reader: on a virtual machine a first touch
// costs microseconds a page, and the same reader was measured at 90 or 250 MB/s by the order of the
// benchmarks alone. So by default the suite keeps what it frees, as a long-running process does, and
// every reader and writer, ours and the peers, reuses warm memory alike. `--zq_allocator=default` keeps
// the C library's own settings.
#include <benchmark/benchmark.h>

#include <malloc.h>

#include <cstring>

int main(int argc, char** argv)
{
    bool steady = true;
    int kept = 1;
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--zq_allocator=default") == 0)
            steady = false;
        else
            argv[kept++] = argv[i];
    }
    argc = kept;
    if (steady) {
        mallopt(M_TRIM_THRESHOLD, 1 << 30);
        mallopt(M_MMAP_THRESHOLD, 32 << 20); // the most it takes
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::AddCustomContext("allocator", steady ? "keeps freed memory" : "C library defaults");
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
