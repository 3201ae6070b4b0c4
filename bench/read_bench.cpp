// Reading end to end: JSON text to our array, beside RapidJSON's and simdjson's DOMs copied into plain
// containers, and simdjson's parse alone; with the peak memory of each reader beside its speed.
#include "documents.hpp"
#include "fixtures.hpp"
#include "peak_memory.hpp"
#include "rapidjson_reader.hpp"
#ifdef ZQ_BENCH_SIMDJSON
#include "simdjson_reader.hpp"
#endif

#include <benchmark/benchmark.h>
#include <foundation/zorbaldata/array.hpp>
#include <foundation/zorbaldata/array_factory.hpp>
#include <foundation/zorbaldata/json/string_to_zorbaldata.hpp>

#include <cstddef>
#include <cstdint>
#include <exception>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using foundation::zorbaldata::ArrayType;
using zq::bench::DocumentId;

struct Shape {
    ArrayType type;
    std::vector<unsigned long> dimensions;
};

// What each document must read as; a reader that accepts a document but makes something else of it
// would otherwise be timed doing the wrong work.
Shape expected_shape(DocumentId id)
{
    switch (id) {
    case DocumentId::large_double: return {ArrayType::DOUBLE, {1, 3'000'000}};
    case DocumentId::large_int64: return {ArrayType::INT64, {1, 3'000'000}};
    case DocumentId::rows_double: return {ArrayType::DOUBLE, {1'000, 3'000}};
    case DocumentId::large_string: return {ArrayType::STRING, {1, 1'000'000}};
    case DocumentId::large_struct: return {ArrayType::STRUCT, {100'000, 1}};
    case DocumentId::large_cell: return {ArrayType::CELL, {1, 200'000}};
    case DocumentId::strings:
    case DocumentId::records: break;
    }
    return {ArrayType::DOUBLE, {}};
}

// The most memory our reader may hold at its peak, the text included: for a numeric array the text
// and one and a half times the array's eight-byte elements, for any other three times the text.
double memory_limit(DocumentId id, std::size_t text_bytes)
{
    Shape const shape = expected_shape(id);
    if (shape.type != ArrayType::DOUBLE && shape.type != ArrayType::INT64)
        return 3.0 * static_cast<double>(text_bytes);
    double elements = 1;
    for (unsigned long const dimension : shape.dimensions)
        elements *= static_cast<double>(dimension);
    return static_cast<double>(text_bytes) + 1.5 * 8 * elements;
}

// The peak of the memory one read holds, the text it reads included, measured once per reader and
// document in a child process: Google Benchmark calls a benchmark several times while it sizes the run.
double peak_bytes(std::map<DocumentId, double>& known, DocumentId id, std::size_t text_bytes,
                  std::function<void()> const& read)
{
    if (auto const found = known.find(id); found != known.end())
        return found->second;
    return known[id] = static_cast<double>(text_bytes + zq::bench::peak_growth(read));
}

// Runs check, which throws when the reader does not read the document as it should; measures the peak
// memory of read, which makes and frees its result; then times read, the speed counted over
// text_bytes. The read before the timing lets a reader that keeps its buffers from one read to the
// next (simdjson's parser) start with them, as it has them at every later iteration.
template <class Read>
void time_reader(benchmark::State& state, std::map<DocumentId, double>& peaks, DocumentId id,
                 std::size_t text_bytes, std::function<void()> const& check, Read const& read)
{
    double peak = 0;
    try {
        check();
        peak = peak_bytes(peaks, id, text_bytes, [&] { benchmark::DoNotOptimize(read()); });
        benchmark::DoNotOptimize(read());
    } catch (std::exception const& error) {
        state.SkipWithError(error.what());
        return;
    }
    for (auto _ : state) {
        auto result = read();
        benchmark::DoNotOptimize(result);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * text_bytes));
    state.counters["peak_mb"] = peak / 1e6;
    state.counters["peak_over_text"] = peak / static_cast<double>(text_bytes);
}

void BM_ReadArray(benchmark::State& state, DocumentId id)
{
    static std::map<DocumentId, double> peaks;
    std::string const& text = zq::bench::document(id);
    foundation::zorbaldata::ArrayFactory factory;
    time_reader(
        state, peaks, id, text.size(),
        [&] {
            foundation::zorbaldata::Array const& array = zq::bench::our_array(id);
            Shape const shape = expected_shape(id);
            if (array.getType() != shape.type || array.getDimensions() != shape.dimensions)
                throw std::runtime_error("The document reads as an array of another type or size");
        },
        [&] { return foundation::zorbaldata::json::string_to_zorbaldata(text, factory); });
    if (auto const peak = peaks.find(id); peak != peaks.end())
        state.counters["peak_over_limit"] = peak->second / memory_limit(id, text.size());
}

void BM_RapidJsonRead(benchmark::State& state, DocumentId id)
{
    static std::map<DocumentId, double> peaks;
    std::string const& text = zq::bench::document(id);
    time_reader(
        state, peaks, id, text.size(), [&] { zq::bench::rapidjson_containers(id); },
        [&] { return zq::bench::read_with_rapidjson(id, text); });
}

#ifdef ZQ_BENCH_SIMDJSON

// Made once, outside the timing, as a program that loads its files for simdjson loads them into padded
// buffers. The speed is given over the document's own text, whose values these bytes spell.
std::string const& simdjson_document(DocumentId id)
{
    static std::map<DocumentId, std::string> texts;
    auto found = texts.find(id);
    if (found == texts.end())
        found = texts.emplace(id, zq::bench::simdjson_text(zq::bench::document(id))).first;
    return found->second;
}

// One parser for every iteration, as in BM_SimdjsonParse, so that the difference between the two is
// the conversion. The check reads with a parser of its own, which leaves this one untouched for the
// memory measurement: there its buffers are allocated, and count in the peak.
void BM_SimdjsonRead(benchmark::State& state, DocumentId id)
{
    static std::map<DocumentId, double> peaks;
    std::string const& text = simdjson_document(id);
    zq::bench::SimdjsonReader reader;
    time_reader(
        state, peaks, id, zq::bench::document(id).size(),
        [&] {
            if (!(zq::bench::SimdjsonReader().read(id, text) == zq::bench::rapidjson_containers(id)))
                throw std::runtime_error("simdjson's containers differ from RapidJSON's");
        },
        [&] { return reader.read(id, text); });
}

void BM_SimdjsonParse(benchmark::State& state, DocumentId id)
{
    std::string const& text = simdjson_document(id);
    zq::bench::SimdjsonReader reader;
    try {
        reader.parse(text);
    } catch (std::exception const& error) {
        state.SkipWithError(error.what());
        return;
    }
    for (auto _ : state)
        reader.parse(text);
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * zq::bench::document(id).size()));
}

#endif

} // namespace

