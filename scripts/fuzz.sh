#!/usr/bin/env bash
# Builds the fuzz preset and runs each fuzz target for ZQ_FUZZ_SECONDS (default 60) from the seed corpus
# in fuzz/corpus with the notation's dictionary; the targets named as arguments, or all of them. Any crash, sanitizer report, leak, hang (a run over 10 s)
# or use of more than 2 GiB fails, and libFuzzer leaves the input as crash-*, leak-*, timeout-* or oom-*
# in build/fuzz/findings. Inputs found on the way go to build/fuzz/corpus, never into the repository.
# An allocation over 2000 MB returns null, as the C library's does where memory is not promised
# lazily, so the library refuses it. Above that ASan's shadow of an untouched array would cost an eighth
# of its size in resident memory, which the library without ASan never pays.
set -euo pipefail
cd "$(dirname "$0")/.."

seconds=${ZQ_FUZZ_SECONDS:-60}
cmake --preset fuzz -DCMAKE_COMPILE_WARNING_AS_ERROR=ON
cmake --build --preset fuzz
mkdir -p build/fuzz/findings
targets=("$@")
[ ${#targets[@]} -gt 0 ] || targets=(text_to_array tree_to_array round_trip differential_read differential_write)
# Each target with its seeds; the tree builder starts from nothing, as any bytes make a tree.
for target in "${targets[@]}"; do
  seeds=()
  [ "$target" = tree_to_array ] || seeds=(fuzz/corpus/text)
  echo "=== $target, ${seconds} s"
  mkdir -p "build/fuzz/corpus/$target"
  ASAN_OPTIONS=detect_leaks=1:allocator_may_return_null=1:max_allocation_size_mb=2000 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
    "build/fuzz/fuzz/fuzz_$target" -max_total_time="$seconds" -rss_limit_mb=2048 -timeout=10 \
    -dict=fuzz/notation.dict -artifact_prefix=build/fuzz/findings/ -print_final_stats=1 \
    "build/fuzz/corpus/$target" "${seeds[@]}"
done