// The readers of one document registered together, so that they print side by side.
#define ZQ_OUR_AND_RAPIDJSON_READ(doc)                                                                    \
    BENCHMARK_CAPTURE(BM_ReadArray, doc, DocumentId::doc)->Unit(benchmark::kMillisecond);                 \
    BENCHMARK_CAPTURE(BM_RapidJsonRead, doc, DocumentId::doc)->Unit(benchmark::kMillisecond)
#ifdef ZQ_BENCH_SIMDJSON
#define ZQ_READ_BENCHMARKS(doc)                                                                           \
    ZQ_OUR_AND_RAPIDJSON_READ(doc);                                                                        \
    BENCHMARK_CAPTURE(BM_SimdjsonRead, doc, DocumentId::doc)->Unit(benchmark::kMillisecond);              \
    BENCHMARK_CAPTURE(BM_SimdjsonParse, doc, DocumentId::doc)->Unit(benchmark::kMillisecond)
#else
#define ZQ_READ_BENCHMARKS(doc) ZQ_OUR_AND_RAPIDJSON_READ(doc)
#endif

ZQ_READ_BENCHMARKS(large_double);
ZQ_READ_BENCHMARKS(large_int64);
ZQ_READ_BENCHMARKS(rows_double);
ZQ_READ_BENCHMARKS(large_struct);
ZQ_READ_BENCHMARKS(large_cell);
ZQ_READ_BENCHMARKS(large_string);
